#pragma once

#include <string>

#include "core/ports/locale.h"

namespace cuewright {

/// The code page that Windows gives the language of the user's locale (LC_ALL, LC_CTYPE, LANG): 1252 for one that
/// isn't known.
int AnsiCodePageOfLocale();

/// Locales by the data of ICU; the user's own is that of LC_ALL, LC_MESSAGES, LANG at the time of making.
class IcuLocale final : public Locale {
 public:
  IcuLocale();

  Text GetLocaleText(std::int32_t locale, std::int32_t item) const override;
  bool IsValidLocale(std::int32_t locale) const override;
  Text LanguageName(std::int32_t locale) const override;
  Text LongDate(int year, int month, int day) const override;
  std::optional<Text> Recode(TextView text, int toCodePage, int fromCodePage) const override;

 private:
  std::string NameOf(std::int32_t locale) const;

  std::string user_;
  std::string dates_;
};

}  // namespace cuewright

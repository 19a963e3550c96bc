#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace cuewright {

/// Stands for the user's own locale where a locale id is asked for.
inline constexpr std::int32_t kUserLocale = 1024;

/// The items of `Locale::GetLocaleText`.
inline constexpr std::int32_t kEnglishLanguageName = 4097;
inline constexpr std::int32_t kNativeLanguageName = 4;
inline constexpr std::int32_t kAnsiCodePage = 4100;

/// What the system knows about locales. Locale ids are those of Windows, 2057 for British English. This class is a
/// system that knows none.
class Locale {
 public:
  virtual ~Locale() = default;

  /// The item of a locale as text; empty when the system doesn't know it. Run-time error when the asking failed.
  virtual Text GetLocaleText(std::int32_t /*locale*/, std::int32_t /*item*/) const { return {}; }

  /// True for a locale that the system supports. Run-time error when the asking failed.
  virtual bool IsValidLocale(std::int32_t /*locale*/) const { return false; }

  /// The name of a locale's language (and country, where the id has one) in the user's language; empty for none.
  virtual Text LanguageName(std::int32_t /*locale*/) const { return {}; }

  /// A day in the user's long form of dates; empty for none.
  virtual Text LongDate(int /*year*/, int /*month*/, int /*day*/) const { return {}; }

  /// The code page that the texts of the windows are drawn in; empty where they are Unicode throughout.
  virtual std::optional<int> WindowCodePage() const { return std::nullopt; }

  /// The bytes of a text in one code page, taken as text of another; empty when a code page isn't known.
  virtual std::optional<Text> Recode(TextView /*text*/, int /*toCodePage*/, int /*fromCodePage*/) const {
    return std::nullopt;
  }
};

}  // namespace cuewright

#include "platform/locale.h"

#include <unicode/udat.h>
#include <unicode/uloc.h>

#include <array>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <string_view>

#include "text/codec.h"

namespace cuewright {
namespace {

struct LanguagePage {
  std::string_view language;
  int codePage;
};

constexpr LanguagePage kPages[] = {{"ar", 1256}, {"az", 1254}, {"be", 1251}, {"bg", 1251}, {"bs", 1250}, {"cs", 1250},
                                   {"el", 1253}, {"et", 1257}, {"fa", 1256}, {"he", 1255}, {"hr", 1250}, {"hu", 1250},
                                   {"ja", 932},  {"kk", 1251}, {"ko", 949},  {"ky", 1251}, {"lt", 1257}, {"lv", 1257},
                                   {"mk", 1251}, {"mn", 1251}, {"pl", 1250}, {"ro", 1250}, {"ru", 1251}, {"sk", 1250},
                                   {"sl", 1250}, {"sq", 1250}, {"sr", 1251}, {"th", 874},  {"tr", 1254}, {"tt", 1251},
                                   {"uk", 1251}, {"ur", 1256}, {"vi", 1258}, {"zh", 936}};

/// The first of the variables that holds something.
std::string FromEnvironment(std::initializer_list<const char*> variables) {
  for (const char* variable : variables) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

/// The code page of a locale's name in the system's or ICU's form.
int AnsiCodePageOf(std::string_view name) {
  if (name.starts_with("zh_TW") || name.starts_with("zh_HK") || name.starts_with("zh_Hant")) return 950;
  const bool latin = name.find("@latin") != std::string_view::npos || name.find("_Latn") != std::string_view::npos;
  if (name.starts_with("sr") && latin) return 1250;
  const std::string_view language = name.substr(0, name.find_first_of("_.@"));
  for (const LanguagePage& page : kPages) {
    if (page.language == language) return page.codePage;
  }
  return 1252;
}

/// "sr_RS.UTF-8@latin" as ICU names it, "sr_Latn_RS".
std::string IcuName(std::string_view name) {
  const std::string_view plain = name.substr(0, name.find_first_of(".@"));
  if (plain.empty() || plain == "C" || plain == "POSIX") return "en_US_POSIX";
  const std::size_t country = plain.find('_');
  if (name.find("@latin") == std::string_view::npos || country == std::string_view::npos) return std::string(plain);
  return std::string(plain.substr(0, country)) + "_Latn" + std::string(plain.substr(country));
}

/// A name of a locale in the words of another, by one of ICU's functions; empty when ICU has none.
template <class Function>
Text DisplayName(Function&& function, const std::string& name, const std::string& words) {
  std::array<UChar, 256> buffer{};
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t length = function(name.c_str(), words.c_str(), buffer.data(), 255, &status);
  // The warning of a default means that the code itself came back.
  if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING || length <= 0) return {};
  return Text(buffer.data());
}

}  // namespace

int AnsiCodePageOfLocale() { return AnsiCodePageOf(FromEnvironment({"LC_ALL", "LC_CTYPE", "LANG"})); }

IcuLocale::IcuLocale()
    : user_(IcuName(FromEnvironment({"LC_ALL", "LC_MESSAGES", "LANG"}))),
      dates_(IcuName(FromEnvironment({"LC_ALL", "LC_TIME", "LANG"}))) {}

std::string IcuLocale::NameOf(std::int32_t locale) const {
  if (locale == kUserLocale) return user_;
  std::array<char, ULOC_FULLNAME_CAPACITY> name{};
  UErrorCode status = U_ZERO_ERROR;
  uloc_getLocaleForLCID(std::bit_cast<std::uint32_t>(locale), name.data(), ULOC_FULLNAME_CAPACITY - 1, &status);
  return U_FAILURE(status) ? std::string() : std::string(name.data());
}

Text IcuLocale::GetLocaleText(std::int32_t locale, std::int32_t item) const {
  const std::string name = NameOf(locale);
  if (name.empty()) return {};
  switch (item) {
    case kEnglishLanguageName:
      return DisplayName(uloc_getDisplayLanguage, name, "en");
    case kNativeLanguageName:
      return DisplayName(uloc_getDisplayLanguage, name, name);
    case kAnsiCodePage:
      return Decimal(locale == kUserLocale ? AnsiCodePageOfLocale() : AnsiCodePageOf(name));
    default:
      return {};
  }
}

bool IcuLocale::IsValidLocale(std::int32_t locale) const {
  return !GetLocaleText(locale, kEnglishLanguageName).empty();
}

Text IcuLocale::LanguageName(std::int32_t locale) const {
  const std::string name = NameOf(locale);
  return name.empty() ? Text() : DisplayName(uloc_getDisplayName, name, user_);
}

Text IcuLocale::LongDate(int year, int month, int day) const {
  UErrorCode status = U_ZERO_ERROR;
  // Noon in a fixed zone, so that no clock of the user's moves the day.
  const auto noon = std::chrono::sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(12);
  const double ms = std::chrono::duration<double, std::milli>(noon.time_since_epoch()).count();
  UDateFormat* format = udat_open(UDAT_NONE, UDAT_FULL, dates_.c_str(), u"UTC", -1, nullptr, 0, &status);
  std::array<UChar, 256> buffer{};
  udat_format(format, ms, buffer.data(), 255, nullptr, &status);
  udat_close(format);
  return U_FAILURE(status) ? Text() : Text(buffer.data());
}

std::optional<Text> IcuLocale::Recode(TextView text, int toCodePage, int fromCodePage) const {
  if (!IsTextCodePage(toCodePage) || !IsTextCodePage(fromCodePage)) return std::nullopt;
  std::string bytes;
  if (!MakeCodec(toCodePage)->Encode(text, bytes)) return std::nullopt;
  return MakeCodec(fromCodePage)->Decoded(bytes);
}

}  // namespace cuewright

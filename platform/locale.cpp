#include "platform/locale.h"

#include <cstdlib>
#include <string>
#include <string_view>

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

}  // namespace

int AnsiCodePageOfLocale() {
  std::string_view name;
  for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') {
      name = value;
      break;
    }
  }
  if (name.starts_with("zh_TW") || name.starts_with("zh_HK")) return 950;
  if (name.starts_with("sr") && name.find("@latin") != std::string_view::npos) return 1250;
  const std::string_view language = name.substr(0, name.find_first_of("_.@"));
  for (const LanguagePage& page : kPages) {
    if (page.language == language) return page.codePage;
  }
  return 1252;
}

}  // namespace cuewright

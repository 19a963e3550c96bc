#include "platform/locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

/// Sets the user's locale for a test and puts the old one back.
class UserLocale {
 public:
  explicit UserLocale(const char* name) {
    for (const char* variable : kVariables) {
      const char* old = std::getenv(variable);
      if (old != nullptr) old_[variable] = old;
      ::unsetenv(variable);
    }
    if (name != nullptr) ::setenv("LANG", name, 1);
  }
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;
  ~UserLocale() {
    for (const char* variable : kVariables) ::unsetenv(variable);
    for (const auto& [variable, value] : old_) ::setenv(variable.c_str(), value.c_str(), 1);
  }

 private:
  static constexpr const char* kVariables[] = {"LC_ALL", "LC_MESSAGES", "LC_TIME", "LC_CTYPE", "LANG"};
  std::map<std::string, std::string> old_;
};

struct UserCase {
  const char* name;
  TextView language;
  TextView codePage;
};

class UsersLocale : public ::testing::TestWithParam<UserCase> {};

TEST_P(UsersLocale, HasTheLanguageAndTheCodePageOfTheEnvironment) {
  const UserLocale user(GetParam().name);
  const IcuLocale locale;
  EXPECT_EQ(locale.GetLocaleText(kUserLocale, kEnglishLanguageName), GetParam().language);
  EXPECT_EQ(locale.GetLocaleText(kUserLocale, kAnsiCodePage), GetParam().codePage);
}

INSTANTIATE_TEST_SUITE_P(
    Environments, UsersLocale,
    ::testing::Values(UserCase{"de_DE.UTF-8", u"German", u"1252"}, UserCase{"zh_CN.UTF-8", u"Chinese", u"936"},
                      UserCase{"zh_TW.UTF-8", u"Chinese", u"950"}, UserCase{"ar_EG.UTF-8", u"Arabic", u"1256"},
                      UserCase{"pt_BR.UTF-8", u"Portuguese", u"1252"}, UserCase{"sr_RS@latin", u"Serbian", u"1250"},
                      UserCase{"ru_RU", u"Russian", u"1251"}, UserCase{"C.UTF-8", u"English", u"1252"},
                      UserCase{nullptr, u"English", u"1252"}),
    [](const auto& row) { return "Case" + std::to_string(row.index); });

TEST(UsersLocale, MessagesGoBeforeTheRestOfTheEnvironment) {
  const UserLocale user("de_DE.UTF-8");
  ::setenv("LC_MESSAGES", "es_ES.UTF-8", 1);
  EXPECT_EQ(IcuLocale().GetLocaleText(kUserLocale, kEnglishLanguageName), u"Spanish");
  ::setenv("LC_ALL", "fr_FR.UTF-8", 1);
  EXPECT_EQ(IcuLocale().GetLocaleText(kUserLocale, kEnglishLanguageName), u"French");
}

struct TableCase {
  std::int32_t locale;
  TextView english;
  TextView native;
  TextView codePage;
};

class LocaleOfTheTable : public ::testing::TestWithParam<TableCase> {};

TEST_P(LocaleOfTheTable, IsKnown) {
  const UserLocale user("en_GB.UTF-8");
  const IcuLocale locale;
  EXPECT_TRUE(locale.IsValidLocale(GetParam().locale));
  EXPECT_EQ(locale.GetLocaleText(GetParam().locale, kEnglishLanguageName), GetParam().english);
  EXPECT_EQ(locale.GetLocaleText(GetParam().locale, kNativeLanguageName), GetParam().native);
  EXPECT_EQ(locale.GetLocaleText(GetParam().locale, kAnsiCodePage), GetParam().codePage);
}

INSTANTIATE_TEST_SUITE_P(
    Ids, LocaleOfTheTable,
    ::testing::Values(
        TableCase{0x0809, u"English", u"English", u"1252"}, TableCase{0x2C0A, u"Spanish", u"español", u"1252"},
        TableCase{0x0413, u"Dutch", u"Nederlands", u"1252"}, TableCase{0x0408, u"Greek", u"Ελληνικά", u"1253"},
        TableCase{0x0410, u"Italian", u"italiano", u"1252"}, TableCase{0x040C, u"French", u"français", u"1252"},
        TableCase{0x0416, u"Portuguese", u"português", u"1252"},
        TableCase{0x0816, u"Portuguese", u"português", u"1252"}, TableCase{0x0403, u"Catalan", u"català", u"1252"},
        TableCase{0x7C1A, u"Serbian", u"српски", u"1251"}, TableCase{0x040E, u"Hungarian", u"magyar", u"1250"},
        TableCase{0x0418, u"Romanian", u"română", u"1250"}, TableCase{0x040B, u"Finnish", u"suomi", u"1252"},
        TableCase{0x0429, u"Persian", u"فارسی", u"1256"}, TableCase{0x0401, u"Arabic", u"العربية", u"1256"},
        TableCase{0x0406, u"Danish", u"dansk", u"1252"}, TableCase{0x0402, u"Bulgarian", u"български", u"1251"},
        TableCase{0x043F, u"Kazakh", u"қазақ тілі", u"1251"}, TableCase{0x0421, u"Indonesian", u"Indonesia", u"1252"},
        TableCase{0x041D, u"Swedish", u"svenska", u"1252"}, TableCase{0x041E, u"Thai", u"ไทย", u"874"},
        TableCase{0x0407, u"German", u"Deutsch", u"1252"}, TableCase{0x0411, u"Japanese", u"日本語", u"932"},
        TableCase{0x0419, u"Russian", u"русский", u"1251"}, TableCase{0x101A, u"Croatian", u"hrvatski", u"1250"}),
    [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST(IcuLocale, NamesTheLanguagesInTheUsersOwn) {
  {
    const UserLocale user("en_GB.UTF-8");
    EXPECT_EQ(IcuLocale().LanguageName(0x0416), u"Portuguese (Brazil)");
    EXPECT_EQ(IcuLocale().LanguageName(0x7C1A), u"Serbian");
  }
  const UserLocale user("es_ES.UTF-8");
  EXPECT_EQ(IcuLocale().LanguageName(0x0416), u"portugués (Brasil)");
}

TEST(IcuLocale, KnowsNothingOfAnIdThatNoLocaleHas) {
  const IcuLocale locale;
  EXPECT_FALSE(locale.IsValidLocale(0x03FF));
  EXPECT_EQ(locale.LanguageName(0x03FF), u"");
  EXPECT_EQ(locale.GetLocaleText(0x03FF, kAnsiCodePage), u"");
  EXPECT_EQ(locale.GetLocaleText(kUserLocale, 12345), u"");
}

TEST(IcuLocale, RecodesTheBytesOfOneCodePageAsTextOfAnother) {
  const IcuLocale locale;
  EXPECT_EQ(locale.Recode(u"Внимание", 1251, 1252), u"Âíèìàíèå");
  EXPECT_EQ(locale.Recode(u"Внимание", 1252, 1251), std::nullopt);
  EXPECT_EQ(locale.Recode(u"a", 7, 1252), std::nullopt);
  EXPECT_FALSE(locale.WindowCodePage().has_value());
}

TEST(UsersDates, AreLongInTheUsersLocale) {
  const std::pair<const char*, TextView> rows[] = {{"en_US.UTF-8", u"Saturday, November 21, 2026"},
                                                   {"en_GB.UTF-8", u"Saturday, 21 November 2026"},
                                                   {"de_DE.UTF-8", u"Samstag, 21. November 2026"},
                                                   {"es_ES.UTF-8", u"sábado, 21 de noviembre de 2026"}};
  for (const auto& [name, date] : rows) {
    const UserLocale user(name);
    EXPECT_EQ(IcuLocale().LongDate(2026, 11, 21), date) << name;
  }
}

TEST(UsersDates, HaveALocaleOfTheirOwn) {
  const UserLocale user("en_US.UTF-8");
  ::setenv("LC_TIME", "de_DE.UTF-8", 1);
  EXPECT_EQ(IcuLocale().LongDate(2024, 2, 29), u"Donnerstag, 29. Februar 2024");
}

TEST(UsersDates, OfFarYearsAreDays) {
  const UserLocale user("en_US.UTF-8");
  EXPECT_EQ(IcuLocale().LongDate(1, 1, 1).empty(), false);
  EXPECT_EQ(IcuLocale().LongDate(9999, 12, 31), u"Friday, December 31, 9999");
}

}  // namespace
}  // namespace cuewright

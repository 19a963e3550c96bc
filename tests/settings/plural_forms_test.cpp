#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/settings/language_rig.h"

namespace cuewright::testing {
namespace {

/// A text of a shipped language with a count in it.
std::string Counted(const std::string& language, Message message, TextView mark, long long count) {
  LanguageRig rig;
  rig.Block(language, [&] {
    std::ifstream file(std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/messages/" + language + ".txt");
    return std::string(std::istreambuf_iterator<char>(file), {});
  }());
  rig.StartIn(ToUpper(FromUtf8(language)));
  const std::string text = ToUtf8(rig.strings.Counted(message, mark, count));
  const std::size_t line = text.rfind('\n');
  return line == std::string::npos ? text : text.substr(line + 1);
}

struct PluralCase {
  std::string language;
  Message message;
  TextView mark;
  long long count;
  std::string end;
};

class PluralForms : public ::testing::TestWithParam<PluralCase> {};

TEST_P(PluralForms, AreThoseOfTheLanguage) {
  const PluralCase& row = GetParam();
  const std::string text = Counted(row.language, row.message, row.mark, row.count);
  EXPECT_TRUE(text.ends_with(row.end)) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Languages, PluralForms,
    ::testing::Values(PluralCase{"arabic", Message::UnsavedDocumentLeft, u"%3", 1, "وفيه ترجمة واحدة."},
                      PluralCase{"arabic", Message::UnsavedDocumentLeft, u"%3", 2, "وفيه ترجمتان."},
                      PluralCase{"arabic", Message::UnsavedDocumentLeft, u"%3", 3, "وفيه 3 ترجمات."},
                      PluralCase{"arabic", Message::UnsavedDocumentLeft, u"%3", 11, "وفيه 11 ترجمة."},
                      PluralCase{"arabic", Message::UnsavedDocumentLeft, u"%3", 100, "وفيه 100 ترجمة."},
                      PluralCase{"arabic", Message::CountedMinutes, u"%1", 3, "3 دقائق"},
                      PluralCase{"arabic", Message::CountedMinutes, u"%1", 11, "11 دقيقة"},
                      PluralCase{"romanian", Message::UnsavedDocumentLeft, u"%3", 1, "cu o subtitrare."},
                      PluralCase{"romanian", Message::UnsavedDocumentLeft, u"%3", 2, "cu 2 subtitrări."},
                      PluralCase{"romanian", Message::UnsavedDocumentLeft, u"%3", 20, "cu 20 de subtitrări."},
                      PluralCase{"romanian", Message::UnsavedDocumentLeft, u"%3", 101, "cu 101 subtitrări."},
                      PluralCase{"romanian", Message::CountedMinutes, u"%1", -20, "-20 de minute"},
                      PluralCase{"french", Message::UnsavedDocumentLeft, u"%3", 1, "avec 1 sous-titre."},
                      PluralCase{"german", Message::UnsavedDocumentLeft, u"%3", 1, "mit 1 Untertitel."},
                      PluralCase{"russian", Message::UnsavedDocumentLeft, u"%3", 5, "(субтитров: 5)."},
                      PluralCase{"japanese", Message::UnsavedDocumentLeft, u"%3", 5, "(字幕5件)。"}));

TEST(PluralText, OfATextWithoutAnyAreItsCountAlone) {
  LangStrings strings;
  strings.Set(Message::ReplaceExisting, u"%1 of %1");
  strings.Set(Message::CountedMinutes, u"{%1|one|a|other");
  strings.Set(Message::UnsavedDocumentLeft, u"{%1|few|some} and {%2|one|a|other|%2}");
  EXPECT_EQ(strings.Counted(Message::ReplaceExisting, u"%1", -7), u"-7 of -7");
  EXPECT_EQ(strings.Counted(Message::CountedMinutes, u"%1", 1), u"{1|one|a|other");
  EXPECT_EQ(strings.Counted(strings.Counted(Message::UnsavedDocumentLeft, u"%1", 5), u"%2", 1), u"some and a");
  strings.SetLanguageCode("no such language");
  EXPECT_EQ(strings.Counted(Message::UnsavedDocumentLeft, u"%2", 5), u"{%1|few|some} and 5");
}

}  // namespace
}  // namespace cuewright::testing

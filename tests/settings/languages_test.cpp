#include "settings/languages.h"

#include <gtest/gtest.h>

#include "tests/settings/language_rig.h"

namespace cuewright {
namespace {

using testing::BlockWithout;
using testing::LanguageRig;

TEST(LanguageTable, HoldsTheNumbersOfTheCatalogueAsDecimalText) {
  LanguageRig rig;
  rig.languages.BuildLanguageTable();
  const auto& table = rig.languages.LanguageTable();
  EXPECT_EQ(table[0].codePage, u"1252");
  EXPECT_EQ(table[0].localeId, u"2057");
  EXPECT_EQ(table[0].name, u"ENGLISH");
  EXPECT_EQ(table[1].localeId, u"11274");
  EXPECT_EQ(table[9].localeId, u"31770");
  EXPECT_EQ(table[20].codePage, u"874");
  EXPECT_EQ(table[24].name, u"CROATIAN");
}

TEST(LanguageTable, ShowsTheSystemsNameOfALanguageAndElseTheOwnInProperCase) {
  LanguageRig rig;
  rig.locale.names = {{2057, u"English (United Kingdom)"}, {0x0413, u""}};
  rig.languages.BuildLanguageTable();
  const auto& table = rig.languages.LanguageTable();
  EXPECT_EQ(table[0].displayName, u"English (United Kingdom)");
  EXPECT_EQ(table[2].displayName, u"Dutch");
  EXPECT_EQ(table[6].displayName, u"Portuguese_br");
  EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST(LanguageTable, TellsOnceThatTheSystemsNamesCouldNotBeHad) {
  LanguageRig rig;
  rig.locale.failure = RuntimeError{5, u"Invalid procedure call or argument"};
  rig.languages.BuildLanguageTable();
  ASSERT_EQ(rig.boxes.shown.size(), 1u);
  EXPECT_EQ(rig.boxes.shown[0].text, u"Error retrieving OS language names: 5 Invalid procedure call or argument");
  EXPECT_EQ(rig.boxes.shown[0].icon, BoxIcon::Warning);
  EXPECT_EQ(rig.languages.LanguageTable()[21].displayName, u"German");
}

TEST(FirstStart, InAGermanLocaleRunsInGerman) {
  LanguageRig rig;
  rig.FirstStart(u"German", u"1252");
  EXPECT_EQ(rig.options.language, u"GERMAN");
  EXPECT_EQ(rig.options.languageRow, 21);
  EXPECT_TRUE(rig.languages.FirstRun());
  rig.languages.EndFirstRun();
  EXPECT_FALSE(rig.languages.FirstRun());
}

TEST(FirstStart, InAChineseLocaleRunsInEnglish) {
  LanguageRig rig;
  rig.FirstStart(u"Chinese", u"936");
  EXPECT_EQ(rig.options.language, u"ENGLISH");
  EXPECT_EQ(rig.options.languageRow, 0);
  EXPECT_EQ(rig.strings[Message{0}], u"&File");
}

TEST(FirstStart, InAPortugueseLocaleIsNeverBrazilian) {
  LanguageRig rig;
  rig.FirstStart(u"Portuguese", u"1252");
  EXPECT_EQ(rig.options.language, u"PORTUGUESE");
  EXPECT_EQ(rig.options.languageRow, 7);
}

TEST(FirstStart, TakesTheFirstRowThatTheLocalesNameBeginsWith) {
  LanguageRig rig;
  rig.FirstStart(u"spanish of old", u"1252");
  EXPECT_EQ(rig.options.language, u"SPANISH");
}

TEST(FirstStart, WithoutALocaleRunsInEnglish) {
  LanguageRig rig;
  rig.FirstStart(u"", u"");
  EXPECT_EQ(rig.options.language, u"ENGLISH");
  EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST(FirstStart, TellsThatTheLocaleCouldNotBeAskedAndRunsInEnglish) {
  LanguageRig rig;
  rig.languages.BuildLanguageTable();
  rig.locale.failure = RuntimeError{57, u"Device I/O error"};
  rig.languages.LoadStored();
  ASSERT_EQ(rig.boxes.shown.size(), 1u);
  EXPECT_EQ(rig.boxes.shown[0].text, u"Error detecting OS language: 57 Device I/O error");
  EXPECT_EQ(rig.options.language, u"ENGLISH");
}

TEST(StoredLanguage, PortugueseIsRowSevenAndBrazilianRowSix) {
  LanguageRig portuguese;
  portuguese.StartIn(u"PORTUGUESE");
  EXPECT_EQ(portuguese.options.languageRow, 7);
  EXPECT_FALSE(portuguese.languages.FirstRun());
  LanguageRig brazilian;
  brazilian.StartIn(u"PORTUGUESE_BR");
  EXPECT_EQ(brazilian.options.languageRow, 6);
}

TEST(StoredLanguage, IsSoughtAsAPartOfTheNameWithItsCase) {
  LanguageRig part;
  part.StartIn(u"IAN");
  EXPECT_EQ(part.options.languageRow, 24);
  LanguageRig lower;
  lower.StartIn(u"german");
  EXPECT_EQ(lower.options.languageRow, 0);
}

TEST(LanguageStrings, ALanguageWithOneOrTwoMissingCountsAsComplete) {
  for (const auto& [missing, percent] : std::vector<std::pair<std::vector<int>, int>>{
           {{}, 100}, {{72}, 100}, {{72, 468}, 100}, {{1, 2, 3}, 99}, {{1, 2, 3, 4, 5, 6, 7}, 99}}) {
    LanguageRig rig;
    rig.Block("german", BlockWithout(missing));
    rig.StartIn(u"GERMAN");
    EXPECT_EQ(rig.languages.LoadLanguageStrings(false), percent) << missing.size();
  }
}

TEST(LanguageStrings, NothingOfALanguageIsLessThanNothing) {
  LanguageRig rig;
  rig.StartIn(u"GERMAN");
  EXPECT_EQ(rig.languages.LoadLanguageStrings(false), 0);
  EXPECT_EQ(rig.strings[Message{39}], u"Apply");
}

TEST(LanguageStrings, EnglishStandsInWhereATextIsMissing) {
  LanguageRig rig;
  rig.Block("german", BlockWithout({39}));
  rig.StartIn(u"GERMAN");
  EXPECT_EQ(rig.strings[Message{38}], u"text 38");
  EXPECT_EQ(rig.strings[Message{39}], u"Apply");
  EXPECT_EQ(rig.strings[Message{468}], u"text 468");
}

TEST(LanguageStrings, EachLoadOverwritesAll) {
  LanguageRig rig;
  rig.Block("german", BlockWithout({}));
  rig.StartIn(u"GERMAN");
  rig.languages.Select(0);
  rig.languages.LoadLanguageStrings(false);
  for (std::size_t id = 0; id < kMessageCount; ++id) {
    EXPECT_EQ(rig.strings[NumberedMessage(id)], *rig.catalogue.Find(static_cast<int>(id))) << id;
  }
}

TEST(LanguageStrings, FurtherTextsFallBackToEnglishAndDontCount) {
  LanguageRig rig;
  rig.Block("german", BlockWithout({}) + "900\tZuletzt\n899\tbefore\n1000\tKlassisch\n3000\tbehind\n");
  rig.StartIn(u"GERMAN");
  EXPECT_EQ(rig.languages.LoadLanguageStrings(true), 100);
  EXPECT_EQ(rig.strings[Message{900}], u"Zuletzt");
  EXPECT_EQ(rig.strings[Message{901}], *rig.catalogue.Find(901));
  EXPECT_EQ(rig.strings[Message{1000}], u"Klassisch");
  EXPECT_EQ(rig.strings[Message{1001}], *rig.catalogue.Find(CatalogueNumber(0, 1001)));
  const int german = rig.options.languageRow;
  EXPECT_EQ(rig.catalogue.Find(CatalogueNumber(german, 899)), nullptr);
  EXPECT_EQ(rig.catalogue.Find(CatalogueNumber(german, 3000)), nullptr);
  EXPECT_EQ(rig.files.Read(rig.languages.TranslationFilePath(), 1 << 20).find("21901"), std::string::npos);
}

TEST(LanguageStrings, ADamagedFileNeverTouchesAnotherLanguage) {
  LanguageRig rig;
  rig.Block("spanish",
            "\xEF\xBB\xBF// a comment\n39\tAplicar\n469\tbeyond\n-1\tbefore\n40x\tno number\n41\t\xFF\xFE\n"
            "42\tFi\x01n\n65\n3000\tfar\n99999999999999999999\tmuch\n");
  rig.StartIn(u"SPANISH");
  EXPECT_EQ(rig.strings[Message{39}], u"Aplicar");
  for (const std::size_t id : {40u, 41u, 42u, 65u})
    EXPECT_EQ(rig.strings[NumberedMessage(id)], *rig.catalogue.Find(static_cast<int>(id)));
  EXPECT_EQ(rig.catalogue.Find(2000), nullptr);
  EXPECT_EQ(rig.catalogue.Find(1469), nullptr);
  EXPECT_EQ(rig.catalogue.Find(999), nullptr);
}

TEST(LanguageStrings, AFolderInPlaceOfTheFileLeavesEnglish) {
  LanguageRig rig;
  std::filesystem::create_directory(rig.folder.Path() / "languages" / "spanish.txt");
  rig.StartIn(u"SPANISH");
  EXPECT_EQ(rig.strings[Message{0}], u"&File");
  EXPECT_EQ(rig.options.language, u"SPANISH");
  EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST(LanguageStrings, ArabicReadsFromTheRightAndGreekDoesNot) {
  for (const auto& [name, expected] : std::vector<std::pair<Text, bool>>{
           {u"ARABIC", true}, {u"PERSIAN", true}, {u"HEBREW", true}, {u"GREEK", false}, {u"ENGLISH", false}}) {
    LanguageRig rig;
    rig.StartIn(name);
    EXPECT_EQ(rig.languages.IsRightToLeft(), expected) << ToUtf8(name);
  }
}

TEST(TranslationFile, OfEnglishIsTheHeaderAlone) {
  LanguageRig rig;
  rig.StartIn(u"ENGLISH");
  EXPECT_EQ(rig.languages.LoadLanguageStrings(true), 100);
  const std::string content = rig.temp.Read("qxm_100_english.txt");
  EXPECT_TRUE(content.starts_with("Tessaly Cuewright 1.0.0 translation file\r\n-----")) << content;
  EXPECT_EQ(content.find("has the required lines"), std::string::npos);
  EXPECT_TRUE(content.ends_with("\r\nYour name: \r\n\r\n// ENGLISH\r\n\r\n")) << content;
}

TEST(TranslationFile, OfArabicListsEachMissingTextInAscendingOrder) {
  LanguageRig rig;
  rig.Block("arabic", BlockWithout({39, 72, 414}));
  rig.StartIn(u"ARABIC");
  EXPECT_EQ(rig.languages.TranslationFilePath(), rig.folders.TempFolder + u"qxm_100_arabic.txt");
  EXPECT_EQ(rig.languages.LoadLanguageStrings(true), 99);
  const std::string content = rig.temp.Read("qxm_100_arabic.txt");
  EXPECT_NE(content.find("\r\nThis file has the required lines to complete the ARABIC translation.\r\n"),
            std::string::npos);
  EXPECT_TRUE(
      content.ends_with("Your name: \r\n\r\n// ARABIC\r\n\r\n"
                        "14039, \"Apply\"\r\n"
                        "14072, \"Append subtitle...\"\r\n"
                        "14414, \"%1 already exists.\nDo you want to replace it?\"\r\n"))
      << content;
}

TEST(TranslationFile, LetsEventsGoOnForHalfASecond) {
  LanguageRig rig;
  rig.StartIn(u"DUTCH");
  EXPECT_EQ(rig.events.now, 0);
  rig.languages.LoadLanguageStrings(true);
  EXPECT_EQ(rig.events.now, 500);
}

TEST(TranslationFile, ThatCannotBeWrittenFailsNothing) {
  LanguageRig rig;
  rig.StartIn(u"DUTCH");
  rig.folders.TempFolder = rig.folder / "no such folder/";
  EXPECT_EQ(rig.languages.LoadLanguageStrings(true), 0);
  EXPECT_EQ(rig.strings[Message{0}], u"&File");
  EXPECT_TRUE(rig.boxes.shown.empty());
}

TEST(TranslationFile, IsAnnouncedByTheCatalogue) {
  LanguageRig rig;
  EXPECT_EQ(rig.languages.TranslationFileMessage(),
            u"The language file has been created, and will be opened now. Please follow the instructions inside it to "
            u"complete the translation.");
}

struct CharsetCase {
  int codePage;
  std::int16_t number;
  TextView name;
};

class CodePages : public ::testing::TestWithParam<CharsetCase> {};

TEST_P(CodePages, HaveTheirCharset) {
  EXPECT_EQ(CharsetOfCodePage(GetParam().codePage), (Charset{GetParam().number, Text(GetParam().name)}));
}

INSTANTIATE_TEST_SUITE_P(
    Windows, CodePages,
    ::testing::Values(CharsetCase{874, 222, u"THAI_CHARSET"}, CharsetCase{932, 128, u"JAPANESE_SHIFTJIS"},
                      CharsetCase{936, 134, u"SIMPLIFIED_CHINESE_GB2312"}, CharsetCase{949, 129, u"KOREAN_HANGUL"},
                      CharsetCase{950, 136, u"TRADITIONAL_CHINESE_BIG5"}, CharsetCase{1250, 238, u"EASTERN_EUROPEAN"},
                      CharsetCase{1251, 204, u"CYRILLIC_CHARSET"}, CharsetCase{1252, 0, u"WESTERN_EUROPEAN_LATIN"},
                      CharsetCase{1253, 161, u"GREEK_CHARSET"}, CharsetCase{1254, 162, u"TURKISH_CHARSET"},
                      CharsetCase{1255, 177, u"HEBREW_CHARSET"}, CharsetCase{1256, 178, u"ARABIC_CHARSET"},
                      CharsetCase{1257, 186, u"BALTIC_CHARSET"}, CharsetCase{1258, 163, u"VIETNAMESE_CHARSET"},
                      CharsetCase{1361, 130, u"KOREAN_JOHAB"}),
    [](const auto& row) { return "Page" + std::to_string(row.param.codePage); });

TEST(CodePage, ThatIsUnknownYieldsWesternEuropean) {
  EXPECT_EQ(CharsetOfCodePage(65001), (Charset{0, u"WESTERN_EUROPEAN_LATIN"}));
  LanguageRig rig;
  rig.FirstStart(u"English", u"no number");
  EXPECT_EQ(rig.languages.ListCharset(), 0);
  EXPECT_EQ(rig.languages.ListCharsetName(), u"WESTERN_EUROPEAN_LATIN");
}

TEST(CodePage, OfTheUsersLocaleGivesTheListsCharsetWhateverTheLanguage) {
  LanguageRig rig;
  rig.FirstStart(u"Russian", u"1251");
  rig.languages.Select(14);
  rig.languages.LoadLanguageStrings(false);
  EXPECT_EQ(rig.languages.ListCharset(), 204);
  EXPECT_EQ(rig.languages.CharsetText(), u"204 - CYRILLIC_CHARSET");
}

TEST(Notice, ShowsForRussianInAWesternLocaleAndNotForSpanish) {
  LanguageRig rig;
  rig.FirstStart(u"English", u"1252");
  rig.languages.Select(23);
  EXPECT_TRUE(rig.languages.NeedsNotice());
  rig.languages.Select(1);
  EXPECT_FALSE(rig.languages.NeedsNotice());
}

TEST(Notice, NamesTheLanguageOfTheUserAndTheOneRequired) {
  LanguageRig rig;
  rig.FirstStart(u"English", u"1252");
  rig.locale.texts[{0x0419, kEnglishLanguageName}] = u"Russian";
  rig.locale.texts[{0x0419, kNativeLanguageName}] = u"русский";
  rig.locale.texts[{0x0419, kAnsiCodePage}] = u"1251";
  rig.languages.Select(23);
  const Languages::NoticeTexts notice = rig.languages.Notice();
  EXPECT_EQ(notice.lblWarning, u"Warning");
  EXPECT_EQ(notice.lblCurrLang, u"Current language for non-Unicode programs: English");
  EXPECT_EQ(notice.lblReqLang, u"Required language: Russian (русский)");
  EXPECT_EQ(notice.charset, (Charset{204, u"CYRILLIC_CHARSET"}));
}

TEST(LanguageCodePage, RecodesForWindowsThatAreNotUnicodeAndElseLeavesTheText) {
  LanguageRig rig;
  rig.FirstStart(u"English", u"1252");
  rig.locale.texts[{0x0419, kAnsiCodePage}] = u"1251";
  rig.languages.Select(23);
  EXPECT_EQ(rig.languages.ToLanguageCodePage(u"a"), u"a");
  rig.locale.windowCodePage = 1252;
  EXPECT_EQ(rig.languages.ToLanguageCodePage(u"a"), u"a|1251>1252");
  rig.locale.texts[{0x0419, kAnsiCodePage}] = u"0";
  EXPECT_EQ(rig.languages.ToLanguageCodePage(u"a"), u"a");
  rig.locale.failure = RuntimeError{5, u"failed"};
  EXPECT_EQ(rig.languages.ToLanguageCodePage(u"a"), u"a");
}

TEST(LanguageList, FindsTheRowThatShowsALanguage) {
  LanguageRig rig;
  rig.languages.BuildLanguageTable();
  const std::vector<Text> items = {u"Arabic", u"English", u"German"};
  EXPECT_EQ(rig.languages.FindLanguageInList(21, items), 2);
  EXPECT_EQ(rig.languages.FindLanguageInList(14, items), 0);
  EXPECT_EQ(rig.languages.FindLanguageInList(22, items), 0);
  EXPECT_EQ(rig.languages.RowOfDisplayName(u"German"), 21u);
  EXPECT_EQ(rig.languages.RowOfDisplayName(u"Klingon"), 0u);
}

TEST(CompletionHint, IsInEnglishInEveryLanguage) {
  LanguageRig rig;
  rig.StartIn(u"ARABIC");
  EXPECT_EQ(rig.languages.CompletionHint(97),
            u"This translation is 97% complete.\r\n\r\nTo complete the ARABIC translation, click the Complete this "
            u"translation link and follow the instructions. Thank you!");
}

}  // namespace
}  // namespace cuewright

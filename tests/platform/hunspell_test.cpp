#include "platform/hunspell_dictionaries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/runtime_error.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

struct Hunspell : ::testing::Test {
  /// A dictionary in a code page, of words in its bytes.
  void Write(const std::string& name, const std::string& codePage, const std::vector<std::string>& words) {
    folder.Write(name + ".aff", codePage.empty() ? "" : "SET " + codePage + "\nTRY abcdefghijklmnopqrstuvwxyz\n");
    std::string list = std::to_string(words.size()) + "\n";
    for (const std::string& word : words) list += word + "\n";
    folder.Write(name + ".dic", list);
  }
  HunspellDictionaries Dictionaries() { return HunspellDictionaries({folder.Bytes("")}); }

  testing::TempFolder folder;
};

TEST_F(Hunspell, DictionariesAreFoundByTheirTwoFiles) {
  Write("en_XX", "UTF-8", {"one"});
  Write("aa", "UTF-8", {"one"});
  folder.Write("half.dic", "1\none\n");
  folder.Write("other.aff", "");
  std::filesystem::create_directory(folder.Path() / "dir.dic");
  EXPECT_EQ(Dictionaries().Installed(), (std::vector<Text>{u"aa", u"en_XX"}));
}

TEST_F(Hunspell, WordsAreKnownAndSuggested) {
  Write("en", "UTF-8", {"hello", "help", "don't", "Paris"});
  const auto dictionary = Dictionaries().Open(u"en");
  for (const TextView word : {u"hello", u"Hello", u"HELLO", u"don't", u"Paris"}) {
    EXPECT_TRUE(dictionary->Knows(word)) << ToUtf8(word);
  }
  for (const TextView word : {u"helo", u"paris", u"привет", u"dont"}) {
    EXPECT_FALSE(dictionary->Knows(word)) << ToUtf8(word);
  }
  const auto suggestions = dictionary->Suggest(u"helo");
  EXPECT_NE(std::find(suggestions.begin(), suggestions.end(), u"hello"), suggestions.end());
}

TEST_F(Hunspell, EveryCodePageOfADictionaryIsRead) {
  struct Row {
    const char* codePage;
    const char* bytes;
    const char16_t* word;
    const char16_t* misspelt;
  };
  const Row rows[] = {{"UTF-8", "\xD0\xBC\xD0\xB8\xD1\x80", u"мир", u"мр"},
                      {"KOI8-R", "\xCD\xC9\xD2", u"мир", u"мр"},
                      {"microsoft-cp1251", "\xEC\xE8\xF0", u"мир", u"мр"},
                      {"ISO8859-5", "\xDC\xD8\xE0", u"мир", u"мр"},
                      {"ISO8859-1", "gr\xFC\xDF", u"grüß", u"gräß"},
                      {"ISO8859-2", "\xBE\xBB\xE1r", u"žťár", u"žťr"},
                      {"ISO8859-7", "\xEA\xFC\xF3\xEC\xEF\xF2", u"κόσμος", u"κόσμς"},
                      {"ISO8859-15", "c\xBDur", u"cœur", u"cœr"},
                      {"TIS620-2533", "\xA1\xD2", u"กา", u"กก"},
                      {"", "caf\xE9", u"café", u"cafè"}};
  for (const Row& row : rows) {
    Write("xx", row.codePage, {row.bytes});
    const auto dictionary = Dictionaries().Open(u"xx");
    EXPECT_TRUE(dictionary->Knows(row.word)) << row.codePage;
    EXPECT_FALSE(dictionary->Knows(row.misspelt)) << row.codePage;
    for (const Text& suggestion : dictionary->Suggest(row.misspelt)) {
      EXPECT_EQ(suggestion.find(u'\uFFFD'), Text::npos) << row.codePage;
    }
  }
}

TEST_F(Hunspell, ACharacterThatTheCodePageLacksMakesAWordUnknown) {
  Write("xx", "ISO8859-1", {"one"});
  const auto dictionary = Dictionaries().Open(u"xx");
  EXPECT_FALSE(dictionary->Knows(u"мир"));
  EXPECT_TRUE(dictionary->Suggest(u"мир").empty());
}

TEST_F(Hunspell, AnUnknownCodePageIsAReasonNotToOpen) {
  Write("xx", "KLINGON-8", {"one"});
  EXPECT_THROW(Dictionaries().Open(u"xx"), RuntimeError);
}

TEST_F(Hunspell, WhatIsNoDictionaryIsNotOpened) {
  Write("xx", "UTF-8", {});
  folder.Write("xx.dic", "<html>");
  EXPECT_THROW(Dictionaries().Open(u"xx"), RuntimeError);
  folder.Write("xx.dic", "");
  EXPECT_THROW(Dictionaries().Open(u"xx"), RuntimeError);
  EXPECT_THROW(Dictionaries().Open(u"none"), RuntimeError);
}

TEST_F(Hunspell, AWordThatIsTooLongIsNotHeldAgainstTheUser) {
  Write("xx", "UTF-8", {"one"});
  const auto dictionary = Dictionaries().Open(u"xx");
  EXPECT_FALSE(dictionary->Knows(Text(99, u'x')));
  EXPECT_TRUE(dictionary->Knows(Text(5000, u'x')));
  EXPECT_TRUE(dictionary->Suggest(Text(5000, u'x')).empty());
}

TEST_F(Hunspell, WithoutItsLibraryThereAreNoDictionaries) {
  Write("xx", "UTF-8", {"one"});
  const HunspellDictionaries dictionaries({folder.Bytes("")}, {"libnotthere.so.1"});
  EXPECT_TRUE(dictionaries.Installed().empty());
  EXPECT_EQ(dictionaries.Missing(), u"Hunspell is not installed: libnotthere.so.1");
  EXPECT_THROW(dictionaries.Open(u"xx"), RuntimeError);
}

TEST_F(Hunspell, WithoutADictionaryItSaysWhereTheyBelong) {
  EXPECT_EQ(Dictionaries().Missing(), u"No spelling dictionary is installed in " + folder / "" +
                                          u"; Debian has them in packages such as hunspell-en-us");
}

TEST_F(Hunspell, AFolderThatComesFirstCounts) {
  testing::TempFolder second;
  Write("xx", "UTF-8", {"first"});
  second.Write("xx.aff", "SET UTF-8\n");
  second.Write("xx.dic", "1\nsecond\n");
  const HunspellDictionaries dictionaries({folder.Bytes(""), second.Bytes("")});
  EXPECT_EQ(dictionaries.Installed(), std::vector<Text>{u"xx"});
  EXPECT_TRUE(dictionaries.Open(u"xx")->Knows(u"first"));
}

TEST(HunspellHere, TheInstalledEnglishDictionaryWorks) {
  const HunspellDictionaries dictionaries;
  const auto names = dictionaries.Installed();
  ASSERT_NE(std::find(names.begin(), names.end(), u"en_US"), names.end());
  const auto dictionary = dictionaries.Open(u"en_US");
  EXPECT_TRUE(dictionary->Knows(u"subtitle"));
  EXPECT_FALSE(dictionary->Knows(u"subtittle"));
  const auto suggestions = dictionary->Suggest(u"subtittle");
  EXPECT_NE(std::find(suggestions.begin(), suggestions.end(), u"subtitle"), suggestions.end());
  EXPECT_NE(dictionaries.DisplayName(u"en_US"), u"");
}

}  // namespace
}  // namespace cuewright

#include "external/spell_text.h"

#include <gtest/gtest.h>

#include "external/spell_words.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using Cut = std::vector<std::optional<Text>>;

/// As a word processor gives a text back: its lines end at CR.
Text Returned(const std::vector<Text>& captions) { return ReplaceAll(SpellingText(captions), u"\r\n", u"\r"); }

TEST(SpellingText, EveryMarkStandsOnALineOfItsOwn) {
  EXPECT_EQ(SpellingText({u"one\r\ntwo", u"", u"<i>three"}),
            u"one\r\n%#%\r\ntwo\r\n%%%\r\n\r\n%%%\r\n\r\n#%#\r\nthree\r\n%%%\r\n");
}

TEST(SpellingText, WhatComesBackUnchangedStaysAsItIs) {
  const std::vector<Text> captions = {u"one\r\ntwo",       u"",           u"<i>three <i>four",
                                      u"<i>\r\n<i>",       u"50%",        u"%\r\n%",
                                      u"<b>bold</b> <u>u", u"a\r\n\r\nb", u"%#"};
  for (const Text& text : {SpellingText(captions), Returned(captions)}) {
    EXPECT_EQ(CutSpellingText(text, captions, u"|"), Cut(captions.size()));
  }
}

TEST(SpellingText, ACaptionOfTwoLinesComesBackWithTheSeparatorWhateverWasDoneAroundTheMark) {
  const std::vector<Text> captions = {u"teh one\r\nand two"};
  for (const Text& text :
       {Text(u"the one\r%#%\rand two\r%%%\r"), Text(u"the one\r\n%#%\r\nand two\r\n%%%\r\n"),
        Text(u"the one%#%\rand two\r%%%\r"), Text(u"the one\r%#%and two\r%%%"), Text(u"the one%#%and two%%%")}) {
    EXPECT_EQ(CutSpellingText(text, captions, u"|"), Cut{u"the one|and two"}) << ToUtf8(text);
    EXPECT_EQ(CutSpellingText(text, captions, u"[br]"), Cut{u"the one[br]and two"}) << ToUtf8(text);
  }
}

TEST(SpellingText, ItalicComesBackAsItsTag) {
  EXPECT_EQ(CutSpellingText(u"a \r#%#\rb\r%%%\r", {u"x <i>b"}, u"|"), Cut{u"a <i>b"});
}

TEST(SpellingText, OnlyTheCaptionsThatChangedAreTold) {
  EXPECT_EQ(CutSpellingText(u"one\r%%%\r2\r%%%\rthree\r%%%\r", {u"one", u"two", u"three"}, u"|"),
            (Cut{std::nullopt, u"2", std::nullopt}));
}

TEST(SpellingText, WithAMarkDeletedTheCaptionsBehindItGetTheTextOfOthers) {
  EXPECT_EQ(CutSpellingText(u"one\r%%%\rtwo\rthree\r%%%\rfour\r%%%\r", {u"one", u"two", u"three", u"four"}, u"|"),
            (Cut{std::nullopt, u"twothree", u"four", std::nullopt}));
}

TEST(SpellingText, MarksThatTheUserWroteAreHisOwn) {
  const std::vector<Text> captions = {u"a%%%b", u"teh %#% #%#", u"100%", u"%%% %%%"};
  EXPECT_EQ(CutSpellingText(Returned(captions), captions, u"|"), Cut(4));
  const Text changed = ReplaceFirst(ReplaceFirst(Returned(captions), u"teh", u"the"), u"b\r", u"c\r");
  EXPECT_EQ(CutSpellingText(changed, captions, u"|"), (Cut{u"a%%%c", u"the %#% #%#", std::nullopt, std::nullopt}));
}

TEST(SpellingText, APercentSignBesideAMarkStays) {
  const std::vector<Text> captions = {u"teh 50%\r\n%#", u"%off"};
  const Text changed = ReplaceFirst(Returned(captions), u"teh", u"the");
  EXPECT_EQ(CutSpellingText(changed, captions, u"|"), (Cut{u"the 50%|%#", std::nullopt}));
}

TEST(SpellingText, WithNothingBackNothingChanges) {
  EXPECT_EQ(CutSpellingText(u"", {u"a", u"b"}, u"|"), Cut(2));
  EXPECT_EQ(CutSpellingText(u"lost", {u"a", u"b"}, u"|"), Cut(2));
}

std::vector<Text> Words(TextView line) {
  std::vector<Text> words;
  for (const WordPlace& place : WordsOf(line)) words.emplace_back(line.substr(place.start, place.length));
  return words;
}

TEST(Words, EndAtWhatIsNoLetter) {
  const std::pair<TextView, std::vector<Text>> rows[] = {{u"Hello, world!", {u"Hello", u"world"}},
                                                         {u"well-known/other", {u"well", u"known", u"other"}},
                                                         {u"don't I'm rock'n'roll", {u"don't", u"I'm", u"rock'n'roll"}},
                                                         {u"l\u2019homme d\u2019or", {u"l\u2019homme", u"d\u2019or"}},
                                                         {u"'quoted' dogs' 'em", {u"quoted", u"dogs", u"em"}},
                                                         {u"«Où?» ¿Qué? „Straße“", {u"Où", u"Qué", u"Straße"}},
                                                         {u"cafe\u0301 na\u00EFve", {u"cafe\u0301", u"na\u00EFve"}},
                                                         {u"Привет, мир", {u"Привет", u"мир"}},
                                                         {u"مرحبا بالعالم", {u"مرحبا", u"بالعالم"}},
                                                         {u"می\u200Cخواهم", {u"می\u200Cخواهم"}},
                                                         {u"...", {}},
                                                         {u"", {}}};
  for (const auto& [line, words] : rows) EXPECT_EQ(Words(line), words) << ToUtf8(line);
}

TEST(Words, WithDigitsOrOfOneLetterAreNotLookedUp) {
  EXPECT_EQ(Words(u"a 3rd R2D2 10am 5 x covid19 I ok"), (std::vector<Text>{u"ok"}));
  EXPECT_EQ(Words(u"snake_case name"), (std::vector<Text>{u"name"}));
}

TEST(Words, TagsAreNotLookedUp) {
  EXPECT_EQ(Words(u"<b>Bold</b> <i>it<u>under <font color=\"red\">font</font>"),
            (std::vector<Text>{u"Bold", u"it", u"under", u"font"}));
  EXPECT_EQ(Words(u"{\\an8\\fnArial}top {note}"), (std::vector<Text>{u"top", u"note"}));
  EXPECT_EQ(Words(u"less <than and < more <open"), (std::vector<Text>{u"less", u"than", u"and", u"more", u"open"}));
}

TEST(Words, AddressesAreNotLookedUp) {
  EXPECT_EQ(Words(u"see https://exampel.com/pagge or www.Somthing.org now"),
            (std::vector<Text>{u"see", u"or", u"now"}));
  EXPECT_EQ(Words(u"mail jon@exampel.com, please"), (std::vector<Text>{u"mail", u"please"}));
  EXPECT_EQ(Words(u"end.Next <i>http://x.yz</i> done"), (std::vector<Text>{u"end", u"Next", u"done"}));
}

TEST(Words, OfScriptsWithoutBlanksAreNotLookedUp) {
  EXPECT_EQ(Words(u"字幕を確認 ok สวัสดี"), (std::vector<Text>{u"ok"}));
}

TEST(Words, StandWhereTheyAreSaidToStand) {
  EXPECT_EQ(WordsOf(u"a 𝄞 two"), (std::vector<WordPlace>{{5, 3}}));
  EXPECT_EQ(PlainApostrophes(u"l\u2019or"), u"l'or");
}

}  // namespace
}  // namespace cuewright

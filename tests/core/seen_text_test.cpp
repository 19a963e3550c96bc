#include "core/seen_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

#include "core/style_markers.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

/// The stored text after the text that is seen became another.
Text After(TextView stored, TextView wanted) {
  SeenText text;
  text.Take(stored, u"|");
  text.ChangeTo(wanted);
  EXPECT_EQ(text.View(), wanted);
  return text.Stored();
}

TEST(SeenText, AnEditBesideAMarkLeavesItAtItsPlace) {
  EXPECT_EQ(After(u"a <i>b</i> c", u"a b cd"), u"a <i>b</i> cd");
  EXPECT_EQ(After(u"a <i>b</i> c", u"xa b c"), u"xa <i>b</i> c");
  EXPECT_EQ(After(u"a <i>b</i> c", u"a bx c"), u"a <i>bx</i> c");
  EXPECT_EQ(After(u"a <i>b</i> c", u"ax b c"), u"ax <i>b</i> c");
  EXPECT_EQ(After(u"<i>b</i> c", u"xb c"), u"<i>xb</i> c");
  EXPECT_EQ(After(u"a <i>b</i> c", u"a x c"), u"a <i>x</i> c");
  EXPECT_EQ(After(u"{\\an8}One", u"One two"), u"{\\an8}One two");
  EXPECT_EQ(After(u"{\\an8}One", u""), u"{\\an8}");
  EXPECT_EQ(After(u"a|<i>b</i>", u"a\nb\nc"), u"a|<i>b|c</i>");
  EXPECT_EQ(After(u"same <b>x</b>", u"same x"), u"same <b>x</b>");
}

TEST(SeenText, MarksStayAtTheirWordsWhenBlanksAndLinesChange) {
  EXPECT_EQ(After(u"aa  bb|cc <i>dd</i>|ee", u"aa bb\ncc dd ee"), u"aa bb|cc <i>dd</i> ee");
  EXPECT_EQ(After(u"-a|b   <i>c</i> d", u"- a b c\nd"), u"- a b <i>c</i>|d");
  EXPECT_EQ(After(u"one <i>two</i> three <b>four</b>", u"one three four"), u"one three <b>four</b>");
  EXPECT_EQ(After(u"one <i>two</i>|three", u"zero one two\nand three"), u"zero one <i>two</i>|and three");
}

TEST(SeenText, CaseChangesNoPlace) {
  EXPECT_EQ(After(u"one <i>two</i> THREE", u"ONE TWO THREE"), u"ONE <i>TWO</i> THREE");
  EXPECT_EQ(After(u"one <i>tw</i>o|TWO", u"ONE TWO\nTWO"), u"ONE <i>TW</i>O|TWO");
}

/// The letters of a stored text, capital where they stand in italics.
std::string LettersOf(TextView stored) {
  std::string letters;
  bool italic = false;
  for (std::size_t at = 0; at < stored.size(); ++at) {
    const TextView rest = stored.substr(at);
    if (rest.starts_with(u"<i>") || rest.starts_with(u"</i>")) {
      italic = rest[1] != u'/';
      at += italic ? 2 : 3;
    } else if (rest[0] >= u'a' && rest[0] <= u'z') {
      letters += static_cast<char>(italic ? rest[0] - u'a' + u'A' : rest[0]);
    }
  }
  return letters;
}

TEST(SeenText, NoLetterChangesItsStyleWhenABrokenTextIsBrokenAnew) {
  std::mt19937 random(7);
  const auto one = [&](int of) { return static_cast<int>(random() % static_cast<unsigned>(of)); };
  const auto gap = [&] {
    return std::vector<Text>{u" ", u"  ", u"|", u" |", u"| ", u" - "}[static_cast<std::size_t>(one(6))];
  };
  for (int turn = 0; turn < 2000; ++turn) {
    Text stored;
    Text wanted;
    bool italic = false;
    for (int word = 0, words = 2 + one(9); word < words; ++word) {
      if (word > 0) stored += gap();
      if (word > 0) wanted += ReplaceAll(gap(), u"|", u"\n");
      for (int letter = 0, letters = 1 + one(5); letter < letters; ++letter) {
        if (one(6) == 0) stored += std::exchange(italic, !italic) ? u"</i>" : u"<i>";
        stored += static_cast<char16_t>(u'a' + one(4));
        wanted += stored.back();
      }
    }
    if (italic) stored += u"</i>";
    EXPECT_EQ(LettersOf(After(stored, wanted)), LettersOf(stored)) << ToUtf8(stored) << " -> " << ToUtf8(wanted);
  }
}

TEST(SeenText, APairOfTagsGoesWithAllThatItStyled) {
  EXPECT_EQ(After(u"a <i>b</i> c", u"a  c"), u"a  c");
  EXPECT_EQ(After(u"a <font color=\"red\"><i>b</i></font> c", u"a c"), u"a c");
  EXPECT_EQ(After(u"<i>b</i>", u""), u"");
  EXPECT_EQ(After(u"a<i>b</i><u>c</u>d", u"acd"), u"a<u>c</u>d");
  EXPECT_EQ(After(u"a<c.loud>b</c>{\\an8}d", u"ad"), u"a{\\an8}d");
  EXPECT_EQ(After(u"a<i>b<u>c</i>d", u"ad"), u"a<i><u></i>d");
}

TEST(SeenText, AStretchIsKeptWithTheMarksThatReachIt) {
  const auto kept = [](TextView stored, std::size_t from, std::size_t to) {
    SeenText text;
    text.Take(stored, u"|");
    text.Keep(from, to);
    return text.Stored();
  };
  EXPECT_EQ(kept(u"one two", 0, 3), u"one");
  EXPECT_EQ(kept(u"one two", 4, 7), u"two");
  EXPECT_EQ(kept(u"one two", 0, 7), u"one two");
  EXPECT_EQ(kept(u"<i>one two</i>", 0, 3), u"<i>one</i>");
  EXPECT_EQ(kept(u"<i>one two</i>", 4, 7), u"<i>two</i>");
  EXPECT_EQ(kept(u"<i>one</i> two", 4, 7), u"two");
  EXPECT_EQ(kept(u"one <i>two</i>", 0, 3), u"one");
  EXPECT_EQ(kept(u"{\\an8}one|two", 4, 7), u"{\\an8}two");
  EXPECT_EQ(kept(u"<i>a</i>ab a", 4, 5), u"a") << "which of equal letters stay isn't guessed";
  EXPECT_EQ(kept(u"<i>one</i>", 0, 0), u"");
}

TEST(SeenText, WhatIsTypedIsSeenAsItStandsUntilItIsTakenAnew) {
  SeenText text;
  text.Take(u"a <b>b</b>", u"|");
  for (const TextView wanted : {u"<a b", u"<ia b", u"<i>a b", u"<i>a b<", u"<i>a b</", u"<i>a b</i", u"<i>a b</i>"}) {
    text.ChangeTo(wanted);
    EXPECT_EQ(text.View(), wanted);
  }
  EXPECT_EQ(text.Stored(), u"<i>a <b>b</i></b>");
  text.Take(text.Stored(), u"|");
  EXPECT_EQ(text.View(), u"a b");
}

TEST(SeenText, ALineBreakIsStoredAsTheSeparatorOfAnyLength) {
  SeenText text;
  text.Take(u"a[br]<i>b</i>", u"[br]", ListMarks());
  EXPECT_EQ(text.View(), u"a\n<i>b</i>");
  text.ChangeTo(u"a\nc\n<i>b</i>");
  EXPECT_EQ(text.Stored(), u"a[br]c[br]<i>b</i>");
  text.ChangeTo(u"a<i>b</i>");
  EXPECT_EQ(text.Stored(), u"a<i>b</i>");
}

TEST(SeenText, TheListsMarkersAreNoTextAndStay) {
  SeenText text;
  text.Take(u"<b><i>one|two", u"|", ListMarks());
  EXPECT_EQ(text.View(), u"one\ntwo");
  text.ChangeTo(u"one");
  EXPECT_EQ(text.Stored(), u"<b><i>one");
}

TEST(WholeMarkers, StandInFrontOfTheTextOrBehindIt) {
  struct Row {
    TextView text;
    bool bold;
    bool italic;
    TextView inner;
  };
  const Row rows[] = {{u"<i>a", false, true, u"a"},
                      {u"<b><i>a", true, true, u"a"},
                      {u"a<i>", false, true, u"a"},
                      {u"a <i>b", false, false, u"a <i>b"},
                      {u"<i>a</i> b", false, false, u"<i>a</i> b"},
                      {u"<b><i>a</i> b", true, false, u"<i>a</i> b"},
                      {u"<I>a", false, false, u"<I>a"},
                      {u"<i>a</I>", false, false, u"<i>a</I>"},
                      {u"<i>", false, true, u""},
                      {u"", false, false, u""}};
  for (const Row& row : rows) {
    const WholeMarkers found = FindWholeMarkers(row.text);
    EXPECT_EQ(found.bold, row.bold) << ToUtf8(row.text);
    EXPECT_EQ(found.italic, row.italic) << ToUtf8(row.text);
    EXPECT_EQ(found.Inner(row.text), row.inner) << ToUtf8(row.text);
  }
  EXPECT_EQ(WithoutWholeMarker(u"<b><i>a <i>b<i>", kItalicMarker), u"<b>a <i>b");
}

}  // namespace
}  // namespace cuewright

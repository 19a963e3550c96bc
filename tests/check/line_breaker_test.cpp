#include "check/line_breaker.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "check/checker.h"
#include "core/app_options.h"
#include "tests/support/tag_marks.h"
#include "text/visible_length.h"

namespace cuewright {
namespace {

class LineBreakerTest : public ::testing::Test {
 protected:
  LineBreakerTest() {
    rules.language = u"en";
    rules.lines = 2;
    rules.charactersALine = 42;
    rules.breaks.lineEnds = {u"the", u"of", u"a", u"and", u"to", u"in", u"my", u"until", u"through"};
  }

  std::string Broken(TextView text) { return ToUtf8(LineBreaker(rules).Broken(text)); }

  HouseRules rules;
};

TEST_F(LineBreakerTest, LeavesWhatFitsOneLineOnOne) {
  EXPECT_EQ(Broken(u"Good evening, Inspector."), "Good evening, Inspector.");
  EXPECT_EQ(Broken(u"Good evening,\nInspector."), "Good evening, Inspector.");
  EXPECT_EQ(Broken(u""), "");
  EXPECT_EQ(Broken(u"word"), "word");
}

TEST_F(LineBreakerTest, BreaksBehindPunctuationFirst) {
  EXPECT_EQ(Broken(u"Nobody leaves this house. The storm has not passed yet."),
            "Nobody leaves this house.\nThe storm has not passed yet.");
  EXPECT_EQ(Broken(u"If the storm doesn't pass, we all stay here tonight"),
            "If the storm doesn't pass,\nwe all stay here tonight");
}

TEST_F(LineBreakerTest, BreaksInFrontOfAPhraseAndNeverInside) {
  EXPECT_EQ(Broken(u"Nobody leaves this house until the storm has passed"),
            "Nobody leaves this house\nuntil the storm has passed");
  EXPECT_EQ(Broken(u"She walked through the garden of the old house"),
            "She walked through the garden\nof the old house");
}

TEST_F(LineBreakerTest, KeepsNamesTogether) {
  rules.breaks.pairs = {u"new york"};
  EXPECT_EQ(Broken(u"We have been looking for him across New York ever since"),
            "We have been looking for him\nacross New York ever since");
}

TEST_F(LineBreakerTest, LetsASpeakerBeginALine) {
  EXPECT_EQ(Broken(u"- Did you see anyone in the garden?\n- No."), "- Did you see anyone in the garden?\n- No.");
  EXPECT_EQ(Broken(u"- Yes.\n- No."), "- Yes.\n- No.");
}

TEST_F(LineBreakerTest, BreaksTooLongATextWhereItFits) {
  const std::string broken = Broken(Text(30, u'a') + u" " + Text(30, u'b') + u" " + Text(8, u'c'));
  EXPECT_EQ(broken, std::string(30, 'a') + "\n" + std::string(30, 'b') + " " + std::string(8, 'c'));
  // No place: as it is.
  EXPECT_EQ(Broken(Text(100, u'a')), std::string(100, 'a'));
}

TEST_F(LineBreakerTest, KeepsThePyramidOfTheHouse) {
  rules.charactersALine = 20;
  rules.pyramid = 100;
  EXPECT_EQ(Broken(u"eleven char nine char, longer"), "eleven char\nnine char, longer");
}

TEST_F(LineBreakerTest, BreaksTextsWithoutBlanks) {
  rules.language = u"ja";
  rules.wideLetters = true;
  rules.charactersALine = 32;
  rules.breaks = {};
  EXPECT_EQ(Broken(u"今夜は誰もこの家を出られません。嵐が過ぎるまで待ちましょう。"),
            "今夜は誰もこの家を出られません。\n嵐が過ぎるまで待ちましょう。");
}

/// Every layout of a text on up to two lines that keeps to width and language.
bool HasLegalLayout(LineBreaker& breaker, TextView flat, int width) {
  for (const BreakPlace& place : breaker.PlacesIn(flat)) {
    const bool fits = VisibleLength(flat.substr(0, place.end), false) <= width &&
                      VisibleLength(flat.substr(place.begin), false) <= width;
    if (fits && !place.forbidden) return true;
  }
  return false;
}

TEST_F(LineBreakerTest, NeverTakesAForbiddenPlaceWhereALegalLayoutExists) {
  std::mt19937 random(16);
  const std::vector<Text> words = {u"the", u"of",     u"a",      u"and",   u"to",    u"in",      u"my",
                                   u"we",  u"house.", u"storm,", u"night", u"rains", u"between", u"Inspector"};
  LineBreaker breaker(rules);
  int legal = 0;
  int without = 0;
  for (int i = 0; i < 4000; ++i) {
    Text flat;
    while (flat.size() < 43 + random() % 40) flat += (flat.empty() ? u"" : u" ") + words[random() % words.size()];
    const Text broken = breaker.Broken(flat);
    EXPECT_EQ(ReplaceAll(broken, u"\n", u" "), flat);
    if (!HasLegalLayout(breaker, flat, 42)) {
      ++without;
      continue;
    }
    ++legal;
    const std::vector<Text> lines = Split(broken, u"\n");
    ASSERT_EQ(lines.size(), 2u) << ToUtf8(broken);
    EXPECT_LE(lines[0].size(), 42u) << ToUtf8(broken);
    EXPECT_LE(lines[1].size(), 42u) << ToUtf8(broken);
    const Text last = Split(lines[0], u" ").back();
    EXPECT_FALSE(rules.breaks.Forbids(last, Split(lines[1], u" ").front())) << ToUtf8(broken);
  }
  EXPECT_GT(legal, 1000);
  EXPECT_GT(without, 20);
}

TEST_F(LineBreakerTest, ProposalsKeepMarksAtTheirPlaces) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  const testing::TagMarks marks;
  list.SetMarks(marks);
  list.Replace(1, 1,
               {{1000, 2000, u"Nobody leaves <i>this</i> house until the|storm has passed"},
                {3000, 4000, u"Good evening."},
                {5000, 6000, u"<i>Good|evening.</i>"}});
  LineBreaker breaker(rules);
  const std::vector<Proposal> proposals = ProposeBreaks(list, AllRows(list), breaker);
  ASSERT_EQ(proposals.size(), 2u);
  EXPECT_EQ(ToUtf8(proposals[0].after->text), "Nobody leaves <i>this</i> house|until the storm has passed");
  EXPECT_EQ(proposals[0].after->start, 1000);
  EXPECT_EQ(proposals[1].row, 3);
  EXPECT_EQ(ToUtf8(proposals[1].after->text), "<i>Good evening.</i>");
}

}  // namespace
}  // namespace cuewright

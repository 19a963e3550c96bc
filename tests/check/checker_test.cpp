#include "check/checker.h"

#include <gtest/gtest.h>

#include <string>

#include "core/app_options.h"
#include "tests/support/tag_marks.h"

namespace cuewright {
namespace {

class CheckerTest : public ::testing::Test {
 protected:
  CheckerTest() {
    rules.rate = 24.0;
    list.SetMarks(marks);
  }

  void Fill(std::vector<Caption> rows) { list.Replace(1, list.Count(), std::move(rows)); }

  /// The findings as lines: row, rule, value, limit.
  std::vector<std::string> Found(FrameRate rate = {}, std::vector<Ms> shots = {}) {
    Checker checker(rules, rate, std::move(shots));
    std::vector<std::string> lines;
    for (const Finding& finding : checker.CheckAll(list)) {
      const std::string value =
          finding.IsOfWords() ? ToUtf8(finding.found) : std::to_string(static_cast<int>(finding.value));
      const std::string limit =
          finding.IsOfWords() ? ToUtf8(finding.wanted) : std::to_string(static_cast<int>(finding.limit));
      lines.push_back(std::to_string(finding.row.Number()) + " " + std::string(RuleName(finding.rule)) + " " + value +
                      " " + limit);
    }
    return lines;
  }

  using Lines = std::vector<std::string>;

  HouseRules rules;
  testing::TagMarks marks;
  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

TEST_F(CheckerTest, AsksWithoutRulesForOrderAlone) {
  Fill({{0, 0, u""}, {5, 4, u"a|b|c|d"}, {1, 900000, Text(500, u'x')}});
  EXPECT_EQ(Found(), Lines{"3 overlap 3 0"});
}

TEST_F(CheckerTest, MeasuresDurations) {
  rules.minDuration = {0, 20};
  rules.maxDuration = {7000, 0};
  Fill({{1000, 1833, u"a"}, {2000, 2800, u"a"}, {3000, 10000, u"a"}, {11000, 18001, u"a"}, {0, 0, u"a"}});
  EXPECT_EQ(Found(24.0), (Lines{"2 min-duration 800 833", "4 max-duration 7001 7000"}));
}

TEST_F(CheckerTest, AcceptsADurationThatIsTheLeastInFrames) {
  rules.minDuration = {0, 20};
  Fill({{1000, 1832, u"a"}, {2000, 2812, u"a"}});
  EXPECT_EQ(Found(24.0), (Lines{"2 min-duration 812 833"}));
}

TEST_F(CheckerTest, MeasuresGapsInFramesAndOverlapsInMs) {
  rules.minGap = {0, 2};
  Fill({{1000, 2000, u"a"},
        {2083, 3000, u"b"},
        {3042, 4000, u"c"},
        {3990, 5000, u"d"},
        {0, 0, u"e"},
        {6000, 7000, u"f"}});
  EXPECT_EQ(Found(24.0), (Lines{"3 gap 42 83", "4 overlap 10 0"}));
  EXPECT_EQ(Found(50.0), (Lines{"3 gap 42 80", "4 overlap 10 0"}));
}

TEST_F(CheckerTest, CountsWhatAReaderSees) {
  rules.charactersASecond = 10;
  Fill({{0, 1000, u"<i>0123|45678"},
        {1000, 2000, u"<i>0123|456789</i>x"},
        {2000, 3000, u"e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301"}});
  EXPECT_EQ(Found(), (Lines{"2 cps 11 10"}));
}

TEST_F(CheckerTest, AsksWhatIsReadableInTheTime) {
  rules.charactersWithin = {12, 20};
  rules.charactersASecond = 15;
  Fill({{0, 1000, u"0123456789ab"}, {1000, 3000, u"0123456789abcdefghijk"}, {3000, 3500, u"0123456"}});
  EXPECT_EQ(Found(), (Lines{"3 cps 14 12"}));
  Fill({{0, 1500, u"0123456789abcdef"}, {2000, 3500, u"0123456789abcdefg"}});
  EXPECT_EQ(Found(), (Lines{"2 cps 11 10"}));
}

TEST_F(CheckerTest, CountsWordsAMinute) {
  rules.wordsAMinute = 180;
  Fill({{0, 1000, u"one two|three"}, {1000, 2000, u"one two|three four"}});
  EXPECT_EQ(Found(), (Lines{"2 wpm 240 180"}));
}

TEST_F(CheckerTest, MeasuresLinesAndTexts) {
  rules.charactersALine = 5;
  rules.characters = 9;
  rules.lines = 2;
  Fill({{1, 2, u"12345|1234"}, {3, 4, u"123456"}, {5, 6, u"12345|12345"}, {7, 8, u"1|2|3"}});
  EXPECT_EQ(Found(), (Lines{"2 line-length 6 5", "3 length 10 9", "4 lines 3 2"}));
}

TEST_F(CheckerTest, CountsWideLettersAsTwoWhereAsked) {
  rules.charactersALine = 6;
  Fill({{1, 2, u"こんにちは"}, {3, 4, u"\U00020000\U00020000\U00020000"}});
  EXPECT_EQ(Found(), Lines{});
  rules.wideLetters = true;
  EXPECT_EQ(Found(), (Lines{"1 line-length 10 6"}));
}

TEST_F(CheckerTest, ComparesTheLengthsOfLines) {
  rules.balance = 50;
  Fill({{1, 2, u"12345|1234567890"}, {3, 4, u"1234|1234567890"}, {5, 6, u"1"}});
  EXPECT_EQ(Found(), (Lines{"2 balance 40 50"}));
  rules.balance = 0;
  rules.pyramid = 100;
  Fill({{1, 2, u"12345|12345"}, {3, 4, u"123456|12345"}, {5, 6, u"1|12|1"}});
  EXPECT_EQ(Found(), (Lines{"2 pyramid 120 100", "3 pyramid 200 100"}));
}

TEST_F(CheckerTest, WantsTheDashOfTheHouseWhereSeveralSpeak) {
  rules.dash = u"- ";
  Fill({{1, 2, u"- Yes.|- No."}, {3, 4, u"-Yes.|- No."}, {5, 6, u"\u2013 Yes.|\u2013 No."}, {7, 8, u"-Yes."}});
  EXPECT_EQ(Found(), (Lines{"2 dash - - ", "3 dash \u2013  - "}));
}

TEST_F(CheckerTest, FindsWordsAtWhichNoLineEnds) {
  rules.breaks.lineEnds = {u"the", u"of"};
  Fill({{1, 2, u"to The |house of"}, {3, 4, u"the"}, {5, 6, u"out of, |here"}, {7, 8, u"a|of|b"}});
  EXPECT_EQ(Found(), (Lines{"1 line-end the ", "4 line-end of "}));
}

TEST_F(CheckerTest, FindsWordsThatStayTogether) {
  rules.breaks.pairs = {u"new york"};
  Fill({{1, 2, u"in New|York City"},
        {3, 4, u"in New,|York"},
        {5, 6, u"brand new|<i>York!</i>"},
        {7, 8, u"New York|New"}});
  EXPECT_EQ(Found(), (Lines{"1 line-end new ", "3 line-end new "}));
}

TEST_F(CheckerTest, AsksNothingOfTheTimesOfACaptionWithoutAny) {
  rules.minDuration = {1000, 0};
  rules.maxDuration = {7000, 0};
  rules.charactersASecond = 1;
  Fill({{0, 0, u"long enough a text"}, {0, 500, u""}});
  EXPECT_EQ(Found(), (Lines{"2 min-duration 500 1000"}));
}

TEST_F(CheckerTest, WantsTimesNearAShotOnIt) {
  rules.shotZone = {0, 12};
  rules.beforeShot = {0, 2};
  const std::vector<Ms> shots = {10000, 20000};
  Fill({{10000, 12000, u"on it"},
        {9792, 12000, u"5 frames before"},
        {10500, 12000, u"12 frames behind"},
        {15000, 19917, u"2 frames before the end"},
        {15000, 20042, u"1 frame behind"},
        {100, 200, u"nowhere near"}});
  Lines found = Found(24.0, shots);
  std::erase_if(found, [](const std::string& line) { return line.find("overlap") != std::string::npos; });
  EXPECT_EQ(found, (Lines{"2 shot-start -5 0", "5 shot-end 1 -2"}));
}

TEST_F(CheckerTest, SaysTheSameOfARowAsOfAll) {
  rules.minGap = {0, 2};
  rules.charactersASecond = 3;
  std::vector<Caption> rows;
  for (int i = 0; i < 200; ++i)
    rows.push_back({i * 1000, i * 1000 + 950 + i % 90, Text(static_cast<std::size_t>(i % 7), u'x')});
  Fill(rows);
  Checker checker(rules, 25.0);
  const std::vector<Finding> all = checker.CheckAll(list);
  EXPECT_GT(all.size(), 50u);
  std::vector<Finding> single;
  for (Row row = 1; row < list.Rows(); ++row) checker.CheckRow(list, row, single);
  EXPECT_EQ(single, all);
}

}  // namespace
}  // namespace cuewright

#include "tools/rules_engine.h"

#include <gtest/gtest.h>

#include "tests/support/tag_marks.h"
#include "tests/tools/rules_rig.h"

namespace cuewright {
namespace {

using Rules = RulesTest;

TEST_F(Rules, ACaptionOfThreeLinesComesOutWithTwoAndOneEntry) {
  Only(1, 0, 0, 0, 0);
  Put({{1000, 2000, u"one two|three|four"}, {3000, 4000, u"a|b"}});
  Pass();
  EXPECT_EQ(list.GetCaptionText(1), u"one two|three four");
  EXPECT_EQ(list.GetCaptionText(2), u"a|b");
  EXPECT_EQ(report.LinesSplit(), 1);
  ASSERT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(
      ToUtf8(report.Detailed(0)).rfind("Error number 1 found in caption: [1]\r\n ·Text: \"one two|three|four\"\r\n", 0),
      0u);
}

TEST_F(Rules, ACaptionWithoutABlankAfterFlatteningBecomesEmpty) {
  Only(1, 0, 0, 0, 0);
  Put({{1000, 2000, u"||one"}, {3000, 4000, u"b"}});
  Pass();
  EXPECT_EQ(list.GetCaptionText(1), u"");
  EXPECT_EQ(report.LinesSplit(), 1);
}

TEST_F(Rules, ALongCaptionFailsBehindItsEntryAndThePassTellsAtItsEnd) {
  Only(1, 0, 0, 0, 0);
  Text text(600, u'x');
  text[100] = text[300] = u'|';
  Put({{1000, 2000, text}, {3000, 4000, u"a b|c|d"}});
  Pass();
  EXPECT_EQ(list.GetCaptionText(1), text);
  EXPECT_EQ(list.GetCaptionText(2), u"a b|c d");
  EXPECT_EQ(report.LinesSplit(), 2);
  EXPECT_TRUE(failure);
}

TEST_F(Rules, ACollisionOfFortyNineMsIsSilentAndOneOfFiftyIsLogged) {
  Only(0, 1, 0, 0, 0);
  Put({{1000, 2000, u"a"}, {1951, 3000, u"b"}, {2950, 4000, u"c"}, {4000, 5000, u"d"}});
  Pass();
  EXPECT_EQ(list.GetCaptionStart(2), 2000);
  EXPECT_EQ(list.GetCaptionStart(3), 3000);
  EXPECT_EQ(list.GetCaptionStart(4), 4000);  // exactly the end before is no collision
  EXPECT_EQ(report.Collisions(), 1);
  ASSERT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(Line(0), "LINE COLLISION [3] appear time increased 50 ms");
  EXPECT_TRUE(modified);
}

TEST_F(Rules, TheFirstRowIsNeverInCollisionNorJoined) {
  Only(0, 1, 1, 0, 0);
  Put({{50, 2000, u"a"}, {2100, 3000, u"b"}});
  Pass();
  EXPECT_EQ(list.GetCaptionStart(1), 50);
  EXPECT_EQ(list.GetCaptionStart(2), 2000);  // joined, silently
  EXPECT_EQ(report.RuleEntryCount(), 0);
  EXPECT_FALSE(modified);
}

TEST_F(Rules, AnUntimedCaptionIsSkippedByTheTimingRules) {
  Only(0, 1, 1, 1, 0);
  Put({{1000, 2000, u"12345678"}, {0, 500, u"b"}, {2500, 3500, u"12345678"}});
  Pass();
  EXPECT_EQ(list.At(2), (Caption{0, 500, u"b"}));
}

TEST_F(Rules, ADurationOutsideTheRangeBecomesTheBestOne) {
  Only(0, 0, 0, 1, 0);
  // Eight characters: 120 ms each, up to 320 are allowed.
  Put({{1000, 9000, u"12345678"}, {10000, 10100, u"12345"}, {20000, 22560, u"12345678"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1960);
  EXPECT_EQ(list.GetCaptionEnd(2), 11250);
  EXPECT_EQ(list.GetCaptionEnd(3), 22560);  // the bound is inside
  EXPECT_EQ(report.DurationsOutsideRange(), 2);
  EXPECT_EQ(Line(0), "DURATION OUTSIDE RANGE [1] duration reduced -7040 ms");
  EXPECT_EQ(Line(1), "DURATION OUTSIDE RANGE [2] duration increased 1150 ms");
  EXPECT_NE(ToUtf8(report.Detailed(0)).find("duration reduced 7040 milliseconds"), std::string::npos);
}

TEST_F(Rules, LinesAreJoinedAroundMarksThatStayAtTheirWords) {
  const testing::TagMarks marks;
  list.SetMarks(marks);
  Only(1, 0, 0, 0, 0);
  Put({{1000, 4000, u"aa  bb|cc <i>dd</i>|ee"}});
  Pass();
  EXPECT_EQ(list.At(1).text, u"aa bb|cc <i>dd</i> ee");
}

TEST_F(Rules, AnEndBeforeTheStartGetsTheBestDurationAndAnEntryOfKindFour) {
  Only(0, 0, 0, 1, 0);
  Put({{5000, 4000, u"12345678"}, {9000, 9000, u"<i>"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 5960);
  EXPECT_EQ(report.DurationsOutsideRange(), 1);
  EXPECT_EQ(Line(0), "NEGATIVE DURATION [1] caption duration set to 960 ms");
  // Markers alone get 100 ms and no entry.
  EXPECT_EQ(list.GetCaptionEnd(2), 9100);
  EXPECT_EQ(report.RuleEntryCount(), 1);
}

TEST_F(Rules, ABestDurationOverSixteenBitsLeavesTheCaption) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 900000, Text(700, u'x')}, {1000000, 1000100, u"12345"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 900000);
  EXPECT_EQ(list.GetCaptionEnd(2), 1001250);
  EXPECT_EQ(report.RuleEntryCount(), 1);
  EXPECT_TRUE(failure);
}

TEST_F(Rules, ACreditIsRemovedWhateverItsCase) {
  Only(0, 0, 0, 0, 1);
  Put({{1000, 2000, u"see WWW.x.y"}, {3000, 4000, u"fine"}, {5000, 6000, u"me@home"}});
  Pass();
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"fine");
  EXPECT_EQ(report.LinesRemoved(), 2);
  EXPECT_EQ(Line(0), "CREDIT/LINK FOUND [1] line deleted");
  EXPECT_EQ(Line(1), "CREDIT/LINK FOUND [2] line deleted");
}

TEST_F(Rules, AfterAFileOfCreditsABlankRowIsLeftAndEveryDeletionHasRowOne) {
  Only(0, 0, 0, 0, 1);
  Put(std::vector<Caption>(40, Caption{1000, 2000, u"http://x"}));
  Pass();
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.At(1), Caption{});
  ASSERT_EQ(report.RuleEntryCount(), 40);
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(Line(i), "CREDIT/LINK FOUND [1] line deleted");
}

TEST_F(Rules, AListOfSeventyPiecesHasSixtyFour) {
  Only(0, 0, 0, 0, 1);
  options.creditWords = u"p1";
  for (int i = 2; i <= 70; ++i) options.creditWords += u",q" + Decimal(i) + u"q";
  Put({{1, 2, u"has q63q"}, {1, 2, u"has q64q"}, {1, 2, u"has q70q"}});
  Pass();
  EXPECT_EQ(list.Rows(), 3);
  EXPECT_EQ(list.GetCaptionText(1), u"has q64q");
}

TEST_F(Rules, APieceIsSearchedUntrimmedAndABlankOneIsSkipped) {
  Only(0, 0, 0, 0, 1);
  options.creditWords = u"zz, ,  , www";
  Put({{1, 2, u"at www"}, {1, 2, u"xwww"}});
  Pass();
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"xwww");
}

TEST_F(Rules, ThePassTellsItsProgressEveryTwentyFiveRows) {
  std::vector<Caption> captions;
  for (int i = 1; i <= 60; ++i) captions.push_back({i * 10000, i * 10000 + 960, u"12345678"});
  Put(captions);
  Pass();
  EXPECT_EQ(told, (std::vector<Row>{25, 50}));
}

TEST_F(Rules, APassBeginsWithAnEmptyReport) {
  Put({{5000, 4000, u"12345678"}});
  Pass();
  Pass();
  EXPECT_EQ(report.RuleEntryCount(), 0);
  EXPECT_EQ(report.DurationsOutsideRange(), 0);
}

}  // namespace
}  // namespace cuewright

#include "tools/rules_engine.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/fakes.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct FakeHost final : RulesHost {
  void CloseToolWindows() override { calls.emplace_back("close"); }
  void SetBusy(bool on) override { calls.emplace_back(on ? "busy" : "idle"); }
  void Yield() override { calls.emplace_back("yield"); }
  void ShowProgress(TextView text) override { calls.push_back("progress " + ToUtf8(text)); }
  void RefreshFileLabels() override { calls.emplace_back("labels"); }
  void LeavePreviewMode() override { calls.emplace_back("press and hold"); }
  bool PausePlayer() override {
    calls.emplace_back("pause");
    return playing;
  }
  void ResumePlayer() override { calls.emplace_back("resume"); }
  void ShowReport() override { calls.emplace_back("report"); }

  long Count(const std::string& call) const { return std::count(calls.begin(), calls.end(), call); }

  std::vector<std::string> calls;
  bool playing = false;
};

struct RulesTest : ::testing::Test {
  RulesTest() {
    for (std::size_t id = 0; id < kMessageCount; ++id) strings.Set(id, u"m" + Decimal(static_cast<long long>(id)));
    strings.Set(228, u"Error number %1 found in caption:");
    strings.Set(229, u" Text: ");
    for (const std::size_t id : {232, 235, 238, 243, 245, 268}) {
      strings.Set(id, u"m" + Decimal(static_cast<long long>(id)) + u" [%1] %2");
    }
  }
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Rows() - 1, std::move(captions)); }
  void Only(std::uint8_t split, std::uint8_t collision, std::uint8_t join, std::uint8_t duration,
            std::uint8_t credits) {
    options.AutoSplit = split;
    options.Collision = collision;
    options.AutoJoin = join;
    options.DurationOn = duration;
    options.T_CREDITS = credits;
  }
  std::string Line(std::size_t entry) const { return ToUtf8(report.OneLine().at(entry)); }

  AppOptions options;
  bool modified = false;
  LangStrings strings;
  testing::FakeMessages boxes;
  FakeHost host;
  CaptionList list{options, modified};
  RuleReport report{strings};
  RulesEngine engine{list, report, strings, boxes, host};
};

using Rules = RulesTest;

TEST_F(Rules, ACaptionOfThreeLinesComesOutWithTwoAndOneEntry) {
  Only(1, 0, 0, 0, 0);
  Put({{1000, 2000, u"one two|three|four"}, {3000, 4000, u"a|b"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionText(1), u"one two|three four");
  EXPECT_EQ(list.GetCaptionText(2), u"a|b");
  EXPECT_EQ(report.LinesSplit(), 1);
  ASSERT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(ToUtf8(report.Detailed()[0])
                .rfind("Error number 1 found in caption: [1]\r\n Text: \"one two|three|four\"\r\n", 0),
            0u);
}

TEST_F(Rules, ACaptionWithoutABlankAfterFlatteningBecomesEmpty) {
  Only(1, 0, 0, 0, 0);
  Put({{1000, 2000, u"||one"}, {3000, 4000, u"b"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionText(1), u"");
  EXPECT_EQ(report.LinesSplit(), 1);
}

TEST_F(Rules, ALongCaptionFailsBehindItsEntryAndThePassTellsAtItsEnd) {
  Only(1, 0, 0, 0, 0);
  Text text(600, u'x');
  text[100] = text[300] = u'|';
  Put({{1000, 2000, text}, {3000, 4000, u"a b|c|d"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionText(1), text);
  EXPECT_EQ(list.GetCaptionText(2), u"a b|c d");
  EXPECT_EQ(report.LinesSplit(), 2);
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"Error while applying rules. Please check the report for details.");
}

TEST_F(Rules, ACollisionOfFortyNineMsIsSilentAndOneOfFiftyIsLogged) {
  Only(0, 1, 0, 0, 0);
  Put({{1000, 2000, u"a"}, {1951, 3000, u"b"}, {2950, 4000, u"c"}, {4000, 5000, u"d"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionStart(2), 2000);
  EXPECT_EQ(list.GetCaptionStart(3), 3000);
  EXPECT_EQ(list.GetCaptionStart(4), 4000);  // exactly the end before is no collision
  EXPECT_EQ(report.Collisions(), 1);
  ASSERT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(Line(0), "m238 [3] 50");
  EXPECT_TRUE(modified);
}

TEST_F(Rules, TheFirstRowIsNeverInCollisionNorJoined) {
  Only(0, 1, 1, 0, 0);
  Put({{50, 2000, u"a"}, {2100, 3000, u"b"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionStart(1), 50);
  EXPECT_EQ(list.GetCaptionStart(2), 2000);  // joined, silently
  EXPECT_EQ(report.RuleEntryCount(), 0);
  EXPECT_FALSE(modified);
}

TEST_F(Rules, AnUntimedCaptionIsSkippedByTheTimingRules) {
  Only(0, 1, 1, 1, 0);
  Put({{1000, 2000, u"12345678"}, {0, 500, u"b"}, {2500, 3500, u"12345678"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.At(2), (Caption{0, 500, u"b"}));
}

TEST_F(Rules, ADurationOutsideTheRangeBecomesTheBestOne) {
  Only(0, 0, 0, 1, 0);
  // Eight characters: 120 ms each, up to 320 are allowed.
  Put({{1000, 9000, u"12345678"}, {10000, 10100, u"12345"}, {20000, 22560, u"12345678"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionEnd(1), 1960);
  EXPECT_EQ(list.GetCaptionEnd(2), 11250);
  EXPECT_EQ(list.GetCaptionEnd(3), 22560);  // the bound is inside
  EXPECT_EQ(report.DurationsOutsideRange(), 2);
  EXPECT_EQ(Line(0), "m245 [1] -7040");
  EXPECT_EQ(Line(1), "m243 [2] 1150");
  EXPECT_NE(ToUtf8(report.Detailed()[0]).find("m244"), std::string::npos);
}

TEST_F(Rules, AnEndBeforeTheStartGetsTheBestDurationAndAnEntryOfKindFour) {
  Only(0, 0, 0, 1, 0);
  Put({{5000, 4000, u"12345678"}, {9000, 9000, u"<i>"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionEnd(1), 5960);
  EXPECT_EQ(report.DurationsOutsideRange(), 1);
  EXPECT_EQ(Line(0), "m268 [1] 960");
  // Markers alone get 100 ms and no entry.
  EXPECT_EQ(list.GetCaptionEnd(2), 9100);
  EXPECT_EQ(report.RuleEntryCount(), 1);
}

TEST_F(Rules, ABestDurationOverSixteenBitsLeavesTheCaption) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 900000, Text(700, u'x')}, {1000000, 1000100, u"12345"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.GetCaptionEnd(1), 900000);
  EXPECT_EQ(list.GetCaptionEnd(2), 1001250);
  EXPECT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(Rules, ACreditIsRemovedWhateverItsCase) {
  Only(0, 0, 0, 0, 1);
  Put({{1000, 2000, u"see WWW.x.y"}, {3000, 4000, u"fine"}, {5000, 6000, u"me@home"}});
  engine.ApplyRules(true);
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"fine");
  EXPECT_EQ(report.LinesRemoved(), 2);
  EXPECT_EQ(Line(0), "m232 [1] %2");
  EXPECT_EQ(Line(1), "m232 [2] %2");
}

TEST_F(Rules, AfterAFileOfCreditsABlankRowIsLeftAndEveryDeletionHasRowOne) {
  Only(0, 0, 0, 0, 1);
  Put(std::vector<Caption>(40, Caption{1000, 2000, u"http://x"}));
  engine.ApplyRules(true);
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.At(1), Caption{});
  ASSERT_EQ(report.RuleEntryCount(), 40);
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(Line(i), "m232 [1] %2");
}

TEST_F(Rules, AListOfSeventyPiecesHasSixtyFour) {
  Only(0, 0, 0, 0, 1);
  options.T_CREDITSTEXT = u"p1";
  for (int i = 2; i <= 70; ++i) options.T_CREDITSTEXT += u",q" + Decimal(i) + u"q";
  Put({{1, 2, u"has q63q"}, {1, 2, u"has q64q"}, {1, 2, u"has q70q"}});
  engine.ApplyRules(true);
  EXPECT_EQ(list.Rows(), 3);
  EXPECT_EQ(list.GetCaptionText(1), u"has q64q");
}

TEST_F(Rules, APieceIsSearchedUntrimmedAndABlankOneIsSkipped) {
  Only(0, 0, 0, 0, 1);
  options.T_CREDITSTEXT = u"zz, ,  , www";
  Put({{1, 2, u"at www"}, {1, 2, u"xwww"}});
  engine.ApplyRules(true);
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"xwww");
}

TEST_F(Rules, APassWithoutCorrectionsSaysSoOnlyFromTheMenu) {
  Put({{1000, 1960, u"12345678"}});
  engine.ApplyRules(true);
  EXPECT_TRUE(boxes.shown.empty());
  engine.ApplyRules(false);
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"m271");
  EXPECT_EQ(boxes.shown[0].title, u"m31");
  EXPECT_EQ(host.Count("report"), 0);
}

TEST_F(Rules, APassWithCorrectionsOpensTheReportThoughQuiet) {
  Put({{5000, 4000, u"12345678"}});
  engine.ApplyRules(true);
  EXPECT_EQ(host.Count("report"), 1);
}

TEST_F(Rules, ThePassFreesTheWindowFirstAndYieldsEveryTwentyFiveRows) {
  host.playing = true;
  std::vector<Caption> captions;
  for (int i = 1; i <= 60; ++i) captions.push_back({i * 10000, i * 10000 + 960, u"12345678"});
  Put(captions);
  engine.ApplyRules(true);
  const std::vector<std::string> expected = {
      "close",  "busy", "press and hold", "pause", "yield", "progress m118 25, m117", "yield", "progress m118 50, m117",
      "labels", "idle", "resume"};
  EXPECT_EQ(host.calls, expected);
}

TEST_F(Rules, APassBeginsWithAnEmptyReport) {
  Put({{5000, 4000, u"12345678"}});
  engine.ApplyRules(true);
  engine.ApplyRules(true);
  EXPECT_EQ(report.RuleEntryCount(), 0);
  EXPECT_EQ(report.DurationsOutsideRange(), 0);
}

}  // namespace
}  // namespace cuewright

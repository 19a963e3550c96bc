#include "tests/tools/rules_rig.h"
#include "tools/report_text.h"

namespace cuewright {
namespace {

using Autosplit = RulesTest;

TEST_F(Autosplit, LeavesACaptionOfOneSeparatorHoweverLongItIs) {
  Only(1, 0, 0, 0, 0);
  Text text(700, u'x');
  text[300] = u'|';
  Put({{1000, 2000, text}});
  Pass();
  EXPECT_EQ(list.GetCaptionText(1), text);
  EXPECT_EQ(report.RuleEntryCount(), 0);
}

TEST_F(Autosplit, CountsSeparatorsThatOverlapAsTwo) {
  Only(1, 0, 0, 0, 0);
  options.lineSeparator = u"||";
  Put({{1000, 2000, u"a b|||c d"}});
  Pass();
  EXPECT_EQ(report.LinesSplit(), 1);
}

TEST_F(Autosplit, ReachesUntimedCaptionsToo) {
  Only(1, 0, 0, 0, 0);
  Put({{0, 0, u"a b|c|d"}});
  Pass();
  EXPECT_EQ(list.GetCaptionText(1), u"a b|c d");
}

TEST_F(Autosplit, LeavesTheModifiedFlagAlone) {
  Only(1, 0, 0, 0, 0);
  Put({{1000, 2000, u"a b|c|d"}});
  Pass();
  EXPECT_FALSE(modified);
}

using CollisionRule = RulesTest;

TEST_F(CollisionRule, MovesTheStartAloneAndTheLimitMendsWhatIsLeft) {
  Put({{1000, 9000, u"a long line that needs room: 50 characters and more......"}, {2000, 3000, u"12345678"}});
  Only(0, 1, 0, 0, 0);
  Pass();
  EXPECT_EQ(list.At(2), (Caption{9000, 3000, u"12345678"}));
  Put({{1000, 3800, u"a long line that needs room: 50 characters and more......"}, {2000, 3000, u"12345678"}});
  Only(0, 1, 0, 1, 0);
  Pass();
  EXPECT_EQ(list.At(2), (Caption{3800, 4760, u"12345678"}));
  EXPECT_EQ(Line(0), "LINE COLLISION [2] appear time increased 1800 ms");
  EXPECT_EQ(Line(1), "NEGATIVE DURATION [2] caption duration set to 960 ms");
}

TEST_F(CollisionRule, ByItselfTakesAHintAndOnlyLogsWhenItIsOff) {
  options.avoidCollision = 0;
  Put({{1000, 3000, u"a"}, {2000, 4000, u"b"}});
  Ms start = 2500;
  engine.CheckCollision(2, start);
  EXPECT_EQ(list.GetCaptionStart(2), 2000);
  EXPECT_EQ(Line(0), "LINE COLLISION [2] error ignored");
  EXPECT_TRUE(report.Detailed(0).ends_with(u" ·Error: Caption collides with previous one\r\n ·Action taken: None"));
  start = 0;
  engine.CheckCollision(2, start);
  EXPECT_EQ(start, 2000);
  EXPECT_FALSE(modified);
}

TEST_F(CollisionRule, NeedsATimedPredecessorAndARowInRange) {
  Put({{0, 3000, u"a"}, {2000, 4000, u"b"}});
  Ms start = 0;
  engine.CheckCollision(2, start);
  engine.CheckCollision(1, start);
  engine.CheckCollision(3, start);
  engine.CheckCollision(-1, start);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(report.RuleEntryCount(), 0);
}

using NearbyRule = RulesTest;

TEST_F(NearbyRule, MovesAnOverlappingStartInSilenceWithTheCollisionRuleOff) {
  Only(0, 0, 1, 0, 0);
  Put({{1000, 5000, u"a"}, {2000, 6000, u"b"}, {6200, 7000, u"c"}, {7201, 8000, u"d"}});
  Pass();
  EXPECT_EQ(list.GetCaptionStart(2), 5000);
  EXPECT_EQ(list.GetCaptionStart(3), 6000);  // the bound is inside
  EXPECT_EQ(list.GetCaptionStart(4), 7201);
  EXPECT_EQ(report.RuleEntryCount(), 0);
  EXPECT_FALSE(modified);
}

using TimingLimit = RulesTest;

TEST_F(TimingLimit, CountsNoMarkerAndTheSeparatorOnce) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 90000, u"<b><i><u>abcde|fghij|<b>"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1000 + 11 * 120);
}

TEST_F(TimingLimit, TakesEachMarkerOffOnceAndTheSeparatorOnceInTheClassicManner) {
  options.manner.SetClassic(true);
  Only(0, 0, 0, 1, 0);
  // 5 + 5 characters, a separator counted once of two, and each marker once of two: 10 + 1 + 3 counted.
  Put({{1000, 90000, u"<b><i><u>abcde|fghij|<b>"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1000 + 14 * 120);
}

TEST_F(TimingLimit, GivesABoldCaptionALongerBestDurationThanItIsCheckedAgainst) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 90000, u"12345<b>"}, {100000, 100000, u"12345<b>"}, {200000, 200000, u"12345<i>"}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1000 + 5 * 250);
  EXPECT_EQ(list.GetCaptionEnd(2), 100000 + 8 * 120);
  EXPECT_EQ(list.GetCaptionEnd(3), 200000 + 5 * 250);
}

TEST_F(TimingLimit, HasItsClassBoundsAtFiveAndFifteen) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 90000, Text(5, u'x')},
       {100000, 190000, Text(6, u'x')},
       {200000, 290000, Text(15, u'x')},
       {300000, 390000, Text(16, u'x')}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1000 + 5 * 250);
  EXPECT_EQ(list.GetCaptionEnd(2), 100000 + 6 * 120);
  EXPECT_EQ(list.GetCaptionEnd(3), 200000 + 15 * 120);
  EXPECT_EQ(list.GetCaptionEnd(4), 300000 + 16 * 50);
}

TEST_F(TimingLimit, FindsMediumAndLongCaptionsTooLongOnlyUnderTheDefaults) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 1001, Text(6, u'x')}, {100000, 100001, Text(40, u'x')}, {200000, 200001, Text(5, u'x')}});
  Pass();
  EXPECT_EQ(list.GetCaptionEnd(1), 1001);
  EXPECT_EQ(list.GetCaptionEnd(2), 100001);
  EXPECT_EQ(list.GetCaptionEnd(3), 200000 + 5 * 250);
}

TEST_F(TimingLimit, WithoutFixLogsADurationWithEmptyOneLineText) {
  Put({{1000, 90000, u"12345"}});
  engine.CheckCaptionDuration(1, false);
  EXPECT_EQ(list.GetCaptionEnd(1), 90000);
  ASSERT_EQ(report.RuleEntryCount(), 1);
  EXPECT_EQ(Line(0), "");
  EXPECT_EQ(ToUtf8(report.Detailed(0)),
            "Error number 3 found in caption: [1]\r\n ·Text: \"12345\"\r\n"
            " ·Warning: Caption duration time is outside range\r\n ·Action taken: None");
  EXPECT_FALSE(modified);
}

TEST_F(TimingLimit, MendsADurationOfNothingAlsoWithoutFix) {
  Put({{1000, 1000, u"12345"}});
  engine.CheckCaptionDuration(1, false);
  EXPECT_EQ(list.GetCaptionEnd(1), 2250);
  EXPECT_EQ(Line(0), "NEGATIVE DURATION [1] caption duration set to 1250 ms");
}

TEST_F(TimingLimit, TheBestDurationOverwritesWhateverEndThereIs) {
  Put({{1000, 90000, u"12345"}});
  engine.SetBestDuration(1, false);
  EXPECT_EQ(list.GetCaptionEnd(1), 2250);
  EXPECT_EQ(report.RuleEntryCount(), 0);
  engine.SetBestDuration(2, true);
  engine.SetBestDuration(0, true);
  EXPECT_EQ(report.RuleEntryCount(), 0);
}

TEST_F(TimingLimit, OfATextTooLongToCountGivesNoEndAtAll) {
  Put({{1000, 1000, Text(40000, u'x')}});
  EXPECT_THROW(engine.SetBestDuration(1, true), RuntimeError);
  EXPECT_EQ(list.GetCaptionEnd(1), 1000);
  // One that can be counted keeps the 100 ms when its best duration doesn't fit.
  Put({{1000, 1000, Text(30000, u'x')}});
  EXPECT_THROW(engine.SetBestDuration(1, true), RuntimeError);
  EXPECT_EQ(list.GetCaptionEnd(1), 1100);
}

using CreditRule = RulesTest;

TEST_F(CreditRule, RemovesACaptionBehindTheOtherRulesWhichLeaveTheirEntries) {
  Only(1, 0, 0, 1, 1);
  Put({{1000, 90000, u"a|b c|www.x"}, {100000, 101000, u"stays"}});
  Pass();
  EXPECT_EQ(list.Rows(), 2);
  ASSERT_EQ(report.RuleEntryCount(), 3);
  EXPECT_EQ(Line(0), "CAPTION EXCEEDS 2 LINES [1] auto-corrected");
  EXPECT_EQ(Line(2), "CREDIT/LINK FOUND [1] line deleted");
  // The text logged is the one that the rules before have left.
  EXPECT_NE(report.Detailed(2).find(u"\"a b c|www.x\""), Text::npos);
}

TEST_F(CreditRule, LeavesTheLastRowSelectedAsADeletionDoes) {
  Only(0, 0, 0, 0, 1);
  Put({{1, 2, u"a"}, {1, 2, u"b"}, {1, 2, u"http"}});
  Pass();
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_TRUE(modified);
}

TEST_F(CreditRule, MatchesLettersOfEveryScriptWhateverTheirCase) {
  Only(0, 0, 0, 0, 1);
  options.creditWords = u"ПЕРЕВОД,ς";
  Put({{1, 2, u"перевод: кто-то"}, {1, 2, u"ΣΑΝ"}, {1, 2, u"stays"}});
  Pass();
  ASSERT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"stays");
}

using ThePass = RulesTest;

TEST_F(ThePass, TakesFlagsOf255AsTrue) {
  Only(255, 255, 255, 255, 255);
  options.avoidCollision = 255;
  Put({{1000, 2000, u"a b|c|d"}, {1500, 2300, u"second"}, {7000, 7000, u"12345"}, {9000, 9900, u"www"}});
  Pass();
  EXPECT_EQ(report.LinesSplit(), 1);
  EXPECT_EQ(report.Collisions(), 1);
  EXPECT_EQ(report.LinesRemoved(), 1);
  EXPECT_GE(report.DurationsOutsideRange(), 1);
  EXPECT_EQ(Line(1), "LINE COLLISION [2] appear time increased 500 ms");
}

TEST_F(ThePass, WithEveryRuleOffChangesNothing) {
  Only(0, 0, 0, 0, 0);
  const std::vector<Caption> captions = {{1000, 3000, u"a|b|c"}, {2000, 1000, u"www"}};
  Put(captions);
  Pass();
  EXPECT_EQ(list.At(1), captions[0]);
  EXPECT_EQ(list.At(2), captions[1]);
  EXPECT_EQ(report.RuleEntryCount(), 0);
}

TEST_F(ThePass, GivesBackOneFailureHoweverManyThereWere) {
  Only(0, 0, 0, 1, 0);
  Put({{1000, 900000, Text(700, u'x')}, {1000000, 1900000, Text(700, u'x')}, {3000000, 3000000, u"12345"}});
  Pass();
  EXPECT_TRUE(failure);
  // A pass that fails nowhere says nothing of the failures before.
  Put({{1000, 2000, u"12345"}});
  Pass();
  EXPECT_FALSE(failure);
}

TEST_F(ThePass, ExaminesTheCaptionThatMovedUpWithItsOwnRow) {
  Only(0, 1, 0, 0, 1);
  Put({{1000, 3000, u"first"}, {3000, 4000, u"www"}, {2500, 5000, u"second"}});
  Pass();
  // The row above the moved one is the first, with which it collides.
  EXPECT_EQ(list.At(2), (Caption{3000, 5000, u"second"}));
  EXPECT_EQ(Line(1), "LINE COLLISION [2] appear time increased 500 ms");
}

using ReportEntries = RulesTest;

TEST_F(ReportEntries, TellEachKindInFull) {
  report.AddRuleEntry(7, u"a|b|c", RuleKind::TooManyLines, 0, false);
  report.AddRuleEntry(8, u"t", RuleKind::Collision, 50, true);
  report.AddRuleEntry(9, u"t", RuleKind::DurationOutsideRange, 1, true);
  report.AddRuleEntry(10, u"t", RuleKind::DurationOutsideRange, 0, true);
  report.AddRuleEntry(11, u"t", RuleKind::NegativeDuration, 250, false);
  report.AddRuleEntry(12, u"www", RuleKind::Credit, 0, false);
  const auto detail = [](const std::string& kind, const std::string& row, const std::string& text,
                         const std::string& rest) {
    return "Error number " + kind + " found in caption: [" + row + "]\r\n ·Text: \"" + text + "\"\r\n" + rest;
  };
  const std::vector<std::string> detailed = {
      detail("1", "7", "a|b|c", " ·Warning: Caption exceeds 2 lines\r\n ·Action taken: Caption automatically splitted"),
      detail("2", "8", "t",
             " ·Error: Caption collides with previous one\r\n"
             " ·Action taken: Caption appear time increased 50 milliseconds"),
      detail("3", "9", "t",
             " ·Warning: Caption duration time is outside range\r\n"
             " ·Action taken: Caption duration increased 1 milliseconds"),
      detail("3", "10", "t",
             " ·Warning: Caption duration time is outside range\r\n"
             " ·Action taken: Caption duration reduced 0 milliseconds"),
      detail("4", "11", "t",
             " ·Error: Caption with negative duration\r\n ·Action taken: Duration time set to 250 milliseconds"),
      detail("5", "12", "www", " ·Warning: Credit/link found\r\n ·Action taken: Line deleted")};
  ASSERT_EQ(report.Size(), detailed.size());
  for (std::size_t i = 0; i < detailed.size(); ++i) EXPECT_EQ(ToUtf8(report.Detailed(i)), detailed[i]);
  EXPECT_EQ(Line(0), "CAPTION EXCEEDS 2 LINES [7] auto-corrected");
  EXPECT_EQ(Line(3), "DURATION OUTSIDE RANGE [10] duration reduced 0 ms");
  EXPECT_EQ(report.RuleEntryCount(), 6);
  EXPECT_EQ(report.DurationsOutsideRange(), 3);
}

TEST_F(ReportEntries, KeepPlaceholdersOfACaptionAsText) {
  report.AddRuleEntry(1, u"100%1 of %2", RuleKind::Credit, 0, false);
  EXPECT_NE(report.Detailed(0).find(u"\"100%1 of %2\""), Text::npos);
}

TEST_F(ReportEntries, MakeTheStandardAndTheDetailedText) {
  report.AddRuleEntry(3, u"www", RuleKind::Credit, 0, false);
  const std::string totals =
      "Total lines automatically splitted: 0\r\nTotal caption collisions: 0\r\n"
      "Total caption durations outside range: 0\r\nTotal lines removed: 1\r\n\r\n";
  EXPECT_EQ(ToUtf8(ReportText(report, ReportForm::Standard)), totals + "CREDIT/LINK FOUND [3] line deleted\r\n");
  EXPECT_EQ(ToUtf8(ReportText(report, ReportForm::Detailed)), totals + ToUtf8(report.Detailed(0)) + "\r\n---\r\n");
  EXPECT_EQ(ReportTotal(report, strings), u"Total errors and warnings: 1");
  report.ResetRuleReport();
  EXPECT_EQ(ReportTotal(report, strings), u"Total errors and warnings: 0");
}

TEST_F(ReportEntries, PastAFullCounterFailWithTheTextsThere) {
  for (int i = 0; i < 32767; ++i) report.AddRuleEntry(1, u"t", RuleKind::Credit, 0, false);
  EXPECT_THROW(report.AddRuleEntry(1, u"t", RuleKind::Credit, 0, false), RuntimeError);
  EXPECT_EQ(report.RuleEntryCount(), 32767);
  EXPECT_EQ(report.Size(), 32768u);
}

}  // namespace
}  // namespace cuewright

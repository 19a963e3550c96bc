#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

/// A collision of 500 ms, a caption of three lines, a link, and one that is shown for no time.
constexpr std::string_view kFaulty =
    "1\r\n00:00:01,000 --> 00:00:03,000\r\nGood evening, Inspector.\r\n\r\n"
    "2\r\n00:00:02,500 --> 00:00:05,000\r\nNobody leaves\r\nthis house\r\ntonight.\r\n\r\n"
    "3\r\n00:00:06,000 --> 00:00:08,000\r\nfrom www.example.org\r\n\r\n"
    "4\r\n00:00:10,000 --> 00:00:10,000\r\nWhy?\r\n\r\n";

constexpr std::string_view kHeading =
    "Accordingly to the current correction rules, the following errors were found in the opened subtitle file.\n\n";
constexpr std::string_view kTotals =
    "Total lines automatically splitted: 1\nTotal caption collisions: 1\n"
    "Total caption durations outside range: 1\nTotal lines removed: 1\n\n";

TEST_F(BatchTest, RulesPrintsTheReportAsItsWindowShowsIt) {
  Write("a.srt", kFaulty);
  const ProcessResult result = Batch({"rules", "a.srt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.out, std::string(kHeading) + std::string(kTotals) +
                            "CAPTION EXCEEDS 2 LINES [2] auto-corrected\n"
                            "LINE COLLISION [2] appear time increased 500 ms\n"
                            "CREDIT/LINK FOUND [3] line deleted\n"
                            "NEGATIVE DURATION [3] caption duration set to 1000 ms\n\n"
                            "Total errors and warnings: 4\n");
  EXPECT_EQ(Read("a.srt"), kFaulty);
  EXPECT_EQ(Batch({"rules", "--standard", "a.srt"}).out, result.out);
}

TEST_F(BatchTest, RulesPrintsTheDetailedReport) {
  Write("a.srt", kFaulty);
  const std::string out = Batch({"rules", "a.srt", "--detailed"}).out;
  EXPECT_TRUE(
      out.starts_with(std::string(kHeading) + std::string(kTotals) +
                      "Error number 1 found in caption: [2]\n ·Text: \"Nobody leaves|this house|tonight.\"\n"
                      " ·Warning: Caption exceeds 2 lines\n ·Action taken: Caption automatically splitted\n---\n"
                      "Error number 2 found in caption: [2]\n"))
      << out;
  EXPECT_TRUE(out.ends_with("Duration time set to 1000 milliseconds\n---\n\nTotal errors and warnings: 4\n")) << out;
}

TEST_F(BatchTest, RulesSaysSoWhenThereIsNothingToCorrect) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch({"rules", "a.srt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out,
            "No errors identified in the opened subtitle file, or the file has not been scanned.\n\n"
            "Total lines automatically splitted: 0\nTotal caption collisions: 0\n"
            "Total caption durations outside range: 0\nTotal lines removed: 0\n\n"
            "Total errors and warnings: 0\n");
}

TEST_F(BatchTest, RulesTakesItsSettingsFromTheCall) {
  Write("a.srt", kFaulty);
  const std::string out =
      Batch({"rules", "a.srt", "--set", "Cuewright/AutoSplit=0", "--set", "Cuewright/Collision=0", "--set",
             "Cuewright/AutoJoin=0", "--set", "Cuewright/Duration=0", "--set", "Cuewright/T_CREDITSTEXT=inspector"})
          .out;
  EXPECT_NE(out.find("CREDIT/LINK FOUND [1] line deleted\n\nTotal errors and warnings: 1\n"), std::string::npos) << out;
}

TEST_F(BatchTest, RulesWritesTheCorrectedCaptions) {
  Write("a.srt", kFaulty);
  const ProcessResult result = Batch({"rules", "a.srt", "--out", "b.srt", "--to", "SUBRIP"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Batch({"dump", "b.srt"}).out,
            "1\t1000\t3000\tGood evening, Inspector.\n"
            "2\t3000\t5000\tNobody leaves|this house tonight.\n"
            "3\t10000\t11000\tWhy?\n");
}

TEST_F(BatchTest, RulesPrintsJson) {
  Write("a.srt", kFaulty);
  EXPECT_EQ(
      Batch({"rules", "a.srt", "--json", "--set", "Cuewright/Duration=0", "--out", "b.sub", "--to", "MICRODVD"}).out,
      "{\"file\":\"a.srt\",\"format\":\"SUBRIP\",\"captions\":3,\"split\":1,\"collisions\":1,\"durations\":0,"
      "\"removed\":1,\"total\":3,\"entries\":[\"CAPTION EXCEEDS 2 LINES [2] auto-corrected\",\"LINE COLLISION [2] "
      "appear time increased 500 ms\",\"CREDIT/LINK FOUND [3] line deleted\"],\"to\":\"MICRODVD\",\"out\":\"b.sub\","
      "\"written\":true,\"messages\":[]}\n");
}

TEST_F(BatchTest, RulesTellsAStepThatFailed) {
  Write("a.srt", "1\r\n00:00:01,000 --> 00:10:03,000\r\n" + std::string(900, 'x') + "\r\n\r\n" + std::string(kSubRip));
  const ProcessResult result = Batch({"rules", "a.srt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "a.srt: Error while applying rules. Please check the report for details.\n");
}

TEST_F(BatchTest, RulesNeedsOneFileAndBothOfOutAndTo) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"rules"}).status, 2);
  EXPECT_EQ(Batch({"rules", "a.srt", "a.srt"}).status, 2);
  EXPECT_EQ(Batch({"rules", "a.srt", "--out", "b.srt"}).status, 2);
  EXPECT_EQ(Batch({"rules", "a.srt", "--to", "SUBRIP"}).status, 2);
  EXPECT_EQ(Batch({"rules", "a.srt", "--out", "b.srt", "--to", "NONE"}).status, 2);
  EXPECT_EQ(Batch({"rules", "a.srt", "--folder", "b"}).status, 2);
  EXPECT_EQ(Batch({"rules", "missing.srt"}).status, 1);
  EXPECT_FALSE(Exists("b.srt"));
}

TEST_F(BatchTest, RulesFailsWhenTheResultCannotBeWritten) {
  Write("a.srt", kFaulty);
  EXPECT_EQ(Batch({"rules", "a.srt", "--out", "no/such/folder/b.srt", "--to", "SUBRIP"}).status, 1);
}

TEST_F(BatchTest, ConvertRunsTheRulesOnTheWay) {
  Write("a.srt", kFaulty);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SUBRIP", "--out", "b.srt", "--rules"}).status, 0);
  EXPECT_EQ(Batch({"dump", "b.srt"}).out,
            "1\t1000\t3000\tGood evening, Inspector.\n"
            "2\t3000\t5000\tNobody leaves|this house tonight.\n"
            "3\t10000\t11000\tWhy?\n");
}

TEST_F(BatchTest, HelpTellsOfTheRules) {
  EXPECT_NE(Batch({"rules", "--help"}).out.find("--detailed"), std::string::npos);
  EXPECT_NE(Batch({"convert", "--help"}).out.find("--rules"), std::string::npos);
}

}  // namespace
}  // namespace cuewright::test

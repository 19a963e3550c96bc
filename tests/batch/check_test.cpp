#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

constexpr std::string_view kFaulty =
    "1\n00:00:01,000 --> 00:00:01,500\nThis line is much too long for the\nhouse\n\n"
    "2\n00:00:01,520 --> 00:00:04,000\n- Yes.\n- No.\n\n";

TEST_F(BatchTest, ProfilesListsTheHouseRules) {
  const ProcessResult result = Batch({"profiles"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  EXPECT_NE(result.out.find("\nplain\tPlain\t\t20"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("\nstreaming-ar\tStreaming, Arabic\tar\t"), std::string::npos);
  EXPECT_NE(Batch({"profiles", "--json"}).out.find("{\"profile\":\"talks\",\"name\":\"Conference talks\""),
            std::string::npos);
}

TEST_F(BatchTest, CheckPrintsALineAFindingAndEndsWithThree) {
  Write("a.srt", kFaulty);
  const ProcessResult result = Batch({"check", "a.srt", "--profile", "streaming-en"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.out,
            "1\tmin-duration\t500\t833\n1\tcps\t78\t20\n1\tline-end\tthe\t\n2\tgap\t20\t83\n2\tdash\t- \t-\n");
}

TEST_F(BatchTest, CheckCountsFramesAtTheRateOfTheCall) {
  Write("a.srt", kFaulty);
  const std::string at50 = Batch({"check", "a.srt", "--profile", "streaming-en", "--fps", "50"}).out;
  EXPECT_NE(at50.find("2\tgap\t20\t80\n"), std::string::npos) << at50;
}

TEST_F(BatchTest, CheckPrintsJson) {
  Write("a.srt", kFaulty);
  const ProcessResult result = Batch({"check", "a.srt", "--profile", "PLAIN", "--json"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out,
            "{\"row\":1,\"rule\":\"min-duration\",\"value\":500,\"limit\":1000}\n"
            "{\"row\":1,\"rule\":\"cps\",\"value\":78,\"limit\":20}\n"
            "{\"row\":2,\"rule\":\"gap\",\"value\":20,\"limit\":83}\n");
}

TEST_F(BatchTest, CheckIsSilentOverAFileInOrder) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch({"check", "a.srt", "--profile", "plain"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.error, "");
}

TEST_F(BatchTest, CheckOfAFileThatWasNotReadWholeFails) {
  Write("a.sub", std::string(kMicroDvd) + "what is this\r\n");
  const ProcessResult result = Batch({"check", "a.sub", "--profile", "plain"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.error.find("was not understood"), std::string::npos) << result.error;
}

TEST_F(BatchTest, CheckNeedsAProfileThatThereIs) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"check", "a.srt"}).status, 2);
  const ProcessResult result = Batch({"check", "a.srt", "--profile", "nobody"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.error,
            "cuewright-batch: there are no house rules 'nobody'; 'cuewright-batch profiles' lists them.\n");
}

}  // namespace
}  // namespace cuewright::test

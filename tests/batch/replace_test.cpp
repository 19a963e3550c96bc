#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

class ReplaceCommand : public BatchTest {
 protected:
  ProcessResult Replace(std::vector<std::string> options) {
    options.insert(options.begin(), {"replace", "a.srt", "--out", "b.srt"});
    return Batch(options);
  }
};

TEST_F(ReplaceCommand, ReplacesInAllCaptionsAndCountsThem) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Replace({"--find", "THIS", "--with", "that"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "1 caption changed\n");
  EXPECT_EQ(LinesOf(Batch({"dump", "b.srt"}).out).at(1),
            "2\t16000\t19800\t<i>Nobody leaves that house|until the storm has passed.");
  EXPECT_EQ(Replace({"--find", "e", "--with", "E"}).out, "2 captions changed\n");
  EXPECT_EQ(Replace({"--find", "THIS", "--with", "that", "--case"}).out, "0 captions changed\n");
  EXPECT_EQ(Replace({"--find", "i", "--with", "x", "--rows", "1"}).out, "1 caption changed\n");
  EXPECT_EQ(Batch({"dump", "b.srt"}).out.find("<x>"), std::string::npos);
}

TEST_F(ReplaceCommand, TakesRegularExpressionsWithGroups) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Replace({"--find", "(\\w+) house\\nuntil", "--with", "$1 place|till", "--regex"}).status, 0);
  EXPECT_NE(Batch({"dump", "b.srt"}).out.find("leaves this place|till the storm"), std::string::npos);
}

TEST_F(ReplaceCommand, RefusesWhatMakesNoSense) {
  Write("a.srt", kSubRip);
  const std::pair<std::vector<std::string>, std::string> calls[] = {
      {{"--with", "x"}, "needs --find"},
      {{"--find", "", "--with", "x"}, "needs --find"},
      {{"--find", "x"}, "needs --with"},
      {{"--find", "(", "--with", "x", "--regex"}, "--find '(' is no regular expression"},
      {{"--find", "a", "--with", "$1", "--regex"}, "names a group"},
      {{"--find", "a", "--with", "b", "--rows", "x"}, "--rows takes"},
  };
  for (const auto& [options, complaint] : calls) {
    const ProcessResult result = Replace(options);
    EXPECT_EQ(result.status, 2) << complaint;
    EXPECT_NE(result.error.find(complaint), std::string::npos) << result.error;
    EXPECT_FALSE(Exists("b.srt")) << complaint;
  }
}

TEST_F(ReplaceCommand, GivesUpAPatternThatNeverEnds) {
  Write("a.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\n" + std::string(64, 'a') + "!\r\n\r\n");
  const ProcessResult result = Replace({"--find", "(a+)+$", "--with", "x", "--regex"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.error.find("takes too long"), std::string::npos) << result.error;
  EXPECT_FALSE(Exists("b.srt"));
}

TEST_F(ReplaceCommand, SumsUpInJson) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Replace({"--find", "storm", "--with", "rain", "--json"}).out,
            "{\"file\":\"a.srt\",\"format\":\"SUBRIP\",\"captions\":2,\"changed\":1,\"out\":\"b.srt\","
            "\"written\":true,\"messages\":[]}\n");
}

}  // namespace
}  // namespace cuewright::test

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

constexpr std::string_view kThree =
    "1\r\n00:00:10,000 --> 00:00:12,000\r\nOne\r\n\r\n"
    "2\r\n00:00:20,000 --> 00:00:22,000\r\nTwo\r\n\r\n"
    "3\r\n00:00:40,000 --> 00:00:42,000\r\nThree\r\n\r\n";

class RetimeCommand : public BatchTest {
 protected:
  /// The times of three captions after a call with these options, "start-end" each.
  std::string TimesAfter(std::vector<std::string> options) {
    Write("a.srt", kThree);
    options.insert(options.begin(), {"retime", "a.srt", "--out", "b.srt"});
    const ProcessResult result = Batch(options);
    EXPECT_EQ(result.status, 0) << result.error;
    std::string times;
    for (const std::string& line : LinesOf(Batch({"dump", "b.srt"}).out)) {
      const std::vector<std::string> fields = FieldsOf(line);
      times += (times.empty() ? "" : " ") + fields.at(1) + "-" + fields.at(2);
    }
    return times;
  }
};

TEST_F(RetimeCommand, ShiftsForthAndBack) {
  EXPECT_EQ(TimesAfter({"--shift", "1500"}), "11500-13500 21500-23500 41500-43500");
  EXPECT_EQ(TimesAfter({"--shift", "-1500"}), "8500-10500 18500-20500 38500-40500");
  EXPECT_EQ(TimesAfter({"--shift=+1"}), "10001-12001 20001-22001 40001-42001");
}

TEST_F(RetimeCommand, MultipliesByARatio) {
  EXPECT_EQ(TimesAfter({"--speed", "25/24"}), "10417-12500 20833-22917 41667-43750");
  EXPECT_EQ(TimesAfter({"--speed", "1.5"}), "15000-18000 30000-33000 60000-63000");
  EXPECT_EQ(TimesAfter({"--speed", "1,25/2.5"}), "5000-6000 10000-11000 20000-21000");
}

TEST_F(RetimeCommand, KeepsFramesFromOneRateToAnother) {
  EXPECT_EQ(TimesAfter({"--fps-from", "25", "--fps-to", "23.976"}), "10427-12513 20854-22940 41708-43794");
  EXPECT_EQ(TimesAfter({"--fps-from", "23,976", "--fps-to", "24"}), "9990-11988 19980-21978 39960-41958");
}

TEST_F(RetimeCommand, GoesThroughPoints) {
  EXPECT_EQ(TimesAfter({"--point", "2=25000"}), "15000-17000 25000-27000 45000-47000");
  EXPECT_EQ(TimesAfter({"--point", "1=10000", "--point", "3=70000"}), "10000-14000 30000-34000 70000-74000");
  EXPECT_EQ(TimesAfter({"--point", "1=10000", "--point", "2=30000", "--point", "3=40000"}),
            "10000-14000 30000-31000 40000-41000");
}

TEST_F(RetimeCommand, TouchesOnlyTheRowsAskedFor) {
  EXPECT_EQ(TimesAfter({"--shift", "100", "--rows", "2-3"}), "10000-12000 20100-22100 40100-42100");
  EXPECT_EQ(TimesAfter({"--shift", "100", "--rows", "2"}), "10000-12000 20100-22100 40000-42000");
  EXPECT_EQ(TimesAfter({"--shift", "100", "--rows", "3-"}), "10000-12000 20000-22000 40100-42100");
  EXPECT_EQ(TimesAfter({"--shift", "100", "--rows=-2"}), "10100-12100 20100-22100 40000-42000");
  EXPECT_EQ(TimesAfter({"--shift", "100", "--rows", "7-9"}), "10000-12000 20000-22000 40000-42000");
}

TEST_F(RetimeCommand, TellsWhatWouldLieBeforeTheFilm) {
  Write("a.srt", kThree);
  const ProcessResult result = Batch({"retime", "a.srt", "--shift", "-11000", "--out", "a.srt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "3 captions changed\n");
  EXPECT_NE(result.error.find("1 caption would begin before 0"), std::string::npos) << result.error;
  EXPECT_EQ(LinesOf(Batch({"dump", "a.srt"}).out).at(0), "1\t0\t1000\tOne");
}

TEST_F(RetimeCommand, WritesTheFilesOwnFormatUnlessAnotherIsNamed) {
  Write("a.sub", "{1}{1}23.976\r\n{24}{48}x\r\n");
  EXPECT_EQ(Batch({"retime", "a.sub", "--shift", "1001", "--out", "b.sub"}).status, 0);
  EXPECT_EQ(Read("b.sub"), "{1}{1}23.976\r\n{48}{72}x\r\n");
  EXPECT_EQ(Batch({"retime", "a.sub", "--shift", "0", "--out", "b.srt", "--to", "subrip"}).status, 0);
  EXPECT_EQ(Read("b.srt"), "1\r\n00:00:01,001 --> 00:00:02,002\r\nx\r\n\r\n");
}

TEST_F(RetimeCommand, SumsUpInJson) {
  Write("a.srt", kThree);
  EXPECT_EQ(Batch({"retime", "a.srt", "--shift", "5", "--rows", "1-2", "--out", "b.srt", "--json"}).out,
            "{\"file\":\"a.srt\",\"format\":\"SUBRIP\",\"captions\":3,\"changed\":2,\"out\":\"b.srt\","
            "\"written\":true,\"messages\":[]}\n");
  const ProcessResult missing = Batch({"retime", "none.srt", "--shift", "5", "--out", "b.srt", "--json"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.out.find("\"format\":null,\"captions\":0,\"changed\":0"), std::string::npos) << missing.out;
}

TEST_F(RetimeCommand, PutsTheResultOnTheOutputAndItsSentenceBesideIt) {
  Write("a.srt", "1\r\n00:00:10,000 --> 00:00:12,000\r\nOne\r\n\r\n");
  const ProcessResult result = Batch({"retime", "a.srt", "--shift", "5", "--out", "-"});
  EXPECT_EQ(result.out, "1\r\n00:00:10,005 --> 00:00:12,005\r\nOne\r\n\r\n");
  EXPECT_EQ(result.error, "1 caption changed\n");
}

TEST_F(RetimeCommand, RefusesWhatMakesNoSense) {
  Write("a.srt", kThree);
  const std::pair<std::vector<std::string>, std::string> calls[] = {
      {{}, "needs one of"},
      {{"--shift", "5", "--speed", "2"}, "needs one of"},
      {{"--shift", "1.5"}, "milliseconds"},
      {{"--shift", "9999999999"}, "milliseconds"},
      {{"--speed", "0/5"}, "ratio"},
      {{"--speed", "5/0"}, "ratio"},
      {{"--speed", "1/2/3"}, "ratio"},
      {{"--speed", "999999999/1.00000001"}, "nine digits"},
      {{"--fps-from", "25"}, "together"},
      {{"--fps-from", "25", "--fps-to", "500"}, "--fps-to takes a rate from 1 to 240"},
      {{"--point", "1"}, "--point takes"},
      {{"--point", "0=5"}, "--point takes"},
      {{"--point", "4=5"}, "there is no caption 4; the file has 3"},
      {{"--point", "1=5000", "--point", "1=6000"}, "begin at the same time"},
      {{"--point", "1=5000", "--point", "2=4000"}, "another order"},
      {{"--shift", "5", "--rows", "3-2"}, "--rows takes"},
      {{"--shift", "5", "--rows", "0-2"}, "--rows takes"},
      {{"--shift", "5", "--rows", "-"}, "--rows takes"},
      {{"--shift", "5", "--to", "NOFORMAT"}, "no format 'NOFORMAT'"},
  };
  for (const auto& [options, complaint] : calls) {
    std::vector<std::string> call = {"retime", "a.srt", "--out", "b.srt"};
    call.insert(call.end(), options.begin(), options.end());
    const ProcessResult result = Batch(call);
    EXPECT_EQ(result.status, 2) << complaint;
    EXPECT_NE(result.error.find(complaint), std::string::npos) << result.error;
    EXPECT_FALSE(Exists("b.srt")) << complaint;
  }
  EXPECT_NE(Batch({"retime", "a.srt", "--shift", "5"}).error.find("needs --out"), std::string::npos);
}

TEST_F(RetimeCommand, NeverWritesOverAFileThatWasNotReadWhole) {
  std::string bytes(kThree);
  for (int i = 0; i < 32100; ++i) bytes += "1\r\n00:00:50,000 --> 00:00:52,000\r\nx\r\n\r\n";
  Write("a.srt", bytes);
  const ProcessResult result = Batch({"retime", "a.srt", "--shift", "5", "--out", "a.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Read("a.srt"), bytes);
}

}  // namespace
}  // namespace cuewright::test

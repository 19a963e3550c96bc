#include <filesystem>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

/// So many captions of four lines each.
std::string ManyCaptions(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    text += std::to_string(i) + "\r\n00:00:01,000 --> 00:00:02,000\r\nx\r\n\r\n";
  }
  return text;
}

/// Frames with a line in the middle that is too long to be read; it is line 3.
std::string WithALongLine() {
  return "{25}{50}one\r\n{75}{100}two\r\n{110}{120}" + std::string(300, 'x') + "\r\n{125}{150}last\r\n";
}

TEST_F(BatchTest, AFileThatWasCutOffFailsWithItsLineAndIsNeverWrittenOver) {
  const std::string whole = ManyCaptions(33000);
  Write("long.srt", whole);
  const ProcessResult result = Batch({"convert", "long.srt", "--to", "SUBRIP", "--out", "long.srt"});
  EXPECT_EQ(result.status, 1);
  // The first caption that was not read begins on line 4 * 32100 + 1.
  EXPECT_EQ(result.error.substr(0, 55), "long.srt:128401: File loading has been suspended becaus");
  EXPECT_NE(result.error.find("\nlong.srt: Not written: long.srt was not read whole."), std::string::npos);
  EXPECT_EQ(Read("long.srt"), whole);
  EXPECT_EQ(Batch({"convert", "long.srt", "--to", "SUBRIP", "--folder", "."}).status, 1);
  EXPECT_EQ(Read("long.srt"), whole);
  EXPECT_EQ(Batch({"rules", "long.srt", "--to", "SUBRIP", "--out", "long.srt"}).status, 1);
  EXPECT_EQ(Read("long.srt"), whole);
  EXPECT_EQ(Batch({"dump", "long.srt", "--quiet"}).status, 1);
}

TEST_F(BatchTest, AnErrorOfALoadFailsWithItsLineAndIsNeverWrittenOver) {
  Write("a.sub", WithALongLine());
  std::filesystem::create_symlink("a.sub", PathOf("link.sub"));
  for (const std::string out : {"a.sub", "link.sub"}) {
    const ProcessResult result = Batch({"convert", "a.sub", "--to", "MICRODVD", "--out", out, "--classic"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(LinesOf(result.error).size(), 2u) << result.error;
    EXPECT_EQ(LinesOf(result.error)[0], "a.sub:3: An error ocurred while loading the file a.sub. Error #6: Overflow");
    EXPECT_EQ(Read("a.sub"), WithALongLine());
  }
}

TEST_F(BatchTest, AFileReadWithAnErrorIsWrittenElsewhereButCountsAsFailed) {
  Write("a.sub", WithALongLine());
  EXPECT_EQ(Batch({"convert", "a.sub", "--to", "SUBRIP", "--out", "a.srt", "--classic"}).status, 1);
  EXPECT_NE(Read("a.srt").find("last"), std::string::npos);
  EXPECT_EQ(Batch({"dump", "a.sub", "--classic"}).status, 1);
  EXPECT_EQ(Batch({"rules", "a.sub", "--classic"}).status, 1);
}

TEST_F(BatchTest, TheLineOfAnErrorIsTheFilesOwnWhateverEndsItsLines) {
  const std::string frames = WithALongLine();
  std::string plain;
  std::string wide = "\xFF\xFE";
  for (const char c : frames) {
    if (c != '\r') plain += c;
    wide += std::string{c, '\0'};
  }
  Write("plain.sub", plain);
  Write("wide.sub", wide);
  EXPECT_EQ(Batch({"dump", "plain.sub", "--classic"}).error.substr(0, 12), "plain.sub:3:");
  EXPECT_EQ(Batch({"dump", "wide.sub", "--classic"}).error.substr(0, 11), "wide.sub:3:");
}

using BatchStreams = ShellTest;

TEST_F(BatchStreams, TheOutputsOwnNamesAreWrittenOnAndNeverReplaced) {
  Write("a.srt", kSubRip);
  for (const std::string name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1", "-"}) {
    SCOPED_TRACE(name);
    Write("log", "what stood there\n");
    EXPECT_EQ(Shell("\"$B\" convert a.srt --to MICRODVD --out " + name + " >> log").status, 0);
    EXPECT_EQ(Read("log"), "what stood there\n" + std::string(kMicroDvd));
    EXPECT_EQ(Shell("\"$B\" convert a.srt --to MICRODVD --out " + name + " | cat").out, kMicroDvd);
  }
}

TEST_F(BatchStreams, AHyphenIsTheStandardInput) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Shell("cat a.srt | \"$B\" dump -").out, kDumped);
  EXPECT_EQ(Shell("\"$B\" dump - < a.srt").out, kDumped);
  EXPECT_EQ(Shell("cat a.srt | \"$B\" convert - --to MICRODVD --out -").out, kMicroDvd);
  EXPECT_EQ(Shell("cat a.srt | \"$B\" detect -").out, "-\tSUBRIP\n");
  EXPECT_FALSE(Exists("-"));
}

TEST_F(BatchStreams, AFileThatIsReadIsNoOutputBehindIt) {
  Write("a.srt", kSubRip);
  for (const std::string name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
    const ProcessResult result = Shell("\"$B\" convert a.srt --to SUBRIP --out " + name + " >> a.srt");
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_EQ(Read("a.srt"), kSubRip) << name;
  }
}

TEST_F(BatchStreams, WhatIsToldStaysOutOfTheFileOnTheOutput) {
  Write("a.srt", kSubRip);
  const ProcessResult json = Shell("\"$B\" convert a.srt --to MICRODVD --out - --json");
  EXPECT_EQ(json.out, kMicroDvd);
  EXPECT_EQ(json.error.substr(0, 16), "{\"file\":\"a.srt\",");
  const ProcessResult rules = Shell("\"$B\" rules a.srt --to MICRODVD --out -");
  EXPECT_EQ(rules.out.substr(0, 10), "{310}{380}");
  EXPECT_EQ(rules.status, 0);
}

TEST_F(BatchStreams, SettingsThatCantBeReadAreTold) {
  Write("a.srt", kSubRip);
  // Larger than any file of settings may be.
  Write("huge.ini", std::string(20 << 20, '\n'));
  const ProcessResult result = Shell("\"$B\" dump a.srt --settings huge.ini");
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.error.find("huge.ini"), std::string::npos) << result.error;
}

TEST_F(BatchStreams, AFullOutputFails) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Shell("\"$B\" convert a.srt --to MICRODVD --out - > /dev/full").status, 1);
}

TEST_F(BatchTest, ALineThatIsNotUnderstoodIsToldAlsoWhenQuietAndStaysInTheFile) {
  const std::string file = "1\n00:00:01,000 --> 00:00:02,000\none\n\n2\n00:00:x3,000 --> 00:00:04,000\nlost\n";
  Write("a.srt", file);
  for (const char* const loud : {"--quiet", "--json"}) {
    const ProcessResult result = Batch({"dump", "a.srt", loud});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "a.srt:6: this line was not understood\na.srt:7: this line was not understood\n");
  }
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SUBRIP", "--out", "b.srt"}).status, 1);
  EXPECT_EQ(Read("b.srt"), file);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SUBRIP", "--out", "a.srt"}).status, 1);
  EXPECT_EQ(Batch({"dump", "a.srt", "--classic"}).status, 0);
}

TEST_F(BatchTest, AFileWithALineThatIsNotUnderstoodIsNeverWrittenOver) {
  const std::string file =
      "1\n00:00:01,000 --> 00:00:02,000\none\n\n2\n00:00:x3,000 --> 00:00:04,000\nlost\n\n"
      "3\n00:00:05,000 --> 00:00:06,000\nthree\n";
  Write("a.srt", file);
  std::filesystem::create_symlink("a.srt", PathOf("link.srt"));
  const std::vector<std::vector<std::string>> commands = {{"convert"},
                                                          {"convert", "--to", "MICRODVD"},
                                                          {"convert", "--rules"},
                                                          {"retime", "--shift", "100"},
                                                          {"replace", "--find", "one", "--with", "two"}};
  for (const std::vector<std::string>& command : commands) {
    for (const std::string out : {"a.srt", "./a.srt", "link.srt"}) {
      std::vector<std::string> call = command;
      call.insert(call.end(), {"a.srt", "--out", out});
      const ProcessResult result = Batch(call);
      EXPECT_EQ(result.status, 1) << command[0] << " " << out;
      EXPECT_NE(result.error.find("was not read whole"), std::string::npos) << result.error;
      EXPECT_EQ(Read("a.srt"), file) << command[0] << " " << out;
    }
  }
  EXPECT_EQ(Batch({"convert", "a.srt", "--folder", "."}).status, 1);
  EXPECT_EQ(Read("a.srt"), file);
}

}  // namespace
}  // namespace cuewright::test

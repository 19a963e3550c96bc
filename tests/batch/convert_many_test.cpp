#include <filesystem>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

/// Many small files, a few of which are bad.
class ConvertMany : public ShellTest {
 protected:
  static constexpr int kFiles = 60;

  ConvertMany() {
    std::filesystem::create_directory(PathOf("in"));
    std::filesystem::create_directory(PathOf("out"));
    for (int i = 0; i < kFiles; ++i) {
      Write(Input(i), i % 7 == 3 ? "no subtitle\n" : std::string(kSubRip));
      names_ += Input(i) + "\n";
    }
  }

  static std::string Input(int i) { return "in/" + std::to_string(100 + i) + ".srt"; }
  static std::string Result(int i) { return "out/" + std::to_string(100 + i) + ".sub"; }

  std::string names_;
};

TEST_F(ConvertMany, TellsEverythingInTheOrderOfTheInputs) {
  Write("names", names_);
  const std::vector<std::string> call = {"convert",  "--files-from", "names", "--to",
                                         "MICRODVD", "--folder",     "out",   "--json"};
  std::vector<std::string> one = call;
  one.insert(one.end(), {"--jobs", "1"});
  const ProcessResult single = Batch(one);
  EXPECT_EQ(single.status, 1);
  EXPECT_NE(single.error.find("60 files, 51 written, 9 failed\n"), std::string::npos) << single.error;
  ASSERT_EQ(LinesOf(single.out).size(), std::size_t{kFiles});
  for (int i = 0; i < kFiles; ++i) {
    EXPECT_NE(LinesOf(single.out)[static_cast<std::size_t>(i)].find(Input(i)), std::string::npos);
    EXPECT_EQ(Exists(Result(i)), i % 7 != 3);
    EXPECT_EQ(Exists(Result(i)) ? Read(Result(i)) : std::string(kMicroDvd), kMicroDvd);
  }
  for (const char* jobs : {"2", "7"}) {
    std::vector<std::string> several = call;
    several.insert(several.end(), {"--jobs", jobs});
    const ProcessResult result = Batch(several);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, single.out) << jobs;
    EXPECT_EQ(result.error, single.error) << jobs;
  }
  EXPECT_EQ(Batch(call).out, single.out);
}

TEST_F(ConvertMany, TakesNamesFromTheInputBehindThoseOfTheCall) {
  Write("names", "in/101.srt\r\n\nin/102.srt");
  const ProcessResult result = Shell("cat names | \"$B\" convert in/100.srt --files-from - --to SAMI --folder out");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "3 files, 3 written, 0 failed\n");
  for (const char* name : {"out/100.smi", "out/101.smi", "out/102.smi"}) EXPECT_TRUE(Exists(name)) << name;
}

TEST_F(ConvertMany, GivesAResultToTheFirstInputThatCanHaveIt) {
  std::filesystem::create_directory(PathOf("more"));
  Write("more/100.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nother\r\n\r\n");
  Write("more/103.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nother\r\n\r\n");
  const ProcessResult result = Batch({"convert", "in/100.srt", "in/103.srt", "more/100.srt", "more/103.srt", "--to",
                                      "MICRODVD", "--folder", "out", "--jobs", "4"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Read("out/100.sub"), kMicroDvd);
  EXPECT_EQ(Read("out/103.sub"), "{25}{50}other\r\n");
  EXPECT_NE(result.error.find("more/100.srt: Not written"), std::string::npos) << result.error;
  EXPECT_NE(result.error.find("4 files, 2 written, 2 failed\n"), std::string::npos) << result.error;
}

TEST_F(ConvertMany, IsQuietWhenAsked) {
  EXPECT_EQ(Batch({"convert", Input(0), Input(1), "--to", "SAMI", "--folder", "out", "--quiet"}).error, "");
}

TEST_F(ConvertMany, RefusesCallsThatMakeNoSense) {
  const std::pair<std::vector<std::string>, std::string> calls[] = {
      {{"--folder", "out"}, "needs a file"},
      {{"in/100.srt", "--folder", "out", "--jobs", "0"}, "--jobs takes"},
      {{"in/100.srt", "--folder", "out", "--jobs", "many"}, "--jobs takes"},
      {{"--files-from", "in/100.srt", "--out", "x"}, "one file only"},
      {{"--files-from", "none", "--folder", "out"}, "--files-from: "},
  };
  for (const auto& [options, complaint] : calls) {
    std::vector<std::string> call = {"convert"};
    call.insert(call.end(), options.begin(), options.end());
    const ProcessResult result = Batch(call);
    EXPECT_EQ(result.status, 2) << complaint;
    EXPECT_NE(result.error.find(complaint), std::string::npos) << result.error;
  }
}

TEST_F(ConvertMany, KeepsEachFilesOwnFormatAndNameWithoutAnother) {
  Write("in/a.sub", kMicroDvd);
  const std::string untouched = "1\n00:00:01,500 --> 00:00:02,000\n{\\an8}Plain <font color=\"red\">red</font>\n\n";
  Write("in/b.srt", untouched);
  EXPECT_EQ(Batch({"convert", "in/a.sub", "in/b.srt", "--folder", "out"}).status, 0);
  EXPECT_EQ(Read("out/a.sub"), kMicroDvd);
  EXPECT_EQ(Read("out/b.srt"), untouched);
  EXPECT_EQ(Batch({"convert", "in/b.srt", "--out", "c.srt"}).status, 0);
  EXPECT_EQ(Read("c.srt"), untouched);
  EXPECT_NE(Batch({"convert", "in/a.sub", "--out", "c.sub", "--json"}).out.find("\"to\":\"MICRODVD\""),
            std::string::npos);
}

}  // namespace
}  // namespace cuewright::test

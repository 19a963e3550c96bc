#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

struct UsageCase {
  std::vector<std::string> arguments;
  std::string complaint;  // a part of it
};

class WrongUsage : public BatchTest, public testing::WithParamInterface<UsageCase> {};

TEST_P(WrongUsage, EndsWithStatus2AndSaysWhatIsWrong) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch(GetParam().arguments);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.error.find(GetParam().complaint), std::string::npos) << result.error;
}

INSTANTIATE_TEST_SUITE_P(
    Batch, WrongUsage,
    testing::Values(UsageCase{{}, "no command"}, UsageCase{{"frobnicate"}, "no command 'frobnicate'"},
                    UsageCase{{"formats", "a.srt"}, "takes no file"}, UsageCase{{"detect"}, "needs a file"},
                    UsageCase{{"dump"}, "needs a file"}, UsageCase{{"dump", "a.srt", "a.srt"}, "one file only"},
                    UsageCase{{"detect", ""}, "file name is empty"},
                    UsageCase{{"detect", "a.srt", "--what"}, "no option '--what'"},
                    UsageCase{{"detect", "a.srt", "--to", "SAMI"}, "no option '--to'"},
                    UsageCase{{"detect", "a.srt", "--fps"}, "--fps needs a value"},
                    UsageCase{{"detect", "a.srt", "--json=yes"}, "takes no value"},
                    UsageCase{{"dump", "a.srt", "--fps", "0"}, "1 to 240"},
                    UsageCase{{"dump", "a.srt", "--fps", "241"}, "1 to 240"},
                    UsageCase{{"dump", "a.srt", "--fps", "fast"}, "1 to 240"},
                    UsageCase{{"dump", "a.srt", "--fps", "25.0.0"}, "1 to 240"},
                    UsageCase{{"dump", "a.srt", "--fps", ""}, "1 to 240"},
                    UsageCase{{"dump", "a.srt", "--fps", "14", "--classic"}, "15 to 30"},
                    UsageCase{{"dump", "a.srt", "--fps", "31", "--classic"}, "15 to 30"},
                    UsageCase{{"dump", "a.srt", "--fps", "fast", "--classic"}, "15 to 30"},
                    UsageCase{{"dump", "a.srt", "--fps", "25.000000", "--classic"}, "15 to 30"},
                    UsageCase{{"dump", "a.srt", "--text", "modern"}, "auto, classic"},
                    UsageCase{{"dump", "a.srt", "--text", "classic:"}, "auto, classic"},
                    UsageCase{{"dump", "a.srt", "--text", "classic:latin"}, "auto, classic"},
                    UsageCase{{"dump", "a.srt", "--text", "classic:1234"}, "code page 1234"},
                    UsageCase{{"dump", "a.srt", "--set", "SAMI"}, "SECTION/KEY=VALUE"},
                    UsageCase{{"dump", "a.srt", "--set", "size=3"}, "SECTION/KEY=VALUE"},
                    UsageCase{{"dump", "a.srt", "--set", "/size=3"}, "SECTION/KEY=VALUE"},
                    UsageCase{{"dump", "a.srt", "--set", "SAMI/=3"}, "SECTION/KEY=VALUE"},
                    UsageCase{{"dump", "a.srt", "--separator", ""}, "--separator"},
                    UsageCase{{"dump", "a.srt", "--settings", "missing.ini"}, "missing.ini"},
                    UsageCase{{"formats", "--catalogue", "missing"}, "missing/formats.dat"},
                    UsageCase{{"convert", "a.srt", "--to", "SAMI"}, "either --out or --folder"},
                    UsageCase{{"convert", "a.srt", "--to", "SAMI", "--out", "b", "--folder", "."},
                              "either --out or --folder"},
                    UsageCase{{"convert", "a.srt", "b.srt", "--to", "SAMI", "--out", "b"}, "one file only"},
                    UsageCase{{"convert", "a.srt", "--to", "NOSUCH", "--out", "b"}, "NOSUCH"},
                    UsageCase{{"convert", "a.srt", "--to", "SAMI", "--out", "b", "--untimed", "maybe"}, "keep or drop"},
                    UsageCase{{"convert", "--to", "SAMI", "--folder", "."}, "needs a file"}),
    [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST_F(BatchTest, WrongUsageIsToldEvenWhenQuiet) {
  const ProcessResult result = Batch({"detect", "--quiet"});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.error.find("needs a file"), std::string::npos);
}

TEST_F(BatchTest, HelpGoesToTheOutput) {
  for (const std::vector<std::string>& call : {std::vector<std::string>{"--help"},
                                               {"help"},
                                               {"formats", "--help"},
                                               {"detect", "--help"},
                                               {"dump", "--help"},
                                               {"retime", "--help"},
                                               {"replace", "--help"},
                                               {"convert", "a.srt", "--help"}}) {
    const ProcessResult result = Batch(call);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_NE(result.out.find("--catalogue DIR"), std::string::npos);
  }
  EXPECT_NE(Batch({"convert", "--help"}).out.find("--untimed"), std::string::npos);
  EXPECT_EQ(Batch({"detect", "--help"}).out.find("--untimed"), std::string::npos);
}

/// The words that begin with two hyphens.
std::set<std::string> OptionsIn(const std::string& text) {
  static const std::regex option("--[a-z]+(-[a-z]+)*");
  return {std::sregex_token_iterator(text.begin(), text.end(), option), std::sregex_token_iterator()};
}

TEST_F(BatchTest, TheManualPageNamesEveryOption) {
  std::ifstream file(CUEWRIGHT_SOURCE_DIR "/docs/cuewright-batch.1");
  std::string page{std::istreambuf_iterator<char>(file), {}};
  std::erase(page, '\\');
  std::set<std::string> inHelp = OptionsIn(Batch({"convert", "--help"}).out);
  for (const std::string command : {"rules", "retime", "replace", "check", "shots", "fit", "align", "sync"})
    inHelp.merge(OptionsIn(Batch({command, "--help"}).out));
  EXPECT_GE(inHelp.size(), 14u);
  EXPECT_EQ(OptionsIn(page), inHelp);
}

TEST_F(BatchTest, TheProgramLinksNoWindowToolkit) {
  std::ifstream file(CUEWRIGHT_BIN_DIR "/cuewright-batch", std::ios::binary);
  const std::string program{std::istreambuf_iterator<char>(file), {}};
  ASSERT_NE(program.find("libstdc++.so"), std::string::npos);
  for (const char* library : {"libQt", "libX11", "libxcb", "libwayland", "libgtk"}) {
    EXPECT_EQ(program.find(library), std::string::npos) << library;
  }
}

TEST_F(BatchTest, VersionIsTheProducts) {
  const ProcessResult result = Batch({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "cuewright-batch 1.0.0\n");
}

TEST_F(BatchTest, BehindTwoHyphensEverythingIsAFile) {
  Write("--json", kSubRip);
  const ProcessResult result = Batch({"detect", "--", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "--json\tSUBRIP\n");
}

TEST_F(BatchTest, OptionsMayStandAnywhereAndCarryTheirValueBehindAnEqualsSign) {
  Write("a.sub", kMicroDvd);
  EXPECT_EQ(Batch({"dump", "--fps=20", "a.sub"}).out, Batch({"dump", "a.sub", "--fps", "20"}).out);
  EXPECT_NE(Batch({"dump", "--fps=20", "a.sub"}).out, Batch({"dump", "a.sub"}).out);
}

TEST_F(BatchTest, ResultsThatCannotBeWrittenAreAFailure) {
  Write("a.srt", kSubRip);
  ProcessOptions full;
  full.outPath = "/dev/full";
  EXPECT_EQ(Batch({"dump", "a.srt"}, full).status, 1);
}

}  // namespace
}  // namespace cuewright::test

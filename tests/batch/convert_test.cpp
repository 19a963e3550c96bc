#include <sys/stat.h>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

TEST_F(BatchTest, ConvertWritesTheOtherFormat) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch({"convert", "a.srt", "--to", "MICRODVD", "--out", "a.sub"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(Read("a.sub"), kMicroDvd);
}

TEST_F(BatchTest, ConvertStylesTheFirstLineAloneInTheClassicManner) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "--classic", "a.srt", "--to", "MICRODVD", "--out", "a.sub"}).status, 0);
  EXPECT_NE(Read("a.sub").find("{y:i}Nobody leaves this house|"), std::string::npos);
}

TEST_F(BatchTest, ConvertTakesTheIdentifierInAnyCase) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "MicroDVD", "--out", "a.sub"}).status, 0);
  EXPECT_EQ(Read("a.sub"), kMicroDvd);
}

TEST_F(BatchTest, ConvertUsesTheRateOfTheCall) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "MICRODVD", "--out", "a.sub", "--fps", "23,976"}).status, 0);
  EXPECT_EQ(Read("a.sub").substr(0, 24), "{1}{1}23.976\r\n{297}{364}");
  EXPECT_EQ(Batch({"dump", "a.sub"}).out.substr(0, 14), "1\t12387\t15182\t");
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "MICRODVD", "--out", "a.sub", "--fps", "23,976", "--classic"}).status,
            0);
  EXPECT_EQ(Read("a.sub").substr(0, 10), "{297}{364}");
}

TEST_F(BatchTest, ConvertKeepsTheRateThatAFileTells) {
  Write("a.sub", "{1}{1}29.97\r\n{30}{60}x\r\n");
  EXPECT_EQ(Batch({"convert", "a.sub", "--to", "MICRODVD", "--out", "b.sub"}).status, 0);
  EXPECT_EQ(Read("b.sub"), "{1}{1}29.97\r\n{30}{60}x\r\n");
  EXPECT_EQ(Batch({"convert", "a.sub", "--to", "MICRODVD", "--out", "b.sub", "--fps", "50"}).status, 0);
  EXPECT_EQ(Read("b.sub"), "{1}{1}50\r\n{50}{100}x\r\n");
}

TEST_F(BatchTest, ConvertNamesResultsInAFolderByTheFirstExtension) {
  Write("a.b.srt", kSubRip);
  Write("plain", kSubRip);
  std::filesystem::create_directory(PathOf("out"));
  EXPECT_EQ(Batch({"convert", "a.b.srt", "plain", "--to", "SAMI", "--folder", "out"}).status, 0);
  EXPECT_TRUE(Exists("out/a.b.smi"));
  EXPECT_TRUE(Exists("out/plain.smi"));
}

TEST_F(BatchTest, ConvertMayWriteOverItsOwnInput) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SUBRIP", "--out", "a.srt"}).status, 0);
  EXPECT_EQ(Batch({"dump", "a.srt"}).out, kDumped);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SUBRIP", "--folder", "."}).status, 0);
  EXPECT_EQ(Batch({"dump", "a.srt"}).out, kDumped);
}

TEST_F(BatchTest, ConvertNeverWritesOverAnotherInput) {
  Write("a.srt", kSubRip);
  Write("a.sub", "{25}{50}other\r\n{75}{100}words\r\n");
  const ProcessResult result = Batch({"convert", "a.sub", "a.srt", "--to", "SUBRIP", "--folder", "."});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.error.find("a.sub: "), std::string::npos) << result.error;
  EXPECT_EQ(Batch({"dump", "a.srt"}).out, kDumped);
}

TEST_F(BatchTest, ConvertNeverWritesOverAResultOfTheSameRun) {
  for (const std::string folder : {"one", "two", "out"}) std::filesystem::create_directory(PathOf(folder));
  Write("one/a.srt", kSubRip);
  Write("two/a.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nother\r\n\r\n");
  const ProcessResult result = Batch({"convert", "one/a.srt", "two/a.srt", "--to", "MICRODVD", "--folder", "out"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Read("out/a.sub"), kMicroDvd);
  EXPECT_NE(result.error.find("two/a.srt: "), std::string::npos) << result.error;
}

TEST_F(BatchTest, ConvertToAMissingFolderFails) {
  Write("a.srt", kSubRip);
  for (const std::vector<std::string>& target :
       {std::vector<std::string>{"--folder", "missing"}, {"--out", "missing/a.smi"}}) {
    const ProcessResult result = Batch({"convert", "a.srt", "--to", "SAMI", target[0], target[1]});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error.substr(0, 7), "a.srt: ");
    EXPECT_FALSE(Exists("missing"));
  }
}

TEST_F(BatchTest, ConvertLeavesAWriteProtectedFileAlone) {
  Write("a.srt", kSubRip);
  Write("a.smi", "mine");
  ::chmod(PathOf("a.smi").c_str(), 0444);
  const ProcessResult result = Batch({"convert", "a.srt", "--to", "SAMI", "--out", "a.smi"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Read("a.smi"), "mine");
  EXPECT_EQ(result.error, "a.srt: Failed to save file a.smi. The file is probably read-only.\n");
}

TEST_F(BatchTest, ConvertGoesOnBehindAFailedFile) {
  Write("bad.srt", "Only some words.\r\n");
  Write("good.srt", kSubRip);
  std::filesystem::create_directory(PathOf("out"));
  const ProcessResult result =
      Batch({"convert", "missing.srt", "bad.srt", "good.srt", "--to", "MICRODVD", "--folder", "out"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Read("out/good.sub"), kMicroDvd);
  EXPECT_FALSE(Exists("out/bad.sub"));
  EXPECT_FALSE(Exists("out/missing.sub"));
  const std::vector<std::string> lines = LinesOf(result.error);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[2], "3 files, 1 written, 2 failed");
}

constexpr std::string_view kHalfTimed =
    "1\r\n00:00:12,400 --> 00:00:15,200\r\none\r\n\r\n2\r\n00:00:00,000 --> 00:00:00,000\r\ntwo\r\n\r\n"
    "3\r\n00:00:16,000 --> 00:00:19,800\r\nthree\r\n\r\n";

TEST_F(BatchTest, UntimedCaptionsAreKeptUnlessDropped) {
  Write("a.srt", kHalfTimed);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "PIPES", "--out", "all.txt"}).status, 0);
  EXPECT_EQ(Read("all.txt"), "12400||15200||one||\r\n0||0||two||\r\n16000||19800||three||\r\n");
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "PIPES", "--out", "keep.txt", "--untimed", "keep"}).status, 0);
  EXPECT_EQ(Read("keep.txt"), Read("all.txt"));
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "PIPES", "--out", "drop.txt", "--untimed", "drop"}).status, 0);
  EXPECT_EQ(Read("drop.txt"), "12400||15200||one||\r\n");
}

TEST_F(BatchTest, SetGivesTheOptionsOfAHeader) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SAMI", "--out", "a.smi", "--set", "SAMI/size=31", "--set",
                   "SAMI/font=Courier"})
                .status,
            0);
  EXPECT_NE(Read("a.smi").find("font-size: 31pt;"), std::string::npos);
  EXPECT_NE(Read("a.smi").find("font-family: Courier;"), std::string::npos);
}

TEST_F(BatchTest, AHeaderNamesTheCharacterSetOfTheLocale) {
  Write("a.srt", kSubRip);
  const std::vector<std::string> call = {"convert", "a.srt", "--to", "SUBSTATIONALPHA", "--out", "a.ssa"};
  EXPECT_EQ(Batch(call).status, 0);
  EXPECT_NE(Read("a.ssa").find(",30,30,30,0,0\r\n"), std::string::npos);
  EXPECT_EQ(Batch(call, {}, "ru_RU.UTF-8").status, 0);
  EXPECT_NE(Read("a.ssa").find(",30,30,30,0,204\r\n"), std::string::npos);
}

TEST_F(BatchTest, SettingsFileGivesTheOptionsOfAHeader) {
  Write("a.srt", kSubRip);
  Write("user.ini", "[Brakemoor Works\\Cuewright\\SAMI]\nsize=44\n");
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SAMI", "--out", "a.smi"}).status, 0);
  EXPECT_NE(Read("a.smi").find("font-size: 18pt;"), std::string::npos);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SAMI", "--out", "a.smi", "--settings", "user.ini"}).status, 0);
  EXPECT_NE(Read("a.smi").find("font-size: 44pt;"), std::string::npos);
}

TEST_F(BatchTest, ConvertKeepsTheEncodingOfTheInput) {
  const std::string latin = "1\r\n00:00:12,400 --> 00:00:15,200\r\nO\xF9\r\n\r\n";
  Write("latin.srt", latin);
  EXPECT_EQ(Batch({"convert", "latin.srt", "--to", "SUBRIP", "--out", "out.srt", "--text", "classic:1252"}).status, 0);
  EXPECT_EQ(Read("out.srt"), latin);
  Write("mark.srt",
        "\xEF\xBB\xBF"
        "1\r\n00:00:12,400 --> 00:00:15,200\r\nOù\r\n\r\n");
  EXPECT_EQ(Batch({"convert", "mark.srt", "--to", "SUBRIP", "--out", "out.srt"}).status, 0);
  EXPECT_EQ(Read("out.srt"), Read("mark.srt"));
}

TEST_F(BatchTest, ConvertInJsonTellsWhatBecameOfEachFile) {
  Write("a.srt", kSubRip);
  Write("bad.srt", "Only some words.\r\n");
  std::filesystem::create_directory(PathOf("out"));
  const ProcessResult result =
      Batch({"convert", "a.srt", "bad.srt", "--to", "MICRODVD", "--folder", "out", "--json", "--quiet"});
  EXPECT_EQ(result.status, 1);
  const std::vector<std::string> lines = LinesOf(result.out);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], R"({"file":"a.srt","format":"SUBRIP","captions":2,"to":"MICRODVD","out":"out/a.sub",)"
                      R"("written":true,"messages":[]})");
  EXPECT_EQ(lines[1], R"({"file":"bad.srt","format":null,"captions":0,"to":"MICRODVD","out":"out/bad.sub",)"
                      R"("written":false,"messages":["Failed to determine subtitle format, selected file format )"
                      R"(might not be supported yet."]})");
}

TEST_F(BatchTest, ConvertToPlainTextWritesTheTextsAlone) {
  Write("a.srt", kSubRip);
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "PLAINTEXT", "--out", "a.txt"}).status, 0);
  EXPECT_EQ(Read("a.txt"), "Good evening, Inspector.\r\n<i>Nobody leaves this house|until the storm has passed.\r\n");
}

TEST_F(BatchTest, ConvertTakesFileNamesThatAreNoUtf8) {
  Write("caf\xE9.srt", kSubRip);
  std::filesystem::create_directory(PathOf("\xFF"));
  EXPECT_EQ(Batch({"convert", "caf\xE9.srt", "--to", "MICRODVD", "--folder", "\xFF"}).status, 0);
  EXPECT_EQ(Read("\xFF/caf\xE9.sub"), kMicroDvd);
}

TEST_F(BatchTest, ThousandsOfFilesAreConvertedInOneRun) {
  std::filesystem::create_directory(PathOf("out"));
  std::vector<std::string> call = {"convert", "--to", "MICRODVD", "--folder", "out"};
  for (int i = 0; i < 2000; ++i) {
    Write("f" + std::to_string(i) + ".srt", kSubRip);
    call.push_back("f" + std::to_string(i) + ".srt");
  }
  EXPECT_EQ(Batch(call).status, 0);
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(Read("out/f" + std::to_string(i) + ".sub"), kMicroDvd) << i;
}

}  // namespace
}  // namespace cuewright::test

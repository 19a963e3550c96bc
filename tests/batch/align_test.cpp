#include <cmath>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

struct AlignTest : ShellTest {
  /// A film in which a synthesiser says four lines of a text and one that isn't in it, a second apart.
  void MakeFilm() {
    Write("text.txt",
          "The train for the coast leaves in twenty minutes.\nNobody has ever said anything like this sentence.\n"
          "Have you seen my grandmother's yellow umbrella?\nWe should have taken the other road.\n"
          "Bring three kilos of potatoes and a little salt.\n");
    const ProcessResult made = Shell(
        "say() { espeak-ng -v en-us -s 165 -p 40 -w \"$1.wav\" \"$2\"; }\n"
        "say 1 'The train for the coast leaves in twenty minutes.'\n"
        "say 2 'Have you seen my grandmother'\"'\"'s yellow umbrella?'\n"
        "say 3 'A stranger rang the bell twice and went away.'\n"
        "say 4 'We should have taken the other road.'\n"
        "say 5 'Bring three kilos of potatoes and a little salt.'\n"
        "ffmpeg -v error -i 1.wav -i 2.wav -i 3.wav -i 4.wav -i 5.wav -filter_complex "
        "'[0]adelay=2000,apad=pad_dur=1[a];[1]apad=pad_dur=1[b];[2]apad=pad_dur=1[c];[3]apad=pad_dur=1[d];"
        "[4]apad=pad_dur=1[e];[a][b][c][d][e]concat=n=5:v=0:a=1' film.wav");
    ASSERT_EQ(made.status, 0) << made.error;
  }
};

TEST_F(AlignTest, GivesLinesTheirTimesInTheFormatOfTheName) {
  MakeFilm();
  const ProcessResult result =
      Batch({"align", "text.txt", "--film", "film.wav", "--language", "en", "--out", "out.vtt"});
  ASSERT_EQ(result.status, 0) << result.error;
  const std::vector<std::string> lines = LinesOf(result.out);
  ASSERT_EQ(lines.size(), 5U) << result.out;
  EXPECT_NEAR(std::stoi(FieldsOf(lines[0])[1]), 2000, 250) << lines[0];
  EXPECT_EQ(FieldsOf(lines[1])[4], "doubtful") << lines[1];
  for (const std::size_t line : {0U, 2U, 3U, 4U}) EXPECT_EQ(FieldsOf(lines[line])[4], "sure") << lines[line];
  EXPECT_TRUE(Read("out.vtt").starts_with("WEBVTT")) << Read("out.vtt");
  const ProcessResult json =
      Batch({"align", "text.txt", "--film", "film.wav", "--language", "en", "--out", "out.srt", "--json"});
  EXPECT_TRUE(LinesOf(json.out)[0].starts_with("{\"row\":1,\"start\":")) << json.out;
  EXPECT_TRUE(Read("out.srt").starts_with("1")) << Read("out.srt");
}

TEST_F(AlignTest, WhatIsMissingIsTold) {
  Write("text.txt", "One line.\n");
  EXPECT_EQ(Batch({"align", "text.txt", "--film", "none.wav", "--language", "en", "--out", "out.srt"}).status, 1);
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anullsrc -t 20 silence.wav").status, 0);
  const ProcessResult language =
      Batch({"align", "text.txt", "--film", "silence.wav", "--language", "xx", "--out", "out.srt"});
  EXPECT_EQ(language.status, 1);
  EXPECT_NE(language.error.find("'xx'"), std::string::npos) << language.error;
  EXPECT_FALSE(Exists("out.srt"));
  const ProcessResult silence =
      Batch({"align", "text.txt", "--film", "silence.wav", "--language", "en", "--out", "out.srt"});
  EXPECT_EQ(FieldsOf(LinesOf(silence.out).at(0))[4], "doubtful") << silence.error;
  EXPECT_EQ(Batch({"align", "text.txt", "--film", "silence.wav", "--out", "out.srt"}).status, 2);
  EXPECT_EQ(Batch({"align", "text.txt", "--language", "en", "--out", "out.srt"}).status, 2);
  EXPECT_EQ(Batch({"align", "text.txt", "--film", "silence.wav", "--language", "en"}).status, 2);
  EXPECT_EQ(Batch({"align", "text.txt", "--film", "silence.wav", "--language", "en", "--out", "text.txt"}).status, 1);
  EXPECT_EQ(Read("text.txt"), "One line.\n");
}

TEST_F(AlignTest, WhereNobodySpeaksNoLineIsSureAndThatIsTold) {
  Write("text.txt", "The train for the coast leaves in twenty minutes.\nHave you seen my yellow umbrella?\n");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anullsrc -t 40 silence.wav").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i \"aevalsrc='0.2*sin(2*PI*220*t)*exp(-2*mod(t,0.5))+0.1*sin(2*PI*660*t)"
                  "*exp(-2*mod(t+0.25,1))':s=22050:d=40\" music.wav")
                .status,
            0);
  for (const std::string film : {"silence.wav", "music.wav"}) {
    const ProcessResult result = Batch({"align", "text.txt", "--film", film, "--language", "en", "--out", "out.srt"});
    EXPECT_EQ(result.status, 0) << result.error;
    for (const std::string& line : LinesOf(result.out)) EXPECT_EQ(FieldsOf(line)[4], "doubtful") << film << line;
    EXPECT_NE(result.error.find("No line was surely found"), std::string::npos) << result.error;
    EXPECT_NE(result.error.find(film), std::string::npos) << result.error;
  }
}

TEST_F(AlignTest, ClippedSoundAndEightChannelsAreHeard) {
  MakeFilm();
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af volume=30dB clipped.wav").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af 'pan=7.1|FC=c0|FL=0*c0' eight.flac").status, 0);
  for (const std::string film : {"clipped.wav", "eight.flac"}) {
    const ProcessResult result = Batch({"align", "text.txt", "--film", film, "--language", "en", "--out", "out.srt"});
    ASSERT_EQ(result.status, 0) << result.error;
    const std::vector<std::string> lines = LinesOf(result.out);
    ASSERT_EQ(lines.size(), 5U) << result.out;
    EXPECT_NEAR(std::stoi(FieldsOf(lines[0])[1]), 2000, 250) << film << lines[0];
  }
}

TEST_F(AlignTest, WithoutTheSpeakerNothingIsWrittenAndItIsToldHowToGetIt) {
  Write("text.txt", "One line.\n");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anoisesrc=d=5:seed=3 film.wav").status, 0);
  ASSERT_EQ(Shell("mkdir bin && ln -s $(which ffmpeg) bin/ffmpeg && ln -s $(which ffprobe) bin/ffprobe").status, 0);
  const ProcessResult result = Shell("PATH=$PWD/bin $B align text.txt --film film.wav --language en --out out.srt");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.error.find("the package espeak-ng"), std::string::npos) << result.error;
  EXPECT_FALSE(Exists("out.srt"));
}

}  // namespace
}  // namespace cuewright::test

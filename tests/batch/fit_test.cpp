#include <array>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

/// Where each caption's voice really is, in ms.
struct Spoken {
  int start;
  int end;
};

/// A film whose voice is a buzz that comes and goes over a little noise; five captions held for it, each late.
class FitCommand : public ShellTest {
 protected:
  void MakeFilm(const std::string& name, const std::string& encoding = "") const {
    std::string when;
    for (const Spoken& spoken : kSpoken) {
      when += (when.empty() ? "" : "+") + std::string("between(t\\,") + Seconds(spoken.start) + "\\," +
              Seconds(spoken.end) + ")";
    }
    ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i 'aevalsrc=exprs=0.3*(" + when +
                    ")*(mod(t*140\\,1)-0.5)*(0.6+0.4*sin(2*PI*4*t))+0.002*(random(0)-0.5):s=22050:d=30' " + encoding +
                    " " + name)
                  .status,
              0);
  }

  void WriteHeld(const std::string& name) const {
    std::string file;
    int row = 0;
    for (const Spoken& spoken : kSpoken) {
      const int late = 170 + 25 * row;
      file += std::to_string(++row) + "\r\n" + Clock(spoken.start + late) + " --> " + Clock(spoken.end + late) +
              "\r\n{\\an8}Buzz, said the bee.\r\n\r\n";
    }
    Write(name, file);
  }

  static std::string Seconds(int ms) {
    return std::to_string(ms / 1000) + "." + std::to_string(1000 + ms % 1000).substr(1);
  }
  static std::string Clock(int ms) {
    const auto two = [](int value) { return std::to_string(100 + value).substr(1); };
    return "00:00:" + two(ms / 1000) + "," + std::to_string(1000 + ms % 1000).substr(1);
  }

  static constexpr std::array kSpoken = {Spoken{2000, 4000}, Spoken{6500, 8300}, Spoken{11000, 14000},
                                         Spoken{17200, 18700}, Spoken{22000, 25000}};
};

TEST_F(FitCommand, MovesCaptionsToTheVoiceAndChangesNothingElse) {
  MakeFilm("film.wav");
  WriteHeld("a.srt");
  const ProcessResult result =
      Batch({"fit", "a.srt", "--film", "film.wav", "--reaction", "220", "--out", "b.srt", "--json"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_EQ(LinesOf(result.out).size(), kSpoken.size());
  EXPECT_NE(result.out.find("\"old_start\":2170,\"old_end\":4170,\"confidence\":"), std::string::npos) << result.out;
  const std::vector<std::string> lines = LinesOf(Batch({"dump", "b.srt"}).out);
  ASSERT_EQ(lines.size(), kSpoken.size());
  for (std::size_t row = 0; row < lines.size(); ++row) {
    const std::vector<std::string> fields = FieldsOf(lines[row]);
    EXPECT_NEAR(std::stoi(fields.at(1)), kSpoken[row].start, 25);
    EXPECT_NEAR(std::stoi(fields.at(2)), kSpoken[row].end, 50);
  }
  EXPECT_NE(Read("b.srt").find("\r\n{\\an8}Buzz, said the bee.\r\n"), std::string::npos);
}

TEST_F(FitCommand, FindsTheHandByItselfAndTellsIt) {
  MakeFilm("film.wav");
  WriteHeld("a.srt");
  const ProcessResult result = Batch({"fit", "a.srt", "--film", "film.wav", "--out", "b.srt"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_TRUE(result.out.starts_with("5 starts and 5 ends of 5 captions fitted")) << result.out;
  const std::size_t at = result.out.find("late by ");
  ASSERT_NE(at, std::string::npos);
  EXPECT_NEAR(std::stoi(result.out.substr(at + 8)), 220, 25);
}

TEST_F(FitCommand, OnlyTheRowsAskedForMove) {
  MakeFilm("film.wav");
  WriteHeld("a.srt");
  EXPECT_EQ(Batch({"fit", "a.srt", "--film", "film.wav", "--reaction=220", "--rows", "2", "--out", "b.srt"}).status, 0);
  const std::vector<std::string> before = LinesOf(Batch({"dump", "a.srt"}).out);
  const std::vector<std::string> after = LinesOf(Batch({"dump", "b.srt"}).out);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t row = 0; row < after.size(); ++row) EXPECT_EQ(after[row] == before[row], row != 1);
}

TEST_F(FitCommand, EightChannelsAndASoundThatBeginsLateAreHeard) {
  MakeFilm("eight.mkv", "-ac 8 -c:a flac");
  MakeFilm("whole.wav");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i color=black:s=64x36:r=5:d=30 -itsoffset 1.5 -ss 1.5 -i whole.wav "
                  "-map 0:v -map 1:a -c:v mpeg4 -c:a pcm_s16le late.mkv")
                .status,
            0);
  WriteHeld("a.srt");
  for (const std::string film : {"eight.mkv", "late.mkv"}) {
    EXPECT_EQ(Batch({"fit", "a.srt", "--film", film, "--reaction", "220", "--out", "b.srt"}).status, 0);
    const std::vector<std::string> lines = LinesOf(Batch({"dump", "b.srt"}).out);
    for (std::size_t row = 0; row < lines.size(); ++row) {
      EXPECT_NEAR(std::stoi(FieldsOf(lines[row]).at(1)), kSpoken[row].start, 30) << film;
    }
  }
}

TEST_F(FitCommand, NothingMovesWithoutAVoice) {
  WriteHeld("a.srt");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anullsrc=d=30 silent.wav").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anoisesrc=d=30:seed=3 noise.wav").status, 0);
  for (const std::string film : {"silent.wav", "noise.wav"}) {
    const ProcessResult result = Batch({"fit", "a.srt", "--film", film, "--reaction", "220", "--out", "b.srt"});
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(Read("b.srt"), Read("a.srt")) << film;
    EXPECT_NE(result.error.find("No caption was moved"), std::string::npos) << result.error;
  }
}

TEST_F(FitCommand, AFilmWithoutSoundFailsAndWritesNothing) {
  WriteHeld("a.srt");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i testsrc2=d=1:s=64x36 mute.mp4").status, 0);
  for (const std::string film : {"mute.mp4", "a.srt", "none.mp4"}) {
    const ProcessResult result = Batch({"fit", "a.srt", "--film", film, "--out", "b.srt"});
    EXPECT_EQ(result.status, 1) << film;
    EXPECT_NE(result.error.find(film), std::string::npos) << result.error;
    EXPECT_FALSE(Exists("b.srt"));
  }
}

TEST_F(FitCommand, WithoutTheSpeakerWordsAreLeftOutAndThatIsToldOnce) {
  MakeFilm("film.wav");
  WriteHeld("a.srt");
  // A folder with nothing but the decoder on the path.
  ASSERT_EQ(Shell("mkdir bin && ln -s $(which ffmpeg) bin/ffmpeg && ln -s $(which ffprobe) bin/ffprobe").status, 0);
  const ProcessResult result =
      Shell("PATH=$PWD/bin $B fit a.srt --film film.wav --language en --reaction 220 --out b.srt");
  EXPECT_EQ(result.status, 0) << result.error;
  const std::size_t first = result.error.find("espeak-ng");
  EXPECT_NE(first, std::string::npos) << result.error;
  EXPECT_EQ(result.error.find("fitted without their words", result.error.find("fitted without their words") + 1),
            std::string::npos)
      << result.error;
  EXPECT_TRUE(result.out.starts_with("5 starts and")) << result.out;
}

TEST_F(FitCommand, WrongCallsAreTold) {
  EXPECT_EQ(Batch({"fit", "a.srt", "--out", "b.srt"}).status, 2);
  EXPECT_EQ(Batch({"fit", "a.srt", "--film", "f.wav"}).status, 2);
  for (const std::string value : {"soon", "", "1.5", "2001", "-", "--3"}) {
    EXPECT_EQ(Batch({"fit", "a.srt", "--film", "f.wav", "--out", "b.srt", "--reaction=" + value}).status, 2) << value;
  }
  for (const std::string value : {"", "-v", "../en", "e n"}) {
    EXPECT_EQ(Batch({"fit", "a.srt", "--film", "f.wav", "--out", "b.srt", "--language=" + value}).status, 2) << value;
  }
}

}  // namespace
}  // namespace cuewright::test

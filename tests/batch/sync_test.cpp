#include <cstdio>
#include <random>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

std::string Clock(int ms) {
  char text[32];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d,%03d", ms / 3600000, ms / 60000 % 60, ms / 1000 % 60, ms % 1000);
  return text;
}

/// Thirty captions of uneven lengths, moved by some ms.
std::string Captions(int moved, int seed = 1) {
  std::string text;
  int at = 1000;
  std::mt19937 draw(static_cast<unsigned>(seed));
  for (int row = 1; row <= 30; ++row) {
    const int length = 600 + static_cast<int>(draw() % 2000);
    text += std::to_string(row) + "\n" + Clock(at + moved) + " --> " + Clock(at + length + moved) + "\nLine\n\n";
    at += length + 300 + static_cast<int>(draw() % 2500);
  }
  return text;
}

/// Noise at times, as a source of ffmpeg.
std::string NoiseAt(const std::string& captions) {
  std::string when;
  for (const std::string& line : LinesOf(captions)) {
    int h = 0, m = 0, s = 0, ms = 0, toM = 0, toS = 0, toMs = 0;
    if (std::sscanf(line.c_str(), "%d:%d:%d,%d --> %*d:%d:%d,%d", &h, &m, &s, &ms, &toM, &toS, &toMs) != 7) continue;
    when += (when.empty() ? "" : "+") + std::string("between(t,") + std::to_string(m * 60 + s) + "." +
            std::to_string(1000 + ms).substr(1) + "," + std::to_string(toM * 60 + toS) + "." +
            std::to_string(1000 + toMs).substr(1) + ")";
  }
  return "aevalsrc='(0.01+0.3*(" + when + "))*(2*random(0)-1)':s=22050:d=120";
}

struct SyncTest : ShellTest {
  void MakeFilm() {
    Write("sound.txt", NoiseAt(Captions(0)));
    ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i \"$(cat sound.txt)\" film.wav").status, 0);
  }
};

TEST_F(SyncTest, BringsASubtitleToAFilm) {
  MakeFilm();
  Write("late.srt", Captions(7250));
  const ProcessResult result = Batch({"sync", "late.srt", "--with", "film.wav", "--out", "out.srt", "--json"});
  ASSERT_EQ(result.status, 0) << result.error;
  const std::vector<std::string> lines = LinesOf(result.out);
  ASSERT_EQ(lines.size(), 1U) << result.out;
  int offset = 0;
  ASSERT_EQ(
      std::sscanf(lines[0].c_str(), "{\"first\":1,\"last\":30,\"offset\":%d,\"ratio\":1,\"confidence\":0.", &offset), 1)
      << lines[0];
  EXPECT_NEAR(offset, -7250, 30);
  EXPECT_NE(lines[0].find("\"doubtful\":false}"), std::string::npos);
  EXPECT_EQ(Read("out.srt"), Captions(7250 + offset));
}

TEST_F(SyncTest, HearsTheSidesOfAFilmWhoseCentreIsStill) {
  MakeFilm();
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af 'pan=5.1|FL=c0|FR=c0' -c:a flac sides.mkv").status, 0);
  Write("late.srt", Captions(7250));
  const ProcessResult result = Batch({"sync", "late.srt", "--with", "sides.mkv", "--out", "out.srt"});
  ASSERT_EQ(result.status, 0) << result.error;
  int offset = 0;
  ASSERT_EQ(std::sscanf(result.out.c_str(), "1\t30\t%d\t1\t", &offset), 1) << result.out;
  EXPECT_NEAR(offset, -7250, 30);
}

TEST_F(SyncTest, WritesAFileThatFitsAsItIs) {
  MakeFilm();
  // Bytes that writing anew would not give.
  const std::string bytes = "\n" + Captions(20) + "\n\n";
  Write("fits.srt", bytes);
  EXPECT_EQ(Batch({"sync", "fits.srt", "--with", "film.wav", "--out", "out.srt"}).status, 0);
  EXPECT_EQ(Read("out.srt"), bytes);
}

TEST_F(SyncTest, BringsASubtitleToAnother) {
  Write("right.srt", Captions(0));
  Write("late.srt", Captions(33333));
  const ProcessResult result = Batch({"sync", "late.srt", "--with", "right.srt", "--out", "out.srt"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_EQ(Read("out.srt"), Captions(0));
  EXPECT_TRUE(result.out.starts_with("1\t30\t-33333\t1\t")) << result.out;
}

TEST_F(SyncTest, WhatBelongsElsewhereIsToldAndNothingWritten) {
  MakeFilm();
  Write("other.srt", Captions(0, 77));
  const ProcessResult result = Batch({"sync", "other.srt", "--with", "film.wav", "--out", "out.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.error.find("film.wav"), std::string::npos) << result.error;
  EXPECT_FALSE(Exists("out.srt"));
}

TEST_F(SyncTest, NoSoundAndSilenceAreTold) {
  Write("a.srt", Captions(0));
  Write("text.txt", "neither\n");
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i color=s=32x32:d=2 mute.mp4").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i anullsrc -t 60 silence.wav").status, 0);
  for (const std::string other : {"mute.mp4", "silence.wav", "none.mkv", "text.txt"}) {
    const ProcessResult result = Batch({"sync", "a.srt", "--with", other, "--out", "out.srt"});
    EXPECT_EQ(result.status, 1) << other;
    EXPECT_NE(result.error.find(other), std::string::npos) << result.error;
    EXPECT_FALSE(Exists("out.srt")) << other;
  }
  EXPECT_EQ(Batch({"sync", "a.srt", "--out", "out.srt"}).status, 2);
  EXPECT_EQ(Batch({"sync", "a.srt", "--with", "b.srt"}).status, 2);
}

TEST_F(SyncTest, ClippedSoundEightChannelsAndALongSilenceChangeNothing) {
  MakeFilm();
  Write("late.srt", Captions(7250));
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af volume=30dB clipped.wav").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af 'pan=7.1|FC=c0|FL=0*c0' eight.flac").status, 0);
  ASSERT_EQ(Shell("ffmpeg -v error -i film.wav -af apad=whole_dur=3600 -compression_level 0 long.flac").status, 0);
  for (const std::string film : {"clipped.wav", "eight.flac", "long.flac"}) {
    const ProcessResult result = Batch({"sync", "late.srt", "--with", film, "--out", "out.srt"});
    EXPECT_EQ(result.status, 0) << film << result.error;
    ASSERT_EQ(LinesOf(result.out).size(), 1U) << film << result.out;
    EXPECT_NEAR(std::stoi(FieldsOf(result.out)[2]), -7250, 30) << film;
  }
}

}  // namespace
}  // namespace cuewright::test

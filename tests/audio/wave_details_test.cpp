#include "audio/wave_details.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

#include "platform/posix_files.h"
#include "sound/film_samples.h"
#include "tests/audio/wave_files.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

/// Sounds of 2 s, whose samples jump up and down.
struct WaveDetailsTest : ::testing::Test {
  WaveDetailsTest() { scale.SetWidth(400); }

  static std::string Bytes(int samplesPerSecond = 22050) {
    std::vector<int> samples;
    for (int i = 0; i < 2 * samplesPerSecond; ++i) samples.push_back(i % 40 < 20 ? 9000 : -9000);
    testing::WaveSpec wave;
    wave.samplesPerSecond = samplesPerSecond;
    wave.data = testing::Samples16(samples);
    return wave.Bytes();
  }
  void ReadAll() {
    for (int tick = 0; tick < 1000 && details.Reading(); ++tick) window.tmrWaveDetail.Pass();
    ASSERT_FALSE(details.Reading());
  }
  /// A picture of this scale from 0.5 s on shows what was measured for it alone.
  bool ShowsMore(double msAPixel) {
    scale.SetLength(2000);
    scale.SetMsAPixel(msAPixel, 0);
    scale.ShowFrom(500);
    details.Fine().Prepare(scale);
    return details.Fine().At(600) != nullptr;
  }

  testing::TempFolder folder;
  PosixFiles files;
  MainWindow window;
  WaveDetails details{window, files};
  WaveScale scale;
};

TEST_F(WaveDetailsTest, AWaveThatWasReadIsMeasuredForPicturesOfAFineScale) {
  details.Open(folder.Write("a.wav", Bytes()));
  EXPECT_FALSE(ShowsMore(2));
  ReadAll();
  EXPECT_EQ(details.Peaks().Length(), 2000);
  EXPECT_TRUE(ShowsMore(2));
  EXPECT_FALSE(ShowsMore(10));
  details.Forget();
  EXPECT_FALSE(ShowsMore(2));
}

TEST_F(WaveDetailsTest, AFilmsWaveIsMeasuredOnceItIsWhole) {
  const Text wave = folder / "film.wav";
  details.BeginFilm(wave);
  const Text unfinished = folder.Write("film.wav.part", Bytes());
  details.Follow(unfinished);
  for (int tick = 0; tick < 20; ++tick) window.tmrWaveDetail.Pass();
  EXPECT_TRUE(details.Reading());
  EXPECT_FALSE(ShowsMore(2));
  folder.Write("film.wav", Bytes());
  details.EndFilm();
  ReadAll();
  EXPECT_TRUE(ShowsMore(2));
}

TEST_F(WaveDetailsTest, TheTableOfAFilmsWaveIsMeasuredAsItGrowsAndKeptOnceItIsWhole) {
  const Text wave = folder / "film.wav";
  details.BeginFilm(wave);
  const std::string bytes = Bytes(kSamplesASecond);
  const Text unfinished = folder.Write("film.wav.part", bytes.substr(0, bytes.size() / 2));
  details.Follow(unfinished);
  for (int tick = 0; tick < 5; ++tick) window.tmrWaveDetail.Pass();
  EXPECT_NEAR(static_cast<double>(details.Table().Steps()), 100, 2);
  std::ofstream(ToUtf8(unfinished), std::ios::binary | std::ios::app) << bytes.substr(bytes.size() / 2);
  folder.Write("film.wav", bytes);
  while (details.ReadOn()) {
  }
  EXPECT_FALSE(files.Exists(SoundTableBeside(wave)));
  details.EndFilm();
  EXPECT_FALSE(details.Reading());
  EXPECT_EQ(details.Table().Steps(), 200U);
  SoundTable kept;
  ASSERT_TRUE(kept.Read(files.Read(SoundTableBeside(wave), 1 << 20)));
  EXPECT_EQ(kept.Steps(), 200U);
  EXPECT_GT(kept.Db(100, 3), 60);
}

TEST_F(WaveDetailsTest, AFilmsWaveThatCouldNotBeReadWhileItGrewIsReadAnew) {
  const Text wave = folder / "film.wav";
  details.BeginFilm(wave);
  const Text unfinished = folder.Write("film.wav.part", std::string(5000, 'x'));
  for (int tick = 0; tick < 3; ++tick) {
    details.Follow(unfinished);
    window.tmrWaveDetail.Pass();
  }
  details.EndFilm();
  EXPECT_FALSE(files.Exists(SoundTableBeside(wave)));
  details.Open(folder.Write("film.wav", Bytes(kSamplesASecond)));
  ReadAll();
  EXPECT_EQ(details.Table().Steps(), 200U);
  EXPECT_EQ(details.Peaks().Length(), 2000);
}

TEST_F(WaveDetailsTest, AWaveOfFewSamplesASecondHasNothingFinerThanItsTable) {
  details.Open(folder.Write("a.wav", Bytes(8000)));
  ReadAll();
  EXPECT_EQ(details.Peaks().Length(), 2000);
  EXPECT_FALSE(ShowsMore(2));
}

}  // namespace
}  // namespace cuewright

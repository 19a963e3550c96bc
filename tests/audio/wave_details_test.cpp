#include "audio/wave_details.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/posix_files.h"
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

TEST_F(WaveDetailsTest, AWaveOfFewSamplesASecondHasNothingFinerThanItsTable) {
  details.Open(folder.Write("a.wav", Bytes(8000)));
  ReadAll();
  EXPECT_EQ(details.Peaks().Length(), 2000);
  EXPECT_FALSE(ShowsMore(2));
}

}  // namespace
}  // namespace cuewright

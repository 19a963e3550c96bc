#include "audio/spectrum_painter.h"

#include <gtest/gtest.h>

#include <vector>

namespace cuewright {
namespace {

/// A picture of 100 by 90 pixels of a sound that is loud in the lowest band from 0.2 s to 0.4 s.
struct Spectrum : ::testing::Test {
  Spectrum() : pixels(100 * 90, 0) {
    for (int step = 0; step < 100; ++step) {
      SoundTable::Step bands{};
      if (step >= 20 && step < 40) bands[0] = 170;
      table.Append(bands);
    }
    scale.SetWidth(100);
    scale.SetLength(1000);
  }
  void Paint(double msAPixel) {
    scale.SetMsAPixel(msAPixel, 0);
    SpectrumPainter().Paint({pixels.data(), 100, 100, 90}, {10, 90}, scale, table, fine, 32768);
  }
  /// Light of a pixel, 0 to 255.
  std::uint32_t Light(int x, int y) const { return pixels[static_cast<std::size_t>(y * 100 + x)] >> 8 & 0xFF; }

  std::vector<std::uint32_t> pixels;
  SoundTable table;
  FineSpectrum fine;
  WaveScale scale;
};

TEST_F(Spectrum, IsBrightWhereTheSoundIsLoudLowSoundsBelow) {
  Paint(10);
  EXPECT_GT(Light(30, 89), 200u);
  EXPECT_LT(Light(30, 70), 60u);
  EXPECT_LT(Light(10, 89), 60u);
  EXPECT_LT(Light(60, 89), 60u);
  EXPECT_EQ(pixels[5 * 100 + 30], 0u) << "beside its rows";
}

TEST_F(Spectrum, HasTheSameTimesAtAnyScale) {
  Paint(5);
  EXPECT_GT(Light(60, 89), 200u);
  EXPECT_LT(Light(30, 89), 60u);
  EXPECT_LT(Light(85, 89), 60u);
}

TEST_F(Spectrum, BehindTheSoundItIsDark) {
  table.Clear();
  Paint(10);
  EXPECT_LT(Light(30, 89), 60u);
}

}  // namespace
}  // namespace cuewright

#include "audio/wave_pyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "audio/wave_scale.h"

namespace cuewright {
namespace {

TEST(WavePyramid, TellsThePeakOfAnyStretchAsAPlainLookDoes) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> sample(-32768, 32767);
  WavePyramid pyramid;
  std::vector<WavePeak> plain;
  for (int i = 0; i < 5003; ++i) {
    const auto a = static_cast<std::int16_t>(sample(random));
    const auto b = static_cast<std::int16_t>(sample(random));
    plain.push_back({std::max(a, b), std::min(a, b)});
    pyramid.Append(plain.back());
  }
  ASSERT_EQ(pyramid.Length(), 5003);
  std::uniform_int_distribution<std::int32_t> place(0, 5002);
  for (int i = 0; i < 2000; ++i) {
    const auto [from, last] = std::minmax({place(random), place(random)});
    WavePeak wanted = plain[static_cast<std::size_t>(from)];
    for (std::int32_t ms = from; ms <= last; ++ms) {
      wanted.maximum = std::max(wanted.maximum, plain[static_cast<std::size_t>(ms)].maximum);
      wanted.minimum = std::min(wanted.minimum, plain[static_cast<std::size_t>(ms)].minimum);
    }
    ASSERT_EQ(pyramid.Of(from, last + 1), wanted) << from << " to " << last;
  }
}

TEST(WavePyramid, BesideTheSoundThereIsSilence) {
  WavePyramid pyramid;
  EXPECT_EQ(pyramid.Of(0, 100), WavePeak{});
  pyramid.Append({5, -3});
  EXPECT_EQ(pyramid.Of(-10, 1), (WavePeak{5, -3}));
  EXPECT_EQ(pyramid.Of(1, 100), WavePeak{});
  EXPECT_EQ(pyramid.Of(1, 0), WavePeak{});
  pyramid.Clear();
  EXPECT_EQ(pyramid.Length(), 0);
}

TEST(WaveScale, ZoomsAboutThePointerWithinItsLimits) {
  WaveScale scale;
  scale.SetWidth(1000);
  scale.SetLength(600000);
  scale.SetMsAPixel(10, 0);
  scale.ShowFrom(20000);
  EXPECT_EQ(scale.MsOf(300), 23000);
  scale.SetMsAPixel(2, 300);
  EXPECT_EQ(scale.MsOf(300), 23000);
  EXPECT_EQ(scale.XOf(23000), 300);
  scale.SetMsAPixel(0.01, 300);
  EXPECT_EQ(scale.MsAPixel(), 1);
  scale.SetMsAPixel(5000, 300);
  EXPECT_EQ(scale.MsAPixel(), 1000);
  EXPECT_EQ(scale.Left(), 0);
}

TEST(WaveScale, StaysWithinTheFilmAndOnWholePixels) {
  WaveScale scale;
  scale.SetWidth(100);
  scale.SetLength(5000);
  scale.SetMsAPixel(10, 0);
  scale.ShowFrom(4900);
  EXPECT_EQ(scale.Left(), 4000);
  scale.ShowFrom(-50);
  EXPECT_EQ(scale.Left(), 0);
  scale.ShowFrom(1234);
  EXPECT_EQ(scale.Left(), 1230);
  EXPECT_TRUE(scale.Shows(2229));
  EXPECT_FALSE(scale.Shows(2230));
}

}  // namespace
}  // namespace cuewright

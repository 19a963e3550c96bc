#include "voice/align_spread.h"

#include <gtest/gtest.h>

#include <random>

namespace cuewright {
namespace {

using Bands = LineSpread::Bands;

float Distance(const LineSpread& spread, const Bands& one, const Bands& other) {
  const Bands first = spread.Scaled(one);
  const Bands second = spread.Scaled(other);
  float sum = 0;
  for (std::size_t band = 0; band < first.size(); ++band) {
    sum += (first[band] - second[band]) * (first[band] - second[band]);
  }
  return sum;
}

Bands With(std::size_t band, float db) {
  Bands bands{};
  bands[band] = db;
  return bands;
}

Bands Louder(float db) {
  Bands bands;
  bands.fill(db);
  return bands;
}

TEST(LineSpread, TheShapeOfASoundSaysMoreThanItsLoudness) {
  const LineSpread spread;
  EXPECT_FLOAT_EQ(Distance(spread, Louder(4), Louder(4)), 0);
  // The squares of both differences are as large.
  EXPECT_LT(Distance(spread, Louder(4), {}), 0.5F * Distance(spread, With(3, 12), {}));
}

/// What the frames of a line are heard as: 8 dB louder in one band, and anything at all in another.
LineSpread Learned(int frames) {
  std::mt19937 random(3);
  std::normal_distribution<float> near(0, 5);
  std::normal_distribution<float> anything(0, 30);
  LineSpread spread;
  for (int frame = 0; frame < frames; ++frame) {
    Bands spoken{};
    Bands heard{};
    for (std::size_t band = 0; band < heard.size(); ++band) {
      spoken[band] = anything(random);
      heard[band] = spoken[band] + (band == 6 ? anything(random) : near(random));
    }
    heard[2] += 8;
    spread.Learn(heard, spoken);
  }
  spread.Settle();
  return spread;
}

TEST(LineSpread, LearnsHowAVoiceDiffersAndWhichBandsTellNothing) {
  const LineSpread spread = Learned(20000);
  EXPECT_NEAR(spread.Heard({})[2], 8, 1);
  EXPECT_NEAR(spread.Heard({})[4], 0, 1);
  EXPECT_GT(Distance(spread, With(4, 10), {}), 8 * Distance(spread, With(6, 10), {}));
}

TEST(LineSpread, AFewFramesTeachLittle) {
  const LineSpread spread = Learned(20);
  EXPECT_NEAR(spread.Heard({})[2], 0, 1);
  EXPECT_GT(Distance(spread, With(6, 10), {}), 0.8F * Distance(LineSpread(), With(6, 10), {}));
}

}  // namespace
}  // namespace cuewright

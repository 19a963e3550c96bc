#include "voice/level_mixture.h"

#include <random>

namespace cuewright {
namespace {

using Levels = LevelMixture::Levels;

Levels All(float level) {
  Levels levels;
  levels.fill(level);
  return levels;
}

/// Samples around some levels, which spread by 2.
std::vector<Levels> Around(const std::vector<Levels>& centres, std::size_t each) {
  std::mt19937 random(3);
  std::normal_distribution<float> spread(0, 2);
  std::vector<Levels> samples;
  for (std::size_t i = 0; i < each; ++i) {
    for (const Levels& centre : centres) {
      Levels sample = centre;
      for (float& level : sample) level += spread(random);
      samples.push_back(sample);
    }
  }
  return samples;
}

TEST(LevelMixture, OneLawIsTheNormalLawOfTheSamples) {
  const LevelMixture mixture(Around({All(10)}, 4000), 1);
  // A step of one spread in every band is nine times half a square less likely.
  EXPECT_NEAR(mixture.LogDensity(All(10)) - mixture.LogDensity(All(12)), 4.5F, 0.4F);
  EXPECT_NEAR(mixture.LogDensity(All(8)) - mixture.LogDensity(All(12)), 0.0F, 0.4F);
}

TEST(LevelMixture, SoundsOfAKindAreLikelyAndWhatIsBetweenThemIsNot) {
  Levels vowel = All(0);
  vowel[1] = vowel[2] = 40;
  Levels hiss = All(0);
  hiss[7] = hiss[8] = 40;
  const LevelMixture mixture(Around({vowel, hiss}, 1000), 4);
  Levels between = All(0);
  between[1] = between[2] = between[7] = between[8] = 20;
  EXPECT_GT(mixture.LogDensity(vowel), mixture.LogDensity(between) + 50);
  EXPECT_GT(mixture.LogDensity(hiss), mixture.LogDensity(between) + 50);
  EXPECT_NEAR(mixture.LogDensity(vowel), mixture.LogDensity(hiss), 1.5F);
}

TEST(LevelMixture, SamplesThatAreAllTheSameGiveADensityThatIsFinite) {
  const std::vector<Levels> samples(50, All(7));
  const LevelMixture mixture(samples, 8);
  EXPECT_TRUE(std::isfinite(mixture.LogDensity(All(7))));
  EXPECT_TRUE(std::isfinite(mixture.LogDensity(All(90))));
  EXPECT_GT(mixture.LogDensity(All(7)), mixture.LogDensity(All(90)));
}

}  // namespace
}  // namespace cuewright

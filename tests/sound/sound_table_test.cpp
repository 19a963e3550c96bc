#include "sound/sound_table.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>
#include <span>

#include "sound/sound_measurer.h"

namespace cuewright {
namespace {

using Samples = std::vector<std::int16_t>;

constexpr int kRate = 22050;

Samples Silence(int ms) { return Samples(static_cast<std::size_t>(kRate) * static_cast<std::size_t>(ms) / 1000); }

Samples Sine(double hz, double height, int ms) {
  Samples samples = Silence(ms);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double phase = 2 * std::numbers::pi * hz * static_cast<double>(i) / kRate;
    samples[i] = static_cast<std::int16_t>(std::lround(height * std::sin(phase)));
  }
  return samples;
}

SoundTable Measured(const Samples& samples, int rate = kRate) {
  SoundTable table;
  SoundMeasurer measurer(table, rate);
  measurer.Add(samples);
  measurer.Finish();
  return table;
}

TEST(SoundTable, BandsAreEquallyWideInOctaves) {
  EXPECT_DOUBLE_EQ(SoundTable::EdgeHz(0), 100);
  EXPECT_NEAR(SoundTable::EdgeHz(SoundTable::kBands), 8000, 1e-6);
  for (int band = 1; band < SoundTable::kBands; ++band) {
    EXPECT_NEAR(SoundTable::EdgeHz(band + 1) / SoundTable::EdgeHz(band),
                SoundTable::EdgeHz(band) / SoundTable::EdgeHz(band - 1), 1e-9);
  }
}

TEST(SoundTable, ASineIsAsLoudAsItIsInItsBandAlone) {
  for (int band = 1; band < SoundTable::kBands; ++band) {
    const double hz = std::sqrt(SoundTable::EdgeHz(band) * SoundTable::EdgeHz(band + 1));
    const SoundTable table = Measured(Sine(hz, 10000, 300));
    ASSERT_EQ(table.Steps(), 30u);
    const double wanted = 10 * std::log10(10000.0 * 10000.0 / 2);
    // A window of 20 ms spreads a tone over some 100 Hz.
    EXPECT_NEAR(table.Db(15, band), wanted, band < 3 ? 2 : 1) << band;
    for (int other = 0; other < SoundTable::kBands; ++other) {
      if (other == band) continue;
      EXPECT_LT(table.Db(15, other), table.Db(15, band) - (band < 3 ? 3 : 10)) << band << " in " << other;
    }
  }
}

TEST(SoundTable, SilenceIsNothing) {
  const SoundTable table = Measured(Silence(100));
  ASSERT_EQ(table.Steps(), 10u);
  EXPECT_EQ(table.At(4), SoundTable::Step{});
}

TEST(SoundTable, TellsWhenASoundBegins) {
  for (const int ms : {500, 505, 1234}) {
    Samples samples = Silence(ms);
    const Samples tone = Sine(1000, 8000, 200);
    samples.insert(samples.end(), tone.begin(), tone.end());
    const SoundTable table = Measured(samples);
    std::size_t first = 0;
    while (first < table.Steps() && table.Db(first, 4) < 60 && table.Db(first, 5) < 60) ++first;
    EXPECT_NEAR(static_cast<double>(first) * SoundTable::kStepMs, ms, 10) << ms;
  }
}

TEST(SoundTable, IsTheSameInWhateverPiecesTheSamplesCome) {
  std::mt19937 random(7);
  Samples samples(33333);
  for (std::int16_t& sample : samples) sample = static_cast<std::int16_t>(random());
  for (const int rate : {16000, 22050, 48000}) {
    SoundTable pieces;
    SoundMeasurer measurer(pieces, rate);
    for (std::size_t at = 0; at < samples.size();) {
      const std::size_t length = std::min<std::size_t>(random() % 1000, samples.size() - at);
      measurer.Add(std::span(samples).subspan(at, length));
      at += length;
    }
    measurer.Finish();
    EXPECT_EQ(pieces.Bytes(), Measured(samples, rate).Bytes()) << rate;
    EXPECT_EQ(pieces.Steps(),
              (samples.size() * 100 + static_cast<std::size_t>(rate) - 1) / static_cast<std::size_t>(rate));
  }
}

TEST(SoundTable, HasNoStepWithoutASample) {
  EXPECT_EQ(Measured({}).Steps(), 0u);
  EXPECT_EQ(Measured(Samples(1, 5)).Steps(), 1u);
}

TEST(SoundTable, IsReadBackAsItWasWritten) {
  const SoundTable table = Measured(Sine(700, 3000, 95));
  SoundTable read;
  ASSERT_TRUE(read.Read(table.Bytes()));
  EXPECT_EQ(read.Bytes(), table.Bytes());
  EXPECT_EQ(read.Steps(), 10u);
}

TEST(SoundTable, TakesNoFileThatIsDamaged) {
  const std::string whole = Measured(Sine(700, 3000, 95)).Bytes();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    SoundTable read;
    EXPECT_FALSE(read.Read(whole.substr(0, length))) << length;
    EXPECT_EQ(read.Steps(), 0u);
  }
  SoundTable read;
  EXPECT_FALSE(read.Read(whole + "x"));
  EXPECT_FALSE(read.Read("another" + whole.substr(7)));
}

}  // namespace
}  // namespace cuewright

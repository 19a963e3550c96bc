#include "audio/fine_spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <numbers>
#include <string>

#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::uint32_t kRate = 22050;
constexpr std::uint64_t kHeader = 44;

/// Samples in memory behind a header; reading fails when told so.
class Samples final : public FileReader {
 public:
  Samples(std::string bytes, const bool& broken) : bytes_(std::move(bytes)), broken_(broken) {}
  std::uint64_t Size() const override { return kHeader + bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
    if (broken_) throw RuntimeError{57, u"broken"};
    const std::size_t at = static_cast<std::size_t>(offset) - kHeader;
    const std::size_t read = at < bytes_.size() ? std::min(count, bytes_.size() - at) : 0;
    std::memcpy(to, bytes_.data() + at, read);
    return read;
  }

 private:
  std::string bytes_;
  const bool& broken_;
};

struct FineSpectrumTest : ::testing::Test {
  FineSpectrumTest() { scale.SetWidth(400); }

  /// A sound whose samples a function of its seconds tells, from -1 to 1.
  void Open(const std::function<double(double)>& sound, double seconds = 2, std::uint32_t channels = 1, int bits = 16) {
    std::string bytes;
    for (int i = 0; i < static_cast<int>(seconds * kRate); ++i) {
      const auto sample = static_cast<std::int16_t>(std::lround(32767 * sound(static_cast<double>(i) / kRate)));
      for (std::uint32_t channel = 0; channel < channels; ++channel) {
        bytes += static_cast<char>(sample & 0xFF);
        bytes += static_cast<char>(sample >> 8 & 0xFF);
      }
    }
    const std::uint64_t end = kHeader + bytes.size();
    scale.SetLength(static_cast<std::int32_t>(seconds * 1000));
    fine.Open(std::make_unique<Samples>(std::move(bytes), broken), {kHeader, end, kRate, 2 * channels, bits});
  }
  void Prepare(double msAPixel, double left = 0) {
    scale.SetMsAPixel(msAPixel, 0);
    scale.ShowFrom(left);
    fine.Prepare(scale);
  }
  int LoudestRow(double ms) const {
    const FineSpectrum::Column& column = *fine.At(ms);
    return static_cast<int>(std::ranges::max_element(column) - column.begin());
  }

  FineSpectrum fine;
  WaveScale scale;
  bool broken = false;
};

double Tone(double hz, double seconds) { return std::sin(2 * std::numbers::pi * hz * seconds); }

TEST_F(FineSpectrumTest, TellsApartTonesThatOneBandOfTheTableHolds) {
  Open([](double s) { return 0.5 * Tone(s < 1 ? 1200 : 1700, s); });
  Prepare(4);
  ASSERT_NE(fine.At(500), nullptr);
  // 47 rows stand for the octaves from 127 to 6270 Hz.
  const auto row = [](double hz) { return std::log2(hz / 127.6) / std::log2(6270 / 127.6) * 47; };
  EXPECT_NEAR(LoudestRow(500), row(1200), 1);
  EXPECT_NEAR(LoudestRow(1500), row(1700), 1);
}

TEST_F(FineSpectrumTest, IsAsLoudAsTheTable) {
  Open([](double s) { return Tone(3000, s); });
  Prepare(1);
  EXPECT_NEAR(*std::ranges::max_element(*fine.At(200)), 174, 3);
}

TEST_F(FineSpectrumTest, TellsToSomeMillisecondsWhenASoundBegins) {
  Open([](double s) { return s >= 0.2005 ? 0.5 * Tone(2000, s) : 0; });
  Prepare(1);
  const auto loud = [&](double ms) { return *std::ranges::max_element(*fine.At(ms)); };
  EXPECT_EQ(loud(190), 0);
  EXPECT_GT(loud(206), 150);
  EXPECT_LT(loud(197), loud(200) - 8);
}

TEST_F(FineSpectrumTest, ShowsNothingMoreWherePixelsAreNoFinerThanTheTable) {
  Open([](double s) { return Tone(1000, s); });
  Prepare(10);
  EXPECT_EQ(fine.At(100), nullptr);
  Prepare(2);
  EXPECT_NE(fine.At(100), nullptr);
}

TEST_F(FineSpectrumTest, MeasuresALargePictureInSeveralGoes) {
  Open([](double s) { return Tone(1000, s); }, 4);
  scale.SetWidth(3840);
  Prepare(1);
  EXPECT_TRUE(fine.Unfinished());
  EXPECT_NE(fine.At(FineSpectrum::kMostAtOnce - 1), nullptr);
  EXPECT_EQ(fine.At(FineSpectrum::kMostAtOnce), nullptr);
  int goes = 1;
  for (; fine.Unfinished() && goes < 100; ++goes) fine.Prepare(scale);
  EXPECT_EQ(goes, (3840 + FineSpectrum::kMostAtOnce - 1) / FineSpectrum::kMostAtOnce);
  for (int ms = 0; ms < 3840; ++ms) ASSERT_NE(fine.At(ms), nullptr) << ms;
}

TEST_F(FineSpectrumTest, IsTheSameWhereverThePictureBegins) {
  Open([](double s) { return 0.5 * Tone(500 + 1000 * s, s); });
  Prepare(1, 300);
  const FineSpectrum::Column column = *fine.At(450);
  Prepare(1, 1500);
  Prepare(1, 420);
  EXPECT_EQ(*fine.At(450), column);
  fine.Forget();
  EXPECT_EQ(fine.At(450), nullptr);
}

TEST_F(FineSpectrumTest, TakesAllChannelsTogether) {
  Open([](double s) { return 0.5 * Tone(800, s); });
  Prepare(1);
  const FineSpectrum::Column one = *fine.At(300);
  Open([](double s) { return 0.5 * Tone(800, s); }, 2, 2);
  Prepare(1);
  EXPECT_EQ(*fine.At(300), one);
}

TEST_F(FineSpectrumTest, IsSilentBehindTheEnd) {
  Open([](double s) { return Tone(800, s); }, 1);
  scale.SetLength(2000);
  Prepare(4);
  EXPECT_EQ(*std::ranges::max_element(*fine.At(1200)), 0);
}

TEST_F(FineSpectrumTest, LetsAFileGoThatCantBeRead) {
  Open([](double s) { return Tone(800, s); });
  broken = true;
  Prepare(1);
  EXPECT_EQ(fine.At(100), nullptr);
  EXPECT_FALSE(fine.Unfinished());
  broken = false;
  Prepare(1);
  EXPECT_EQ(fine.At(100), nullptr);
}

TEST_F(FineSpectrumTest, HasNothingOfSamplesOf8Bits) {
  Open([](double s) { return Tone(800, s); }, 1, 1, 8);
  Prepare(1);
  EXPECT_EQ(fine.At(100), nullptr);
}

}  // namespace
}  // namespace cuewright

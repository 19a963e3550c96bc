#include "voice/align_spread.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;
constexpr float kAnyBand = 333;      ///< square dB of a band between any two voices
constexpr float kAnyLoudness = 86;   ///< the same of what all bands have in common
constexpr double kOwnFrames = 1500;  ///< frames that weigh as much as what is known of any two voices
constexpr double kWidth = 3;         ///< factor for learned spreads, since frames are far from independent

}  // namespace

LineSpread::LineSpread() {
  Square spread{};
  for (std::size_t row = 0; row < kBands; ++row) {
    spread[row].fill(kAnyLoudness);
    spread[row][row] += kAnyBand;
  }
  Divide(spread);
}

void LineSpread::Divide(const Square& spread) {
  for (std::size_t row = 0; row < kBands; ++row) {
    for (std::size_t column = 0; column <= row; ++column) {
      float rest = spread[row][column];
      for (std::size_t before = 0; before < column; ++before) rest -= root_[row][before] * root_[column][before];
      root_[row][column] = row == column ? std::sqrt(std::max(rest, 1.0F)) : rest / root_[column][column];
    }
  }
}

void LineSpread::Learn(const Bands& heard, const Bands& spoken) {
  ++count_;
  for (std::size_t row = 0; row < kBands; ++row) {
    const double difference = heard[row] - spoken[row];
    sums_[row] += difference;
    for (std::size_t column = 0; column <= row; ++column) {
      products_[row][column] += difference * (heard[column] - spoken[column]);
    }
  }
}

void LineSpread::Settle() {
  const double share = count_ / (count_ + kOwnFrames);
  const auto mean = [&](double sum) { return sum / std::max(count_, 1.0); };
  Square spread{};
  for (std::size_t row = 0; row < kBands; ++row) {
    for (std::size_t column = 0; column <= row; ++column) {
      const double own = mean(products_[row][column]) - mean(sums_[row]) * mean(sums_[column]);
      const double any = (row == column ? kAnyBand + kAnyLoudness : kAnyLoudness);
      spread[row][column] = static_cast<float>(share * kWidth * own + (1 - share) * any);
    }
  }
  for (std::size_t band = 0; band < kBands; ++band) shift_[band] += static_cast<float>(share * mean(sums_[band]));
  Divide(spread);
  count_ = 0;
  sums_ = {};
  products_ = {};
}

LineSpread::Bands LineSpread::Heard(const Bands& spoken) const {
  Bands heard = spoken;
  for (std::size_t band = 0; band < kBands; ++band) heard[band] += shift_[band];
  return heard;
}

LineSpread::Bands LineSpread::Scaled(const Bands& bands) const {
  Bands scaled{};
  for (std::size_t row = 0; row < kBands; ++row) {
    float rest = bands[row];
    for (std::size_t column = 0; column < row; ++column) rest -= root_[row][column] * scaled[column];
    scaled[row] = rest / root_[row][row];
  }
  return scaled;
}

}  // namespace cuewright

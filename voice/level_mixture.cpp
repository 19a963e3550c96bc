#include "voice/level_mixture.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;
constexpr float kLeastVariance = 0.05F;
constexpr float kLeastShare = 1e-3F;  ///< of a sample, for which a law is changed
constexpr double kFewest = 5;         ///< samples by which a law is changed
constexpr int kRounds = 4;            ///< of improving, after which the next law is divided
constexpr float kNone = -1e30F;

/// Samples with their shares.
struct Sums {
  using Levels = LevelMixture::Levels;

  double count = 0;
  std::array<double, kBands> sum{};
  std::array<double, kBands> squares{};

  void Add(const Levels& levels, double share) {
    count += share;
    for (std::size_t band = 0; band < kBands; ++band) {
      const double part = share * double{levels[band]};
      sum[band] += part;
      squares[band] += part * double{levels[band]};
    }
  }
  Levels Mean() const {
    Levels mean;
    for (std::size_t band = 0; band < kBands; ++band) mean[band] = static_cast<float>(sum[band] / count);
    return mean;
  }
  Levels Variance(float least) const {
    Levels variance;
    for (std::size_t band = 0; band < kBands; ++band) {
      const double mean = sum[band] / count;
      variance[band] = std::max(static_cast<float>(squares[band] / count - mean * mean), least);
    }
    return variance;
  }
};

}  // namespace

float LevelMixture::Law::LogDensity(const Levels& levels) const {
  float value = constant;
  for (std::size_t band = 0; band < kBands; ++band) {
    const float away = levels[band] - mean[band];
    value -= 0.5F * away * away / variance[band];
  }
  return value;
}

void LevelMixture::Law::Settle() {
  constant = std::log(std::max(weight, 1e-9F));
  for (const float square : variance) constant -= 0.5F * std::log(square);
}

LevelMixture::LevelMixture(std::span<const Levels> samples, std::size_t most) {
  laws_.resize(1);
  laws_[0].weight = 1;
  laws_[0].variance.fill(1e6F);
  laws_[0].Settle();
  Improve(samples);
  while (laws_.size() < most) {
    Divide();
    for (int round = 0; round < kRounds; ++round) Improve(samples);
  }
}

void LevelMixture::Divide() {
  // The law that is widest, for its weight, is the least true.
  const auto width = [](const Law& law) { return law.weight * *std::ranges::max_element(law.variance); };
  Law& widest = *std::ranges::max_element(laws_, {}, width);
  const std::size_t band = std::ranges::max_element(widest.variance) - widest.variance.begin();
  widest.weight /= 2;
  const float apart = std::sqrt(widest.variance[band]);
  widest.Settle();
  Law other = widest;
  widest.mean[band] -= apart / 2;
  other.mean[band] += apart / 2;
  laws_.push_back(other);
}

void LevelMixture::TakeShares(const Levels& levels, std::vector<float>& shares) const {
  std::ranges::transform(laws_, shares.begin(), [&](const Law& law) { return law.LogDensity(levels); });
  const float best = std::ranges::max(shares);
  float sum = 0;
  for (float& share : shares) sum += share = std::exp(share - best);
  for (float& share : shares) share /= sum;
}

void LevelMixture::Improve(std::span<const Levels> samples) {
  std::vector<Sums> all(laws_.size());
  std::vector<float> shares(laws_.size());
  for (const Levels& levels : samples) {
    TakeShares(levels, shares);
    for (std::size_t place = 0; place < shares.size(); ++place) {
      if (shares[place] >= kLeastShare) all[place].Add(levels, double{shares[place]});
    }
  }
  for (std::size_t place = 0; place < laws_.size(); ++place) {
    Law& law = laws_[place];
    const Sums& sums = all[place];
    law.weight = static_cast<float>(sums.count / static_cast<double>(samples.size()));
    if (sums.count >= kFewest) {
      law.mean = sums.Mean();
      law.variance = sums.Variance(kLeastVariance);
    }
    law.Settle();
  }
}

float LevelMixture::LogDensity(const Levels& levels) const {
  float best = kNone;
  float sum = 0;
  for (const Law& law : laws_) {
    const float value = law.LogDensity(levels);
    if (value > best) {
      sum = sum * std::exp(best - value) + 1;
      best = value;
    } else {
      sum += std::exp(value - best);
    }
  }
  return best + std::log(sum);
}

}  // namespace cuewright

#include "voice/fit_voice_model.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;
constexpr double kMost = 3;
constexpr double kUnit = 10;     ///< dB of a unit of the model
constexpr double kNoise = 0.05;  ///< added to the spreads, so that no band is believed without end
constexpr double kFewest = 20;   ///< steps of each kind without which nothing is learned

using Bands = std::array<double, kBands>;
using Square = std::array<Bands, kBands>;

Bands LevelsAt(const SoundTable& sound, std::size_t step) {
  Bands levels;
  for (std::size_t band = 0; band < kBands; ++band) levels[band] = sound.Db(step, static_cast<int>(band)) / kUnit;
  return levels;
}

/// Mean and spread of the levels in some spans.
class Heap {
 public:
  Heap(const SoundTable& sound, std::span<const StepSpan> spans) {
    const auto each = [&](auto&& take) {
      for (const StepSpan& span : spans) {
        const std::ptrdiff_t last = std::min(span.last, static_cast<std::ptrdiff_t>(sound.Steps()));
        for (std::ptrdiff_t step = std::max<std::ptrdiff_t>(span.first, 0); step < last; ++step) {
          take(LevelsAt(sound, static_cast<std::size_t>(step)));
        }
      }
    };
    each([&](const Bands& levels) {
      ++count_;
      for (std::size_t band = 0; band < kBands; ++band) mean_[band] += levels[band];
    });
    if (count_ == 0) return;
    for (double& mean : mean_) mean /= count_;
    each([&](const Bands& levels) {
      for (std::size_t row = 0; row < kBands; ++row) {
        for (std::size_t column = 0; column < kBands; ++column) {
          spread_[row][column] += (levels[row] - mean_[row]) * (levels[column] - mean_[column]) / count_;
        }
      }
    });
  }

  double Count() const { return count_; }
  const Bands& Mean() const { return mean_; }
  const Square& Spread() const { return spread_; }

 private:
  double count_ = 0;
  Bands mean_{};
  Square spread_{};
};

/// Solves the equations by elimination; the matrix is symmetric, and positive by what is added to its diagonal.
Bands Solve(Square matrix, Bands right) {
  for (std::size_t row = 0; row < kBands; ++row) {
    for (std::size_t below = row + 1; below < kBands; ++below) {
      const double factor = matrix[below][row] / matrix[row][row];
      for (std::size_t column = row; column < kBands; ++column) matrix[below][column] -= factor * matrix[row][column];
      right[below] -= factor * right[row];
    }
  }
  for (std::size_t row = kBands; row-- > 0;) {
    for (std::size_t column = row + 1; column < kBands; ++column) right[row] -= matrix[row][column] * right[column];
    right[row] /= matrix[row][row];
  }
  return right;
}

}  // namespace

VoiceModel::VoiceModel(const SoundTable& sound, std::span<const StepSpan> spoken, std::span<const StepSpan> others)
    : sound_(sound) {
  const Heap voice(sound, spoken);
  const Heap rest(sound, others);
  if (voice.Count() < kFewest || rest.Count() < kFewest) return;
  Square common{};
  Bands apart{};
  for (std::size_t row = 0; row < kBands; ++row) {
    apart[row] = voice.Mean()[row] - rest.Mean()[row];
    for (std::size_t column = 0; column < kBands; ++column) {
      common[row][column] = (voice.Spread()[row][column] + rest.Spread()[row][column]) / 2;
    }
    common[row][row] += kNoise;
  }
  weight_ = Solve(common, apart);
  for (std::size_t band = 0; band < kBands; ++band) {
    middle_ += weight_[band] * (voice.Mean()[band] + rest.Mean()[band]) / 2;
    separation_ += weight_[band] * apart[band];
  }
}

double VoiceModel::Voice(std::ptrdiff_t step) const {
  if (step < 0 || step >= static_cast<std::ptrdiff_t>(sound_.Steps())) return 0;
  const Bands levels = LevelsAt(sound_, static_cast<std::size_t>(step));
  double likelihood = -middle_;
  for (std::size_t band = 0; band < kBands; ++band) likelihood += weight_[band] * levels[band];
  return std::clamp(likelihood, -kMost, kMost);
}

}  // namespace cuewright

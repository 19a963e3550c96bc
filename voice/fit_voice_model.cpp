#include "voice/fit_voice_model.h"

#include <algorithm>
#include <cmath>

#include "voice/band_levels.h"

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;
constexpr double kMost = 3;
constexpr double kUnit = 10;     ///< dB of a unit of the model
constexpr double kNoise = 0.05;  ///< added to the spreads, so that no band counts without limit
constexpr std::size_t kVoiceSounds = 8;
constexpr std::size_t kOtherSounds = 4;
constexpr double kOwnSpread =
    0.02;  ///< added to the noise's spread: a room may be more silent than the table's steps can tell
constexpr double kFewest = 20;  ///< steps of each kind without which nothing is learned
constexpr double kLeastSquare = 1e-4;
constexpr double kHeard = 1;  ///< likelihood from which a step is heard as a voice

using Bands = std::array<double, kBands>;
using Square = std::array<Bands, kBands>;

Bands UnitsAt(const SoundTable& sound, std::size_t step) {
  Bands levels;
  for (std::size_t band = 0; band < kBands; ++band) levels[band] = sound.Db(step, band) / kUnit;
  return levels;
}

/// Calls for each step of some spans that lies within the sound.
template <class Take>
void EachStep(const SoundTable& sound, std::span<const StepSpan> spans, Take&& take) {
  for (const StepSpan& span : spans) {
    const std::ptrdiff_t last = std::min<std::ptrdiff_t>(span.last, sound.Steps());
    for (std::ptrdiff_t step = std::max<std::ptrdiff_t>(span.first, 0); step < last; ++step) {
      take(step);
    }
  }
}

/// Mean and spread of the levels in some spans.
class Heap {
 public:
  Heap(const SoundTable& sound, std::span<const StepSpan> spans) {
    const auto each = [&](auto&& take) {
      EachStep(sound, spans, [&](std::size_t step) { take(UnitsAt(sound, step)); });
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

/// How far two sets of samples are apart along the line that divides them best.
double SeparationOf(const Heap& voice, const Heap& rest) {
  Square common{};
  Bands apart{};
  for (std::size_t row = 0; row < kBands; ++row) {
    apart[row] = voice.Mean()[row] - rest.Mean()[row];
    for (std::size_t column = 0; column < kBands; ++column) {
      common[row][column] = (voice.Spread()[row][column] + rest.Spread()[row][column]) / 2;
    }
    common[row][row] += kNoise;
  }
  const Bands weight = Solve(common, apart);
  double separation = 0;
  for (std::size_t band = 0; band < kBands; ++band) separation += weight[band] * apart[band];
  return separation;
}

}  // namespace

VoiceModel::VoiceModel(const SoundTable& sound, std::span<const StepSpan> spoken, std::span<const StepSpan> others)
    : sound_(&sound) {
  const Heap voice(sound, spoken);
  const Heap rest(sound, others);
  if (voice.Count() < kFewest || rest.Count() < kFewest) return;
  separation_ = SeparationOf(voice, rest);
  TakeRoot(rest.Spread());
  voice_.emplace(Samples(spoken), kVoiceSounds);
  rest_.emplace(Samples(others), kOtherSounds);
  heard_ = ShareHeard(spoken);
}

void VoiceModel::TakeRoot(const Square& spread) {
  for (std::size_t row = 0; row < kBands; ++row) {
    for (std::size_t column = 0; column <= row; ++column) {
      double left = spread[row][column] + (row == column ? kOwnSpread : 0);
      for (std::size_t before = 0; before < column; ++before) left -= root_[row][before] * root_[column][before];
      root_[row][column] = row == column ? std::sqrt(std::max(left, kLeastSquare)) : left / root_[column][column];
    }
  }
}

LevelMixture::Levels VoiceModel::LevelsAt(std::size_t step) const {
  LevelMixture::Levels levels{};
  for (std::size_t row = 0; row < kBands; ++row) {
    double left = sound_->Db(step, row) / kUnit;
    for (std::size_t before = 0; before < row; ++before) left -= root_[row][before] * double{levels[before]};
    levels[row] = static_cast<float>(left / root_[row][row]);
  }
  return levels;
}

std::vector<LevelMixture::Levels> VoiceModel::Samples(std::span<const StepSpan> spans) const {
  std::vector<LevelMixture::Levels> samples;
  EachStep(*sound_, spans, [&](std::size_t step) { samples.push_back(LevelsAt(step)); });
  return samples;
}

double VoiceModel::ShareHeard(std::span<const StepSpan> spoken) const {
  double all = 0;
  double heard = 0;
  EachStep(*sound_, spoken, [&](std::size_t step) {
    ++all;
    if (Voice(step) > kHeard) ++heard;
  });
  return heard / all;
}

double VoiceModel::Voice(std::ptrdiff_t step) const {
  const std::ptrdiff_t steps = sound_->Steps();
  if (step < 0 || step >= steps || !voice_) return 0;
  const LevelMixture::Levels levels = LevelsAt(step);
  return std::clamp(double{voice_->LogDensity(levels)} - double{rest_->LogDensity(levels)}, -kMost, kMost);
}

}  // namespace cuewright

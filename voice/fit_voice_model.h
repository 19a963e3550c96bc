#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "sound/sound_table.h"
#include "voice/level_mixture.h"

namespace cuewright {

/// Steps of a table of sound from the first up to the one before the last.
struct StepSpan {
  std::ptrdiff_t first = 0;
  std::ptrdiff_t last = 0;
};

/// Tells voice from other sound in a part of a film. It learns from the sound while captions are shown and from the
/// sound between them, in levels that the noise moves independently of each other.
class VoiceModel {
 public:
  /// Learns from steps in which somebody probably speaks, and from others. The spans may reach beyond the sound.
  VoiceModel(const SoundTable& sound, std::span<const StepSpan> spoken, std::span<const StepSpan> others);

  /// The log likelihood of voice against none in a step, within +-3; 0 beyond the sound.
  double Voice(std::ptrdiff_t step) const;

  /// The share of steps in which somebody probably speaks that are heard as a voice, from 0 to 1: near 1 in clean
  /// sound, the less the more of a voice the noise drowns.
  double Heard() const { return heard_; }

  /// How far voice and the rest are apart, in squares of their common spread; near 0 when nothing tells them apart.
  double Separation() const { return separation_; }

 private:
  using Bands = std::array<double, SoundTable::kBands>;
  using Square = std::array<Bands, SoundTable::kBands>;

  void TakeRoot(const Square& spread);
  /// The levels of a step, in units in which the noise's levels are independent and vary by 1.
  LevelMixture::Levels LevelsAt(std::size_t step) const;
  std::vector<LevelMixture::Levels> Samples(std::span<const StepSpan> spans) const;
  double ShareHeard(std::span<const StepSpan> spoken) const;

  const SoundTable* sound_;
  Square root_{};  ///< lower triangle whose square is the spread of the noise
  std::optional<LevelMixture> voice_;
  std::optional<LevelMixture> rest_;
  double separation_ = 0;
  double heard_ = 1;
};

}  // namespace cuewright

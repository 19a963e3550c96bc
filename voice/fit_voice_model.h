#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// Steps of a table of sound, the last one not among them.
struct StepSpan {
  std::ptrdiff_t first = 0;
  std::ptrdiff_t last = 0;
};

/// Tells voice from what else is heard in a part of a film, by what is heard while captions are shown there and
/// between them: a line through the levels of the bands that divides the two best.
class VoiceModel {
 public:
  /// Learns from steps in which somebody probably speaks, and from others. The spans may reach beyond the sound.
  VoiceModel(const SoundTable& sound, std::span<const StepSpan> spoken, std::span<const StepSpan> others);

  /// The log likelihood of voice against none in a step, within +-3; 0 beyond the sound.
  double Voice(std::ptrdiff_t step) const;

  /// How far voice and the rest are apart, in squares of their common spread; near 0 when nothing tells them apart.
  double Separation() const { return separation_; }

 private:
  using Bands = std::array<double, SoundTable::kBands>;

  const SoundTable& sound_;
  Bands weight_{};
  double middle_ = 0;
  double separation_ = 0;
};

}  // namespace cuewright

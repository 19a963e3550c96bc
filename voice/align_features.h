#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// A film's sound every 20 ms: how far each band lies above or below the loud parts around it, in dB.
class FilmFeatures {
 public:
  static constexpr int kFrameMs = 20;
  static constexpr std::size_t kBlock = 250;  ///< frames that share one measure of the quiet level

  using Bands = std::array<float, SoundTable::kBands>;

  explicit FilmFeatures(const SoundTable& film);

  std::size_t Frames() const { return frames_.size(); }
  const Bands& At(std::size_t frame) const { return frames_[frame]; }
  /// The levels of the noise or music around a frame: a voice below them is not heard.
  const Bands& Quiet(std::size_t frame) const { return quiet_[frame / kBlock]; }

 private:
  std::vector<Bands> frames_;
  std::vector<Bands> quiet_;
};

/// A line as it is spoken alone, a frame every 20 ms.
using SpokenFrames = std::vector<FilmFeatures::Bands>;

/// Lines that one voice speaks without other sound, in the same unit: above or below the loud parts of all of them.
std::vector<SpokenFrames> FeaturesOfLines(std::span<const SoundTable> lines);

/// The line as said by somebody who takes `pace` times as long.
SpokenFrames AtPace(const SpokenFrames& line, double pace);

}  // namespace cuewright

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// How often each value of a band occurs.
class ByteHistogram {
 public:
  void Add(std::uint8_t value) { ++counts_[value], ++all_; }
  void Remove(std::uint8_t value) { --counts_[value], --all_; }
  /// The level in dB below which this share lies.
  float Quantile(double share) const;

 private:
  std::array<std::size_t, 256> counts_{};
  std::size_t all_ = 0;
};

/// The quiet and the loud level of a band for a while, in dB.
struct BandLevels {
  float quiet = 0;
  float loud = 0;
};

/// How levels are measured.
struct LevelWindow {
  std::size_t block = 500;    ///< steps from one measure to the next
  std::size_t around = 1500;  ///< steps before and behind the middle of a block that count
  double quiet = 0.15;        ///< share of the steps that lie below the quiet level
  double loud = 0.92;
};

/// The levels of a band around the middle of each block.
std::vector<BandLevels> LevelsOf(const SoundTable& sound, std::size_t band, const LevelWindow& window);

}  // namespace cuewright

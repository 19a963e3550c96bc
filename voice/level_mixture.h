#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// How the levels of the bands are distributed in some kind of sound, in any unit: a mixture of normal laws, each of
/// which is one of the sounds of that kind, such as a vowel, a hiss, or a beat of a drum.
class LevelMixture {
 public:
  using Levels = std::array<float, SoundTable::kBands>;

  /// Learns from samples, of which there is at least one. `most` is how many laws there may be.
  LevelMixture(std::span<const Levels> samples, std::size_t most);

  /// The logarithm of the density at some levels, but for a constant.
  float LogDensity(const Levels& levels) const;

 private:
  struct Law {
    float weight = 0;
    Levels mean{};
    Levels variance{};
    float constant = 0;  ///< of the log density

    float LogDensity(const Levels& levels) const;
    void Settle();
  };

  void Divide();
  /// How likely a sample is of each law; 1 in sum.
  void TakeShares(const Levels& levels, std::vector<float>& shares) const;
  void Improve(std::span<const Levels> samples);

  std::vector<Law> laws_;
};

}  // namespace cuewright

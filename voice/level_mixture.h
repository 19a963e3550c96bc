#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// The distribution of the bands' levels in a kind of sound, in any unit: a mixture of normal laws, one for each sound
/// of that kind, such as a vowel, a hiss, or a beat of a drum.
class LevelMixture {
 public:
  using Levels = std::array<float, SoundTable::kBands>;

  /// Learns from at least one sample. `most` is how many laws there may be.
  LevelMixture(std::span<const Levels> samples, std::size_t most);

  /// The logarithm of the density at some levels, up to a constant.
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

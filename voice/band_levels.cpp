#include "voice/band_levels.h"

#include <algorithm>

namespace cuewright {

float ByteHistogram::Quantile(double share) const {
  const auto wanted = static_cast<std::size_t>(share * static_cast<double>(all_));
  std::size_t below = 0;
  std::size_t value = 0;
  while (value + 1 < counts_.size() && below + counts_[value] <= wanted) below += counts_[value++];
  return static_cast<float>(value) * SoundTable::kDbPerUnit;
}

std::vector<BandLevels> LevelsOf(const SoundTable& sound, std::size_t band, const LevelWindow& window) {
  const std::size_t steps = sound.Steps();
  std::vector<BandLevels> levels;
  ByteHistogram histogram;
  std::size_t first = 0;
  std::size_t behind = 0;
  for (std::size_t begin = 0; begin < steps; begin += window.block) {
    const std::size_t middle = begin + window.block / 2;
    while (behind < std::min(steps, middle + window.around)) histogram.Add(sound.At(behind++)[band]);
    while (first + window.around < middle && first < behind) histogram.Remove(sound.At(first++)[band]);
    levels.push_back({histogram.Quantile(window.quiet), histogram.Quantile(window.loud)});
  }
  return levels;
}

}  // namespace cuewright

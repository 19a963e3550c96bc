#include "audio/wave_pyramid.h"

#include <algorithm>

namespace cuewright {
namespace {

void Join(WavePeak& joined, const WavePeak& other) {
  joined.maximum = std::max(joined.maximum, other.maximum);
  joined.minimum = std::min(joined.minimum, other.minimum);
}

}  // namespace

void WavePyramid::Clear() {
  for (std::vector<WavePeak>& level : levels_) {
    level.clear();
    level.shrink_to_fit();
  }
}

void WavePyramid::Append(const WavePeak& peak) {
  levels_[0].push_back(peak);
  for (std::size_t level = 0; level + 1 < kLevels; ++level) {
    const std::vector<WavePeak>& below = levels_[level];
    if (below.size() % kWidth != 0) return;
    WavePeak joined = below.back();
    for (std::size_t i = below.size() - kWidth; i < below.size(); ++i) Join(joined, below[i]);
    levels_[level + 1].push_back(joined);
  }
}

WavePeak WavePyramid::Of(Ms from, Ms to) const {
  std::size_t at = std::max<Ms>(from, 0).Count();
  const std::size_t end = std::clamp<Ms>(to, 0, Length()).Count();
  if (at >= end) return {};
  WavePeak peak = levels_[0][at];
  while (at < end) {
    // The widest peak that begins here and doesn't reach beyond the end.
    std::size_t level = 0;
    std::size_t width = 1;
    while (level + 1 < kLevels && at % (width * kWidth) == 0 && at + width * kWidth <= end) {
      ++level;
      width *= kWidth;
    }
    Join(peak, levels_[level][at / width]);
    at += width;
  }
  return peak;
}

}  // namespace cuewright

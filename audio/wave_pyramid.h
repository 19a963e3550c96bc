#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/counting.h"
#include "core/ms.h"

namespace cuewright {

/// The largest and the smallest sample of a stretch of sound.
struct WavePeak {
  std::int16_t maximum = 0;
  std::int16_t minimum = 0;

  bool operator==(const WavePeak&) const = default;
};

/// The peaks of a sound, one each ms, and over them those of 4, 16, 64 ms and so on: the peak of any stretch costs
/// about the same, so that a picture of any scale costs what its width does.
class WavePyramid {
 public:
  void Clear();
  /// The peak of the next ms.
  void Append(const WavePeak& peak);

  /// Length of what is there.
  Ms Length() const { return CountOf(levels_[0]); }
  /// The peak from one ms up to, not with, another; zeros where there is nothing.
  WavePeak Of(Ms from, Ms to) const;

 private:
  static constexpr std::size_t kLevels = 8;
  static constexpr std::size_t kWidth = 4;  ///< peaks under one of the level above

  std::array<std::vector<WavePeak>, kLevels> levels_;
};

}  // namespace cuewright

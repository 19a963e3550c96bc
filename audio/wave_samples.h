#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "sound/sample.h"

namespace cuewright {

/// Where the samples of a wave file lie and what they are.
struct WaveLayout {
  std::uint64_t begin = 0;  ///< of the first sample in the file; 0: not known
  std::uint64_t end = 0;
  std::uint32_t rate = 0;        ///< samples a second
  std::uint32_t frameBytes = 0;  ///< of all channels at one time
  int bits = 0;                  ///< of a sample, 8 or 16
};

/// Samples of 16 bits, the lower byte first.
struct Sample16 {
  static constexpr std::size_t kBytes = 2;
  static std::int16_t At(const char* at) { return SampleOf(at[0], at[1]); }
};

/// Appends the mean of all channels for each whole frame of samples of 16 bits; a frame has a sample at least.
void MixFrames(std::span<const char> bytes, std::size_t frameBytes, std::vector<std::int16_t>& mixed);

}  // namespace cuewright

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace cuewright {

/// A picture of a film, shrunk: luma 64 by 36, both chroma planes 32 by 18, a byte a sample, as "yuv420p" has them.
struct Thumbnail {
  static constexpr int kWidth = 64;
  static constexpr int kHeight = 36;
  static constexpr std::size_t kLuma = std::size_t{kWidth} * kHeight;
  static constexpr std::size_t kChroma = kLuma / 4;
  static constexpr std::size_t kBytes = kLuma + 2 * kChroma;

  std::array<std::uint8_t, kBytes> bytes{};

  const std::uint8_t* Luma() const { return bytes.data(); }
  const std::uint8_t* Blue() const { return bytes.data() + kLuma; }
  const std::uint8_t* Red() const { return Blue() + kChroma; }
};

}  // namespace cuewright

#pragma once

#include <cstdint>

namespace cuewright {

/// A sample of 16 bits from its two bytes.
constexpr std::int16_t SampleOf(std::uint8_t low, std::uint8_t high) {
  return static_cast<std::int16_t>(low | high << 8);
}

}  // namespace cuewright

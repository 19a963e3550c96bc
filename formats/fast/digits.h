#pragma once

#include <cstdint>
#include <string_view>

#include "core/numbers.h"

namespace cuewright {

/// How many digits the bytes begin with.
inline std::size_t DigitsAtBeginning(std::string_view bytes) {
  std::size_t count = 0;
  while (count < bytes.size() && IsDigit(bytes[count])) ++count;
  return count;
}

/// Most digits of a number that `CountOf` reads.
inline constexpr std::size_t kLongestCount = 9;

/// The number of up to nine digits.
inline std::int32_t CountOf(std::string_view digits) {
  std::int32_t count = 0;
  for (const char c : digits) count = count * 10 + (c - '0');
  return count;
}

}  // namespace cuewright

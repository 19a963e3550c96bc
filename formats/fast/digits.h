#pragma once

#include <cstdint>
#include <string_view>

#include "text/digits.h"

namespace cuewright {

/// How many digits the bytes begin with.
inline std::size_t DigitsAtBeginning(std::string_view bytes) {
  std::size_t count = 0;
  while (count < bytes.size() && IsDigit(bytes[count])) ++count;
  return count;
}

/// With so many digits any number fits 32 bits.
inline constexpr std::size_t kLongestCount = 9;

/// The number that the bytes begin with, of its first nine digits; returns how many digits it has.
inline std::size_t ReadCount(std::string_view bytes, std::int32_t& count) {
  std::size_t length = 0;
  count = 0;
  for (; length < bytes.size() && IsDigit(bytes[length]); ++length) {
    if (length < kLongestCount) count = count * 10 + (bytes[length] - '0');
  }
  return length;
}

}  // namespace cuewright

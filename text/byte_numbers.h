#pragma once

#include <cassert>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/units.h"

namespace cuewright {

/// Appends so many of a number's lowest bytes, at most 8, the lowest first.
inline void PutBytes(std::string& out, std::uint64_t number, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) out.push_back(LowByte(number >> (8 * i)));
}

/// The number that bytes make, the lowest first; they must not be more than its type has.
template <std::unsigned_integral Number = std::uint64_t>
constexpr Number NumberOf(std::string_view bytes) {
  assert(bytes.size() <= sizeof(Number));
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) number |= std::uint64_t{ByteOf(bytes[i])} << (8 * i);
  return static_cast<Number>(number);
}

}  // namespace cuewright

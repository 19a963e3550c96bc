#pragma once

namespace cuewright {

/// True for "0" to "9" alone, in text or bytes.
template <class Unit>
constexpr bool IsDigit(Unit c) {
  return c >= Unit{'0'} && c <= Unit{'9'};
}

}  // namespace cuewright

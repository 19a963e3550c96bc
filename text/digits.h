#pragma once

#include <concepts>

namespace cuewright {

/// True for "0" to "9" alone, in text or bytes.
template <class Unit>
constexpr bool IsDigit(Unit c) {
  return c >= Unit{'0'} && c <= Unit{'9'};
}

/// The character of a number from 0 to 9, in text or bytes.
template <class Unit>
constexpr Unit DigitOf(std::integral auto number) {
  return static_cast<Unit>('0' + number);
}

/// The value of a hexadecimal digit in either case; -1 for any other character.
constexpr int HexDigit(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  const int letter = c | 0x20;
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

}  // namespace cuewright

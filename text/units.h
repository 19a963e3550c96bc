#pragma once

#include <concepts>

namespace cuewright {

/// The number of a byte, 0 to 255.
constexpr unsigned char ByteOf(char c) { return static_cast<unsigned char>(c); }

/// The byte of a number's lowest eight bits.
constexpr char LowByte(std::integral auto number) { return static_cast<char>(number); }

/// The unit of a number's lowest 16 bits.
constexpr char16_t LowUnit(std::integral auto number) { return static_cast<char16_t>(number); }

/// The two halves of a pair, which stands for a character from U+10000 on.
constexpr bool IsLead(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool IsTrail(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }
constexpr char16_t LeadOf(char32_t character) { return LowUnit(0xD7C0 + (character >> 10)); }
constexpr char16_t TrailOf(char32_t character) { return LowUnit(0xDC00 | (character & 0x3FF)); }
constexpr char32_t CharacterOfPair(char16_t lead, char16_t trail) {
  return 0x10000 + ((char32_t{lead} & 0x3FF) << 10) + (trail & 0x3FF);
}

/// The letters of ASCII in lower (upper) case, in text or bytes; any other character stays.
template <class Unit>
constexpr Unit LowerAscii(Unit c) {
  return c >= Unit{'A'} && c <= Unit{'Z'} ? static_cast<Unit>(c + ('a' - 'A')) : c;
}
template <class Unit>
constexpr Unit UpperAscii(Unit c) {
  return c >= Unit{'a'} && c <= Unit{'z'} ? static_cast<Unit>(c - ('a' - 'A')) : c;
}

}  // namespace cuewright

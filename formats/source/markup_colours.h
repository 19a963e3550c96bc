#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace cuewright {

/// 0xRRGGBB of a colour as HTML and style sheets write it: a name, "#rgb", "#rrggbb" with or without an alpha value,
/// six digits alone, "rgb(1,2,3)".
std::optional<std::uint32_t> WebColour(TextView value);

/// 0xRRGGBB of hexadecimal digits whose last two are red, as "&HBBGGRR&" and "$bbggrr" have them.
std::optional<std::uint32_t> ColourWithRedLast(TextView value);

/// "rrggbb" in small letters.
Text ColourDigits(std::uint32_t colour);

/// The same colour with red and blue exchanged.
constexpr std::uint32_t Exchanged(std::uint32_t colour) {
  return (colour & 0xFF) << 16 | (colour & 0xFF00) | colour >> 16;
}

/// The class that WebVTT has for a text colour; empty for other colours.
TextView CueColourClass(std::uint32_t colour);
std::optional<std::uint32_t> ColourOfCueClass(TextView name);

}  // namespace cuewright

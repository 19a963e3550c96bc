#pragma once

#include <cstdint>

namespace cuewright {

/// A character of the basic set of line-21 captions, for bytes 0x20 to 0x7F.
char16_t BasicCaptionCharacter(std::uint8_t byte);

/// A character of the special set (second byte 0x30 to 0x3F); a blank for the transparent one.
char16_t SpecialCaptionCharacter(std::uint8_t byte);

/// A character of one of the two extended sets (second byte 0x20 to 0x3F): 0 has Spanish and French, 1 Portuguese,
/// German and Danish.
char16_t ExtendedCaptionCharacter(int set, std::uint8_t byte);

}  // namespace cuewright

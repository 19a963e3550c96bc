#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cuewright {

/// A time of the clock found in a line: its value in ms and the bytes it takes.
struct SubRipTime {
  std::int32_t ms = 0;
  std::size_t size = 0;
};

/// Reads "[H:]MM:SS[.fraction]" at the beginning of `text`: hours of one to three digits, or none with `mayLackHours`;
/// minutes and seconds of one or two digits below 60; behind a comma or a dot any number of digits, which are a
/// fraction of the second, rounded to ms. Nothing when no such time stands there.
std::optional<SubRipTime> ReadSubRipTime(std::string_view text, bool mayLackHours = false);

/// A time in ms with the digits and signs of the clock field `old`: as many digits of the hour or more, a fraction of
/// as many digits, rounded to its last one with carry. Hours are added when the old field lacks them and the time needs
/// them.
std::string WriteSubRipTime(std::int32_t ms, std::string_view old);

}  // namespace cuewright

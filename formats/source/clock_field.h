#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ms.h"

namespace cuewright {

/// A clock time that stands in a file, and how many bytes it takes.
struct ClockField {
  Ms ms = 0;
  std::size_t size = 0;
};

/// The clock time with which the bytes begin: "[hours:]minutes:seconds[.fraction]", with a dot or a comma and any
/// number of digits in each part. Empty when they begin with something else or the time doesn't fit.
std::optional<ClockField> ReadClock(std::string_view bytes);

/// The same for "hours:minutes:seconds[.fraction]" as a clock shows it: at most 3, 2 and 2 digits, minutes and seconds
/// below 60.
std::optional<ClockField> ReadFullClock(std::string_view bytes);

/// What a time without a field for hours does from one hour on.
enum class NoHours { AreAdded, RunOnInMinutes };

/// A time in the form of another, to the nearest step that its fraction has: the same parts, signs and digits, more of
/// them where the time needs more. A negative time is written as 0, and the form of anything that is no clock time is
/// "00:00:00.000".
std::string ClockLike(Ms ms, std::string_view form, NoHours noHours = NoHours::AreAdded);

/// A number that stands in a file, and how many digits it has.
struct NumberField {
  std::int32_t number = 0;
  std::size_t size = 0;
};

/// The number with which the bytes begin; empty without a digit and when it doesn't fit.
std::optional<NumberField> ReadNumber(std::string_view bytes);

/// `value / step`, to the nearest, halves upward; for values from 0 on.
constexpr std::int64_t Nearest(std::int64_t value, std::int64_t step) { return (value + step / 2) / step; }

}  // namespace cuewright

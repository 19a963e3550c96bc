#include "formats/source/subrip_clock.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr bool IsDigitByte(char c) { return c >= '0' && c <= '9'; }

std::size_t DigitsAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && IsDigitByte(text[end])) ++end;
  return end - at;
}

std::int32_t NumberAt(std::string_view text, std::size_t at, std::size_t digits) {
  std::int32_t number = 0;
  for (std::size_t i = at; i < at + digits; ++i) number = number * 10 + (text[i] - '0');
  return number;
}

/// Digits behind the decimal sign as ms; those behind the fourth can't change the rounding.
std::int32_t FractionMs(std::string_view digits) {
  std::int32_t tenthsOfMs = 0;
  for (std::size_t i = 0; i < 4; ++i) tenthsOfMs = tenthsOfMs * 10 + (i < digits.size() ? digits[i] - '0' : 0);
  return (tenthsOfMs + 5) / 10;
}

void AppendPadded(std::int64_t number, std::size_t digits, std::string& out) {
  const std::string text = std::to_string(number);
  if (text.size() < digits) out.append(digits - text.size(), '0');
  out += text;
}

/// The groups of a clock field and what parts them.
struct TimeShape {
  std::size_t hourDigits = 0;  ///< 0: no hours
  std::size_t minuteDigits = 2;
  std::size_t secondDigits = 2;
  char sign = ',';
  std::size_t fractionDigits = 0;
};

TimeShape ShapeOf(std::string_view old) {
  TimeShape shape;
  std::size_t at = DigitsAt(old, 0);
  const std::size_t first = at;
  const std::size_t second = DigitsAt(old, at + 1);
  at += 1 + second;
  if (at < old.size() && old[at] == ':') {
    shape.hourDigits = first;
    shape.minuteDigits = second;
    shape.secondDigits = DigitsAt(old, at + 1);
    at += 1 + shape.secondDigits;
  } else {
    shape.minuteDigits = first;
    shape.secondDigits = second;
  }
  if (at < old.size()) {
    shape.sign = old[at];
    shape.fractionDigits = DigitsAt(old, at + 1);
  }
  return shape;
}

}  // namespace

std::optional<SubRipTime> ReadSubRipTime(std::string_view text, bool mayLackHours) {
  const std::size_t first = DigitsAt(text, 0);
  if (first == 0 || first > 3 || first == text.size() || text[first] != ':') return {};
  const std::size_t second = DigitsAt(text, first + 1);
  if (second == 0 || second > 2) return {};
  std::size_t at = first + 1 + second;
  std::int32_t hours = NumberAt(text, 0, first);
  std::int32_t minutes = NumberAt(text, first + 1, second);
  std::int32_t seconds = 0;
  if (at < text.size() && text[at] == ':' && DigitsAt(text, at + 1) != 0) {
    const std::size_t third = DigitsAt(text, at + 1);
    if (third > 2) return {};
    seconds = NumberAt(text, at + 1, third);
    at += 1 + third;
  } else if (mayLackHours && first <= 2) {
    seconds = minutes;
    minutes = hours;
    hours = 0;
  } else {
    return {};
  }
  if (minutes > 59 || seconds > 59 || hours > 595) return {};
  std::int32_t ms = ((hours * 60 + minutes) * 60 + seconds) * 1000;
  if (at < text.size() && (text[at] == ',' || text[at] == '.')) {
    const std::size_t digits = DigitsAt(text, at + 1);
    if (digits != 0) ms += FractionMs(text.substr(at + 1, digits));
    at += digits == 0 ? 0 : 1 + digits;
  }
  return SubRipTime{ms, at};
}

std::string WriteSubRipTime(std::int32_t ms, std::string_view old) {
  const TimeShape shape = ShapeOf(old);
  std::int64_t step = 1;  // of the last digit, in ms
  for (std::size_t digits = shape.fractionDigits; digits < 3; ++digits) step *= 10;
  const std::int64_t rounded = (std::max<std::int64_t>(ms, 0) + step / 2) / step * step;
  const std::int64_t hours = rounded / 3600000;
  std::string out;
  if (shape.hourDigits != 0 || hours != 0) {
    AppendPadded(hours, shape.hourDigits == 0 ? 2 : shape.hourDigits, out);
    out += ':';
  }
  AppendPadded(rounded / 60000 % 60, shape.minuteDigits, out);
  out += ':';
  AppendPadded(rounded / 1000 % 60, shape.secondDigits, out);
  if (shape.fractionDigits == 0) return out;
  out += shape.sign;
  AppendPadded(rounded % 1000 / step, std::min<std::size_t>(shape.fractionDigits, 3), out);
  if (shape.fractionDigits > 3) out.append(shape.fractionDigits - 3, '0');
  return out;
}

}  // namespace cuewright

#include "formats/source/clock_field.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/numbers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::int64_t kLongest = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kMostParts = 3;
constexpr std::size_t kMsDigits = 3;

/// The parts of a clock time as they are written.
struct ClockForm {
  std::array<std::size_t, kMostParts> widths{};
  std::size_t parts = 0;
  char fractionMark = 0;
  std::size_t fractionDigits = 0;
  std::size_t size = 0;
  Ms ms = 0;
};

std::size_t DigitsAt(std::string_view bytes, std::size_t at) {
  std::size_t end = at;
  while (end < bytes.size() && IsDigit(bytes[end])) ++end;
  return end - at;
}

/// A number; one that is too large counts as just above the largest that can be held.
std::int64_t NumberOf(std::string_view digits) {
  std::int64_t number = 0;
  for (const char c : digits) number = std::min(number * 10 + (c - '0'), kLongest + 1);
  return number;
}

/// A fraction of a second in ms, its further digits rounded.
std::int64_t FractionMs(std::string_view digits) {
  std::int64_t ms = 0;
  for (std::size_t i = 0; i < kMsDigits; ++i) ms = ms * 10 + (i < digits.size() ? digits[i] - '0' : 0);
  return digits.size() > kMsDigits && digits[kMsDigits] >= '5' ? ms + 1 : ms;
}

std::optional<ClockForm> FormOf(std::string_view bytes) {
  ClockForm form;
  std::int64_t seconds = 0;
  std::size_t at = 0;
  for (;;) {
    const std::size_t width = DigitsAt(bytes, at);
    if (width == 0) return {};
    form.widths[form.parts++] = width;
    seconds = std::min(seconds * 60 + NumberOf(bytes.substr(at, width)), kLongest);
    at += width;
    if (form.parts == kMostParts || bytes.substr(at, 1) != ":" || DigitsAt(bytes, at + 1) == 0) break;
    ++at;
  }
  if (form.parts < 2) return {};
  std::int64_t ms = seconds * 1000;
  if (at + 1 < bytes.size() && (bytes[at] == '.' || bytes[at] == ',') && IsDigit(bytes[at + 1])) {
    form.fractionMark = bytes[at];
    form.fractionDigits = DigitsAt(bytes, at + 1);
    ms += FractionMs(bytes.substr(at + 1, form.fractionDigits));
    at += 1 + form.fractionDigits;
  }
  if (ms > kLongest) return {};
  form.ms = Checked32(ms).Value();
  form.size = at;
  return form;
}

void AppendPadded(std::int64_t number, std::size_t width, std::string& out) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

}  // namespace

std::optional<ClockField> ReadClock(std::string_view bytes) {
  const std::optional<ClockForm> form = FormOf(bytes);
  if (!form) return {};
  return ClockField{form->ms, form->size};
}

std::optional<ClockField> ReadFullClock(std::string_view bytes) {
  constexpr std::array<std::size_t, kMostParts> kMostDigits = {3, 2, 2};
  const std::optional<ClockForm> form = FormOf(bytes);
  if (!form || form->parts != kMostParts) return {};
  std::size_t at = 0;
  for (std::size_t part = 0; part < kMostParts; ++part) {
    const std::size_t width = form->widths[part];
    if (width > kMostDigits[part] || (part > 0 && NumberOf(bytes.substr(at, width)) >= 60)) return {};
    at += width + 1;
  }
  return ClockField{form->ms, form->size};
}

std::string ClockLike(Ms ms, std::string_view like, NoHours noHours) {
  const ClockForm form = FormOf(like).value_or(ClockForm{{2, 2, 2}, 3, '.', kMsDigits, 0, 0});
  const std::size_t digits = std::min(form.fractionDigits, kMsDigits);
  std::int64_t perSecond = 1;
  for (std::size_t i = 0; i < digits; ++i) perSecond *= 10;
  const std::int64_t steps = Nearest(std::max<Ms>(ms, 0).Wide(), 1000 / perSecond);
  const std::int64_t seconds = steps / perSecond;

  std::string out;
  const bool hasHours = form.parts == kMostParts;
  const bool runsOn = !hasHours && noHours == NoHours::RunOnInMinutes;
  if (hasHours || (!runsOn && seconds >= 3600)) {
    AppendPadded(seconds / 3600, hasHours ? form.widths[0] : 2, out);
    out += ':';
  }
  AppendPadded(runsOn ? seconds / 60 : seconds / 60 % 60, form.widths[form.parts - 2], out);
  out += ':';
  AppendPadded(seconds % 60, form.widths[form.parts - 1], out);
  if (form.fractionMark == 0) return out;
  out += form.fractionMark;
  AppendPadded(steps % perSecond, digits, out);
  out.append(form.fractionDigits - digits, '0');
  return out;
}

std::optional<NumberField> ReadNumber(std::string_view bytes) {
  const std::size_t size = DigitsAt(bytes, 0);
  const std::int64_t number = NumberOf(bytes.substr(0, size));
  if (size == 0 || number > kLongest) return {};
  return NumberField{Checked32(number), size};
}

}  // namespace cuewright

#include "formats/exact_times.h"

#include <algorithm>

#include "core/numbers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::int32_t kSecond = 1000;
/// More digits than this are no time.
constexpr std::size_t kMostDigits = 9;

std::int64_t NumberOf(TextView digits) {
  std::int64_t number = 0;
  for (const char16_t c : digits) number = number * 10 + (c - u'0');
  return number;
}

/// Digits behind a decimal sign, to the nearest ms.
std::int64_t MsOfFraction(TextView digits) {
  std::int64_t unit = 1;
  for (std::size_t i = 0; i < digits.size(); ++i) unit *= 10;
  return (2 * kSecond * NumberOf(digits) + unit) / (2 * unit);
}

}  // namespace

SecondsAndRest NearestStep(std::int32_t ms, std::int32_t stepMs) {
  const std::int64_t steps = (std::max<std::int64_t>(ms, 0) + stepMs / 2) / stepMs;
  const std::int64_t aSecond = kSecond / stepMs;
  return {steps / aSecond, static_cast<std::int32_t>(steps % aSecond)};
}

SecondsAndRest NearestFrame(std::int32_t ms, const FrameRate& rate) {
  ms = std::max(ms, 0);
  const std::int32_t rest = ms % kSecond;
  const std::int64_t cut = std::int64_t{rest} * rate.Numerator() / (std::int64_t{kSecond} * rate.Denominator());
  const auto frame = static_cast<std::int32_t>(cut);
  // The next second begins where a frame would begin later or, to the ms, at the same time.
  const std::int32_t next = std::min(rate.MsOfFrames(cut + 1), kSecond);
  const bool nextIsNearer = next - rest <= rest - rate.MsOfFrames(cut);
  if (!nextIsNearer) return {ms / kSecond, frame};
  return next == kSecond ? SecondsAndRest{ms / kSecond + 1, 0} : SecondsAndRest{ms / kSecond, frame + 1};
}

ClockFields::ClockFields(TextView timecodeTemplate) {
  char16_t last = u'\0';
  for (const char16_t c : timecodeTemplate) {
    constexpr TextView kLetters = u"hmszf";
    const std::size_t field = kLetters.find(c);
    if (c != last && field != TextView::npos && count_ < fields_.size()) fields_[count_++] = static_cast<Field>(field);
    last = c;
  }
}

std::int64_t ClockFields::MsOf(Field field, TextView digits, const FrameRate& rate) {
  switch (field) {
    case Field::Hours:
      return NumberOf(digits) * 3600 * kSecond;
    case Field::Minutes:
      return NumberOf(digits) * 60 * kSecond;
    case Field::Seconds:
      return NumberOf(digits) * kSecond;
    case Field::Fraction:
      return MsOfFraction(digits);
    case Field::Frames:
      return rate ? rate.MsOfFrames(NumberOf(digits)) : 0;
  }
  return 0;
}

bool ClockFields::Read(TextView text, const FrameRate& rate, std::int32_t& ms) const {
  text = TrimBlanks(text);
  std::int64_t sum = 0;
  for (std::size_t field = 0; field < count_; ++field) {
    const auto end = std::ranges::find_if_not(text, IsDigit<char16_t>);
    const auto length = static_cast<std::size_t>(end - text.begin());
    if (length == 0 || length > kMostDigits) return false;
    sum += MsOf(fields_[field], text.substr(0, length), rate);
    text.remove_prefix(length);
    if (field + 1 == count_) break;
    if (text.empty()) return false;
    text.remove_prefix(1);
  }
  if (count_ == 0 || !text.empty()) return false;
  ms = Checked32(sum);
  return true;
}

}  // namespace cuewright

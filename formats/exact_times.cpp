#include "formats/exact_times.h"

#include <algorithm>

#include "core/numbers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr Ms kSecond = 1000;
/// A field with more digits is no part of a time.
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
  return (2 * kSecond.Wide() * NumberOf(digits) + unit) / (2 * unit);
}

}  // namespace

SecondsAndRest NearestStep(Ms ms, std::int32_t stepMs) {
  const std::int64_t steps = (std::max<Ms>(ms, 0).Wide() + stepMs / 2) / stepMs;
  const std::int32_t aSecond = kSecond.Count() / stepMs;
  // Less than a second of steps is left, which fits.
  return {steps / aSecond, Checked32(steps % aSecond)};
}

SecondsAndRest NearestFrame(Ms ms, const FrameRate& rate) {
  const std::int32_t whole = std::max<Ms>(ms, 0) / kSecond;
  const Ms rest = std::max<Ms>(ms, 0) % kSecond;
  const std::int64_t cut = rest.Wide() * rate.Numerator() / (kSecond.Wide() * rate.Denominator());
  const std::int32_t frame = Checked32(cut);
  // A frame that would begin with the next second or later, to the ms, is that second's first.
  const Ms next = std::min(rate.MsOfFrames(cut + 1), kSecond);
  const bool nextIsNearer = next - rest <= rest - rate.MsOfFrames(cut);
  if (!nextIsNearer) return {whole, frame};
  return next == kSecond ? SecondsAndRest{whole + 1, 0} : SecondsAndRest{whole, frame + 1};
}

ClockFields::ClockFields(TextView timecodeTemplate) {
  constexpr std::array<std::pair<char16_t, Field>, 5> kLetters = {{{u'h', Field::Hours},
                                                                   {u'm', Field::Minutes},
                                                                   {u's', Field::Seconds},
                                                                   {u'z', Field::Fraction},
                                                                   {u'f', Field::Frames}}};
  char16_t last = u'\0';
  for (const char16_t c : timecodeTemplate) {
    const auto* const known = std::ranges::find(kLetters, c, &std::pair<char16_t, Field>::first);
    if (c != last && known != kLetters.end() && count_ < fields_.size()) fields_[count_++] = known->second;
    last = c;
  }
}

std::int64_t ClockFields::MsOf(Field field, TextView digits, const FrameRate& rate) {
  switch (field) {
    case Field::Hours:
      return NumberOf(digits) * 3600 * kSecond.Wide();
    case Field::Minutes:
      return NumberOf(digits) * 60 * kSecond.Wide();
    case Field::Seconds:
      return NumberOf(digits) * kSecond.Wide();
    case Field::Fraction:
      return MsOfFraction(digits);
    case Field::Frames:
      return rate ? rate.MsOfFrames(NumberOf(digits)).Wide() : 0;
  }
  return 0;
}

bool ClockFields::Read(TextView text, const FrameRate& rate, Ms& ms) const {
  text = TrimBlanks(text);
  std::int64_t sum = 0;
  for (std::size_t field = 0; field < count_; ++field) {
    const auto end = std::ranges::find_if_not(text, IsDigit<char16_t>);
    const std::size_t length = end - text.begin();
    if (length == 0 || length > kMostDigits) return false;
    sum += MsOf(fields_[field], text.substr(0, length), rate);
    text.remove_prefix(length);
    if (field + 1 == count_) break;
    if (text.empty()) return false;
    text.remove_prefix(1);
  }
  if (count_ == 0 || !text.empty()) return false;
  ms = Checked32(sum).Value();
  return true;
}

}  // namespace cuewright

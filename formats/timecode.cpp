#include "formats/timecode.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::int32_t kHour = 3600000;
constexpr std::int32_t kMinute = 60000;
constexpr std::int32_t kSecond = 1000;
/// Length of "hh:mm:ss.zzz", to which all times in columns are brought.
constexpr std::size_t kFixedLength = 12;

bool Holds(TextView text, TextView part) { return text.find(part) != TextView::npos; }

/// `count` characters from the 1-based place on, as many as there are.
TextView Middle(TextView text, std::size_t place, std::size_t count) {
  return place <= text.size() ? text.substr(place - 1, count) : TextView();
}

TextView Last(TextView text, std::size_t count) { return text.substr(text.size() - std::min(count, text.size())); }

double Number(TextView text) {
  if (text.size() > 9) return LeadingNumber(text);
  std::int32_t value = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c)) return LeadingNumber(text);
    value = value * 10 + (c - u'0');
  }
  return value;
}

/// The time of the form "hh:mm:ss.zzz" with digits in all columns; false for any other.
template <class Unit>
bool SumOfDigits(std::basic_string_view<Unit> fixed, Ms& ms) {
  if (fixed.size() != kFixedLength) return false;
  bool digits = true;
  const auto digit = [&](std::size_t at) {
    const int value = fixed[at] - '0';
    digits = digits && value >= 0 && value <= 9;
    return value;
  };
  const int hours = digit(0) * 10 + digit(1);
  const int minutes = digit(3) * 10 + digit(4);
  const int seconds = digit(6) * 10 + digit(7);
  const int rest = digit(9) * 100 + digit(10) * 10 + digit(11);
  if (digits) ms = hours * kHour + minutes * kMinute + seconds * kSecond + rest;
  return digits;
}

/// Writes a number of at least `digits` digits and returns the place behind it.
template <class Unit>
Unit* PutNumber(std::int64_t number, std::size_t digits, Unit* out) {
  std::array<Unit, 24> reversed;
  if (number < 0) *out++ = Unit{'-'};
  std::uint64_t left = number < 0 ? -number : number;
  std::size_t count = 0;
  do reversed[count++] = DigitOf<Unit>(left % 10);
  while ((left /= 10) != 0);
  for (std::size_t zeros = std::min(digits, kLongestNumber - 24); zeros > count; --zeros) *out++ = Unit{'0'};
  while (count != 0) *out++ = reversed[--count];
  return out;
}

/// The same, faster for the two or three digits that most fields have.
template <class Unit>
Unit* PutField(std::int32_t number, std::size_t digits, Unit* out) {
  const auto digit = [](std::int32_t value) { return DigitOf<Unit>(value % 10); };
  if (digits == 2 && number >= 0 && number < 100) {
    out[0] = digit(number / 10);
    out[1] = digit(number);
    return out + 2;
  }
  if (digits == 3 && number >= 0 && number < 1000) {
    out[0] = digit(number / 100);
    out[1] = digit(number / 10);
    out[2] = digit(number);
    return out + 3;
  }
  return PutNumber(number, digits, out);
}

struct Parts {
  Checked8 hours;
  Checked8 minutes;
  Checked8 seconds;
  std::int32_t rest = 0;
};

Parts SplitTime(std::int32_t ms) {
  Parts parts;
  // Only times of a unit or more are taken apart, so that a negative time stays whole in `rest`.
  if (ms > kHour - 1) parts.hours = Checked8(ms / kHour), ms %= kHour;
  if (ms > kMinute - 1) parts.minutes = Checked8(ms / kMinute), ms %= kMinute;
  if (ms > kSecond - 1) parts.seconds = Checked8(ms / kSecond), ms %= kSecond;
  parts.rest = ms;
  return parts;
}

/// The rest cut to the digits of the picture; a short one stays as it is.
std::int32_t CutFraction(std::int32_t rest, std::size_t digits) {
  if (digits == 3 && rest < 1000) return rest;
  std::int32_t bound = 1;
  for (std::size_t i = 0; i < digits; ++i) bound *= 10;
  while (rest >= bound) rest /= 10;
  return rest;
}

}  // namespace

void AppendNumber(std::int64_t number, std::size_t digits, Text& out) {
  std::array<char16_t, kLongestNumber> room;
  char16_t* const end = PutNumber(number, digits, room.data());
  out.append(room.data(), end - room.data());
}

std::size_t PutNumberBytes(std::int64_t number, std::size_t digits, std::span<char> out) {
  return PutNumber(number, digits, out.data()) - out.data();
}

TimecodeReader::TimecodeReader(const TimecodeForm& form, const TimeRules& rules) : rules_(rules) {
  const Text& pattern = form.timecodeTemplate;
  if (rules.rate) wholeRate_ = rules.exact ? 1 : RoundToInt32(rules.rate.AsGiven());
  if (pattern == u"ms") return;
  kind_ = pattern == u"ff" ? Kind::Frames : Kind::Columns;
  prefix_ = !Holds(pattern, u"h") ? u"00:" : !Holds(pattern, u"hh") ? u"0" : u"";
  suffix_ = Holds(pattern, u"zzz") ? u"" : Holds(pattern, u"zz") ? u"0" : Holds(pattern, u"z") ? u"00" : u".000";
  if (rules.exact && kind_ == Kind::Columns) fields_ = ClockFields(pattern);
}

Ms TimecodeReader::FramesToMs(double frames) const {
  if (rules_.exact) return rules_.rate.MsOfFrames(RoundToInt32(frames));
  if (wholeRate_ == 0) throw RuntimeError{11, u"Division by zero"};
  // Both sides are rounded before the division of whole numbers.
  if (frames >= 0 && frames < kFewFrames) {
    const std::int32_t whole = RoundToInt32(frames);
    if (whole == frames) return whole * 1000 / wholeRate_;
  }
  return RoundToInt32(frames * 1000) / wholeRate_;
}

bool TimecodeReader::ParseFrames(std::int32_t frames, Ms& ms) const {
  if (!KnowsRate() || frames >= kFewFrames) return false;
  ms = rules_.exact ? rules_.rate.MsOfFrames(frames) : frames * 1000 / wholeRate_;
  return true;
}

Ms TimecodeReader::Parse(TextView text) const {
  if (kind_ == Kind::Milliseconds) return RoundToInt32(Number(text));
  const bool frames(rules_.rate);
  if (kind_ == Kind::Frames) return frames ? FramesToMs(Number(text)) : 0;
  if (Ms ms = 0; fields_.Read(text, rules_.rate, ms)) return ms;
  // The text is brought to the form "hh:mm:ss" + fraction and read by its columns. Only its first eight
  // characters and its last three count, so that a long one loses its middle here.
  constexpr std::size_t kWhole = 64;
  std::array<char16_t, kWhole + 16> room;
  char16_t* end = std::copy(prefix_.begin(), prefix_.end(), room.begin());
  if (text.size() <= kWhole) {
    end = std::copy(text.begin(), text.end(), end);
  } else {
    end = std::copy_n(text.begin(), kWhole / 2, end);
    end = std::copy(text.end() - kWhole / 2, text.end(), end);
  }
  if (!frames) end = std::copy(suffix_.begin(), suffix_.end(), end);
  const TextView fixed(room.data(), end - room.data());
  if (Ms ms = 0; !frames && SumOfDigits(fixed, ms)) return ms;
  const double whole = Number(Middle(fixed, 1, 2)) * kHour + Number(Middle(fixed, 4, 2)) * kMinute +
                       Number(Middle(fixed, 7, 2)) * kSecond;
  if (frames) return RoundToInt32(whole + FramesToMs(Number(Last(fixed, 2))).Count());
  return RoundToInt32(whole + Number(Last(fixed, 3)));
}

bool TimecodeReader::ParseClock(std::string_view bytes, Ms& ms) const {
  if (kind_ != Kind::Columns || bytes.size() + prefix_.size() + suffix_.size() != kFixedLength) return false;
  std::array<char, kFixedLength> fixed;
  if (bytes.size() != fixed.size()) {
    char* to = std::transform(prefix_.begin(), prefix_.end(), fixed.begin(), LowByte<char16_t>);
    to = std::copy(bytes.begin(), bytes.end(), to);
    std::transform(suffix_.begin(), suffix_.end(), to, LowByte<char16_t>);
    bytes = {fixed.data(), fixed.size()};
  }
  // A byte above 127 between the digits would make the text shorter than the bytes.
  return ((bytes[2] | bytes[5] | bytes[8]) & 0x80) == 0 && SumOfDigits(bytes, ms);
}

Ms ParseTimecode(const TimecodeForm& form, TextView text, const TimeRules& rules) {
  return TimecodeReader(form, rules).Parse(text);
}

std::int32_t MsToFrames(Ms ms, const TimeRules& rules) {
  if (rules.exact) return Checked32(rules.rate.FramesOfMs(ms));
  // In long films the product passes 32 bits; only the count of frames has to fit.
  const double product = RoundHalfEven(double{rules.rate.AsGiven()} * ms.Count());
  return Checked32(static_cast<std::int64_t>(product) / 1000);
}

TimecodeWriter::TimecodeWriter(const TimecodeForm& form, bool hoursInMinutes, const TimeRules& rules)
    : rules_(rules), hoursInMinutes_(hoursInMinutes), countsFrames_(rules.rate) {
  const TextView compact = form.timecodeCompact;
  const bool hasHours = Holds(form.timecodeTemplate, u"h");
  const bool hasFraction = Holds(form.timecodeTemplate, u"z");
  wholeSeconds_ = !Holds(compact, u"z");
  fractionDigits_ = form.fractionPicture.size();
  if (rules.exact) {
    countsFrames_ = countsFrames_ && Holds(compact, u"ff");
    hoursInMinutes_ = hoursInMinutes_ || !hasHours;
    stepMs_ = wholeSeconds_ ? 1000 : fractionDigits_ == 3 ? 1 : fractionDigits_ == 2 ? 10 : 100;
  }
  const auto add = [&](Field field, std::size_t digits) { pieces_.push_back({field, digits, u'\0'}); };
  for (std::size_t i = 0; i < compact.size(); ++i) {
    const char16_t c = compact[i];
    if (c == u's') {
      add(Field::Seconds, 2);
    } else if (c == u'm') {
      add(Field::Minutes, 2);
    } else if (c == u'h' && hasHours) {
      add(Field::Hours, form.hourPicture.size());
    } else if (c == u'f' && i + 1 < compact.size() && compact[i + 1] == u'f') {
      add(Field::Frames, 2);
      ++i;
    } else if (hasFraction && c == u'z') {
      add(Field::Fraction, fractionDigits_);
    } else {
      pieces_.push_back({Field::Literal, 0, c});
      ascii_ = ascii_ && c < 0x80;
    }
  }
  for (const Piece& piece : pieces_) longest_ += std::max<std::size_t>(piece.digits, 16);
  LayOut();
}

void TimecodeWriter::LayOut() {
  layoutBound_ = 100 * kHour;
  std::size_t at = 0;
  for (const Piece& piece : pieces_) {
    if (at + 4 > layout_.size()) return;
    std::size_t* place = nullptr;
    if (piece.field == Field::Hours && (piece.digits == 1 || piece.digits == 2)) place = &hoursAt_;
    if (piece.field == Field::Minutes) place = &minutesAt_;
    if (piece.field == Field::Seconds) place = &secondsAt_;
    if (piece.field == Field::Fraction && piece.digits <= 3) place = &fractionAt_;
    if (piece.field == Field::Literal) {
      layout_[at++] = LowByte(piece.literal);
    } else if (place != nullptr && *place == kNowhere) {
      *place = at;
      at += piece.digits;
      if (piece.field == Field::Hours && piece.digits == 1) layoutBound_ = 10 * kHour;
    } else {
      return;
    }
  }
  if (!ascii_ || hoursInMinutes_) return;
  layoutSize_ = at;
}

void TimecodeWriter::PutLaidOut(Ms time, std::span<char> out) const {
  const auto two = [&](std::size_t at, std::int32_t value) {
    if (at == kNowhere) return;
    out[at] = DigitOf<char>(value / 10);
    out[at + 1] = DigitOf<char>(value % 10);
  };
  std::copy(layout_.begin(), layout_.end(), out.begin());
  const std::int32_t ms = time.Count() + (rules_.exact ? stepMs_ / 2 : 0);
  const std::int32_t seconds = ms / kSecond;
  const std::int32_t minutes = seconds / 60;
  std::int32_t rest = ms % kSecond;
  if (layoutBound_ == 10 * kHour) {
    out[hoursAt_] = DigitOf<char>(minutes / 60);
  } else {
    two(hoursAt_, minutes / 60);
  }
  two(minutesAt_, minutes % 60);
  two(secondsAt_, seconds % 60 + (!rules_.exact && wholeSeconds_ && rest >= 251 ? 1 : 0));
  if (fractionAt_ == kNowhere) return;
  rest = rules_.exact ? rest / stepMs_ : CutFraction(rest, fractionDigits_);
  for (std::size_t digit = fractionDigits_; digit-- > 0; rest /= 10) {
    out[fractionAt_ + digit] = DigitOf<char>(rest % 10);
  }
}

TimecodeWriter::Shown TimecodeWriter::ShowExactly(Ms ms) const {
  const SecondsAndRest time = countsFrames_ ? NearestFrame(ms, rules_.rate) : NearestStep(ms, stepMs_);
  Shown shown;
  shown.hours = Checked8(time.seconds / 3600);
  shown.minutes = Checked32(time.seconds / 60 % 60);
  shown.seconds = Checked32(time.seconds % 60);
  (countsFrames_ ? shown.frames : shown.rest) = time.rest;
  return shown;
}

TimecodeWriter::Shown TimecodeWriter::ShowClassic(Ms ms) const {
  Parts parts = SplitTime(ms.Count());
  if (wholeSeconds_ && !countsFrames_ && parts.rest >= 251) ++parts.seconds;
  if (parts.rest < 0) parts.rest = Checked32(-std::int64_t{parts.rest});
  if (!countsFrames_) parts.rest = CutFraction(parts.rest, fractionDigits_);
  const std::int32_t frames = countsFrames_ ? MsToFrames(parts.rest, rules_) : 0;
  return {parts.hours.Value(), parts.minutes.Value(), parts.seconds.Value(), parts.rest, frames};
}

template <class Unit>
Unit* TimecodeWriter::PutTime(Ms ms, Unit* out) const {
  Shown shown = rules_.exact ? ShowExactly(ms) : ShowClassic(ms);
  if (hoursInMinutes_) shown.minutes = Checked8(shown.hours * 60 + shown.minutes);
  const auto put = [&](std::int32_t number, std::size_t digits) { out = PutField(number, digits, out); };
  const auto letters = [&](Unit letter, int count) {
    while (count-- != 0) *out++ = letter;
  };
  // Replacing letter after letter in the template would give the same, since what comes in is digits alone.
  for (const Piece& piece : pieces_) {
    switch (piece.field) {
      case Field::Literal:
        *out++ = static_cast<Unit>(piece.literal);
        break;
      case Field::Hours:
        put(shown.hours, piece.digits);
        break;
      case Field::Minutes:
        put(shown.minutes, piece.digits);
        break;
      case Field::Seconds:
        put(shown.seconds, piece.digits);
        break;
      case Field::Frames:
        countsFrames_ ? put(shown.frames, piece.digits) : letters('f', 2);
        break;
      case Field::Fraction:
        !countsFrames_ ? put(shown.rest, piece.digits) : letters('z', 1);
        break;
    }
  }
  return out;
}

void TimecodeWriter::Append(Ms ms, Text& out) const {
  std::array<char16_t, kLongestNumber> room;
  if (longest_ > room.size()) {
    Text longRoom(longest_, u'\0');
    const char16_t* const end = PutTime(ms, longRoom.data());
    out.append(longRoom, 0, end - longRoom.data());
    return;
  }
  const char16_t* const end = PutTime(ms, room.data());
  out.append(room.data(), end - room.data());
}

std::size_t TimecodeWriter::PutBytes(Ms ms, std::span<char> out) const {
  // Rounding may carry a time in the last second below the bound beyond it.
  const std::int32_t bound = rules_.exact ? layoutBound_ - kSecond : layoutBound_;
  if (layoutSize_ == 0 || countsFrames_ || ms < 0 || ms >= bound) {
    return PutTime(ms, out.data()) - out.data();
  }
  PutLaidOut(ms, out);
  return layoutSize_;
}

Text FormatTimecode(const TimecodeForm& form, TextView identifier, Ms ms, const TimeRules& rules) {
  Text text;
  TimecodeWriter(form, identifier == kKaraokeLrc, rules).Append(ms, text);
  return text;
}

}  // namespace cuewright

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "core/frame_rate.h"
#include "formats/definition.h"
#include "formats/exact_times.h"
#include "text/text.h"

namespace cuewright {

/// Milliseconds of a time as the template in force writes it. Classic rules read fixed columns, so that a field that
/// doesn't fit its columns gives a wrong time; exact rules take fields of any length in the template's order, and the
/// digits of a fraction as a fraction. Run-time error 6 when the result does not fit 32 bits.
Ms ParseTimecode(const TimecodeForm& form, TextView text, const TimeRules& rules);

/// The same for many times of one form.
class TimecodeReader {
 public:
  TimecodeReader() = default;
  TimecodeReader(const TimecodeForm& form, const TimeRules& rules);

  Ms Parse(TextView text) const;

  /// The same for bytes that are as long as the template, a clock time without frames, and are digits in its columns;
  /// false for anything else.
  [[nodiscard]] bool ParseClock(std::string_view bytes, Ms& ms) const;

  /// The same for a count of few frames; false when frames can't be counted.
  [[nodiscard]] bool ParseFrames(std::int32_t frames, Ms& ms) const;
  /// Frames from here on are more than few.
  static constexpr std::int32_t kFewFrames = 2000000;

  /// True when times are counts of frames.
  bool CountsFrames() const { return kind_ == Kind::Frames; }
  /// True when frames can be turned into ms.
  bool KnowsRate() const { return wholeRate_ != 0; }

 private:
  enum class Kind { Milliseconds, Frames, Columns };

  Ms FramesToMs(double frames) const;

  Kind kind_ = Kind::Milliseconds;
  TimeRules rules_;
  std::int32_t wholeRate_ = 0;  // the rate by the classic rules; 0: there is none to divide by
  TextView prefix_;             // what is put in front of the text to give the fixed form
  TextView suffix_;             // what is put behind it, where times have no frames
  ClockFields fields_;
};

/// Frames of a time. Exact: the frame that begins nearest. Classic: the product rounded half to even, the division by
/// 1000 cut toward zero. Run-time error 6 when the count does not fit 32 bits.
std::int32_t MsToFrames(Ms ms, const TimeRules& rules);

/// Appends a number of at least `digits` digits.
void AppendNumber(std::int64_t number, std::size_t digits, Text& out);

/// Room that a number may take, its sign included.
inline constexpr std::size_t kLongestNumber = 280;

/// The same as ASCII to the beginning of `out`, which has room for `kLongestNumber` bytes; returns how many it wrote.
[[nodiscard]] std::size_t PutNumberBytes(std::int64_t number, std::size_t digits, std::span<char> out);

/// Writes times by one template.
class TimecodeWriter {
 public:
  /// `hoursInMinutes`: hours are folded into the minutes, as karaoke files have them.
  TimecodeWriter(const TimecodeForm& form, bool hoursInMinutes, const TimeRules& rules);

  /// Appends the time, by exact rules the nearest that the template can tell, where one without hours has them in its
  /// minutes. Run-time error 6, with nothing appended, from 256 hours on and, with hours folded in, from 256 minutes
  /// on.
  void Append(Ms ms, Text& out) const;

  /// True when times are ASCII; `PutBytes` is for those alone.
  bool IsAscii() const { return ascii_; }
  /// Room that a time may take, in characters.
  std::size_t Longest() const { return longest_; }
  /// Puts the time to the beginning of `out`, which has room for `Longest()` bytes, and returns how many bytes it
  /// wrote; fails as `Append` does.
  [[nodiscard]] std::size_t PutBytes(Ms ms, std::span<char> out) const;

 private:
  enum class Field { Literal, Hours, Minutes, Seconds, Frames, Fraction };
  struct Piece {
    Field field;
    std::size_t digits;
    char16_t literal;
  };

  /// What the fields of a time show.
  struct Shown {
    std::int32_t hours = 0;
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;
    std::int32_t rest = 0;  ///< the fraction's digits
    std::int32_t frames = 0;
  };

  Shown ShowExactly(Ms ms) const;
  Shown ShowClassic(Ms ms) const;
  template <class Unit>
  Unit* PutTime(Ms ms, Unit* out) const;

  void LayOut();
  void PutLaidOut(Ms ms, std::span<char> out) const;

  TimeRules rules_;
  bool hoursInMinutes_;
  bool countsFrames_ = false;  // there is a rate to count them by
  bool wholeSeconds_ = false;
  bool ascii_ = true;
  std::size_t fractionDigits_ = 0;
  std::int32_t stepMs_ = 1;  // by exact rules: how many ms the last digit counts
  std::size_t longest_ = 0;
  std::vector<Piece> pieces_;

  // Where each field stands when all of them have a fixed place; a size of 0 when they have not.
  static constexpr std::size_t kNowhere = std::string_view::npos;
  std::array<char, 16> layout_{};
  std::size_t layoutSize_ = 0;
  std::int32_t layoutBound_ = 0;  // from this time in ms on the fields have other places
  std::size_t hoursAt_ = kNowhere;
  std::size_t minutesAt_ = kNowhere;
  std::size_t secondsAt_ = kNowhere;
  std::size_t fractionAt_ = kNowhere;
};

/// A time as text by the template in force, of the format with the identifier.
Text FormatTimecode(const TimecodeForm& form, TextView identifier, Ms ms, const TimeRules& rules);

}  // namespace cuewright

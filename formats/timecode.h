#pragma once

#include <cstdint>
#include <string_view>

#include "core/text.h"
#include "formats/definition.h"

namespace cuewright {

/// Milliseconds of a time as the template in force writes it; `fps` is the rate of frame formats, 0 for all
/// others. A field that doesn't fit the template's fixed columns gives a wrong time. Run-time error 6 when the result
/// does not fit 32 bits.
std::int32_t ParseTimecode(const TimecodeForm& form, TextView text, float fps);

/// The same for many times of one form.
class TimecodeReader {
 public:
  TimecodeReader() = default;
  explicit TimecodeReader(const TimecodeForm& form);

  std::int32_t Parse(TextView text, float fps) const;

  /// The same for twelve bytes of ASCII, as long as they are digits in the columns of "hh:mm:ss,zzz" and no rate
  /// counts; false for anything else.
  bool ParseClock(std::string_view bytes, std::int32_t& ms) const;

 private:
  enum class Kind { Milliseconds, Frames, Columns };

  Kind kind_ = Kind::Milliseconds;
  TextView prefix_;  // what the fixed form has in front of the text
  TextView suffix_;  // and behind it, without frames
};

/// Frames of a time: the product rounded half to even, the division by 1000 cut toward zero. Run-time error 6 when
/// the product does not fit 32 bits.
std::int32_t MsToFrames(std::int32_t ms, float fps);

/// Appends a number of at least `digits` digits.
void AppendNumber(std::int64_t number, std::size_t digits, Text& out);

/// Writes times by one template.
class TimecodeWriter {
 public:
  /// `hoursInMinutes`: hours are folded into the minutes, as karaoke files have them.
  TimecodeWriter(const TimecodeForm& form, bool hoursInMinutes);

  /// Appends the time. Run-time error 6, with nothing appended, from 256 hours on and, with hours folded in, from
  /// 256 minutes on.
  void Append(std::int32_t ms, float fps, Text& out) const;

 private:
  const TimecodeForm& form_;
  bool hoursInMinutes_;
  bool hasHours_;
  bool hasFraction_;
};

/// A time as text by the template in force, of the format with the identifier.
Text FormatTimecode(const TimecodeForm& form, TextView identifier, std::int32_t ms, float fps);

}  // namespace cuewright

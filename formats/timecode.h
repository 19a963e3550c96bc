#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "formats/definition.h"
#include "text/text.h"

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

  /// The same for bytes that are as long as the template, a clock time without frames, and are digits in its columns;
  /// false for anything else.
  [[nodiscard]] bool ParseClock(std::string_view bytes, std::int32_t& ms) const;

  /// True when times are counts of frames.
  bool CountsFrames() const { return kind_ == Kind::Frames; }

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

/// Room that a number may take, its sign included.
inline constexpr std::size_t kLongestNumber = 280;

/// The same as ASCII to the beginning of `out`, which has room for `kLongestNumber` bytes; returns how many it wrote.
[[nodiscard]] std::size_t PutNumberBytes(std::int64_t number, std::size_t digits, std::span<char> out);

/// Writes times by one template.
class TimecodeWriter {
 public:
  /// `hoursInMinutes`: hours are folded into the minutes, as karaoke files have them.
  TimecodeWriter(const TimecodeForm& form, bool hoursInMinutes);

  /// Appends the time. Run-time error 6, with nothing appended, from 256 hours on and, with hours folded in, from
  /// 256 minutes on.
  void Append(std::int32_t ms, float fps, Text& out) const;

  /// True when times are ASCII; `PutBytes` is for those alone.
  bool IsAscii() const { return ascii_; }
  /// Room that a time may take, in characters.
  std::size_t Longest() const { return longest_; }
  /// Puts the time to the beginning of `out`, which has so much room, and returns how many bytes it wrote; fails as
  /// `Append` does.
  [[nodiscard]] std::size_t PutBytes(std::int32_t ms, float fps, std::span<char> out) const;

 private:
  enum class Field { Literal, Hours, Minutes, Seconds, Frames, Fraction };
  struct Piece {
    Field field;
    std::size_t digits;
    char16_t literal;
  };

  template <class Unit>
  Unit* PutTime(std::int32_t ms, float fps, Unit* out) const;

  void LayOut();
  void PutLaidOut(std::int32_t ms, std::span<char> out) const;

  bool hoursInMinutes_;
  bool wholeSeconds_ = false;
  bool ascii_ = true;
  std::size_t fractionDigits_ = 0;
  std::size_t longest_ = 0;
  std::vector<Piece> pieces_;

  // Where each field stands when all of them have a fixed place; a size of 0 when they have not.
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
  std::array<char, 16> layout_{};
  std::size_t layoutSize_ = 0;
  std::int32_t layoutBound_ = 0;  // times from here on have other places
  std::size_t hoursAt_ = kNowhere;
  std::size_t minutesAt_ = kNowhere;
  std::size_t secondsAt_ = kNowhere;
  std::size_t fractionAt_ = kNowhere;
};

/// A time as text by the template in force, of the format with the identifier.
Text FormatTimecode(const TimecodeForm& form, TextView identifier, std::int32_t ms, float fps);

}  // namespace cuewright

#pragma once

#include <cstdint>

#include "core/ms.h"
#include "text/text.h"

namespace cuewright {

/// Frames per second as a fraction. The rates of television that are written with three digits are what they stand
/// for: 23.976 is 24000/1001.
class FrameRate {
 public:
  /// No rate: nothing is counted in frames.
  constexpr FrameRate() = default;
  /// The rate that a number with up to three digits behind its point stands for; none for 0 or less.
  FrameRate(double perSecond);  // NOLINT(google-explicit-constructor)

  /// The rate of a text that is a number with a point or a comma and nothing else; none for any other text.
  static FrameRate FromText(TextView text);

  /// False when there is no rate.
  explicit operator bool() const { return numerator_ != 0; }

  std::int32_t Numerator() const { return numerator_; }
  std::int32_t Denominator() const { return denominator_; }

  /// True for a rate that is offered and asked for in today's manner: 1 to 240.
  bool IsUsual() const;

  /// The number as it was given, which is not quite the rate where that is a fraction.
  float AsGiven() const { return given_; }
  /// The number with up to three digits behind its sign: "25", "23.976".
  Text AsText(char16_t sign = u'.') const;

  /// The nearest ms to the beginning of a frame, a tie going up. Run-time error 6 when it doesn't fit 32 bits, 11
  /// without a rate.
  Ms MsOfFrames(std::int64_t frames) const;
  /// The frame whose beginning is nearest to the time, a tie going up. Error 6 when it doesn't fit 32 bits; 0 without a
  /// rate.
  std::int64_t FramesOfMs(Ms ms) const;

  friend bool operator==(const FrameRate& one, const FrameRate& other) {
    return one.numerator_ == other.numerator_ && one.denominator_ == other.denominator_;
  }

 private:
  std::int32_t numerator_ = 0;
  std::int32_t denominator_ = 1;
  float given_ = 0;
};

/// How a time is counted in frames, and whether to the last ms.
struct TimeRules {
  FrameRate rate;     ///< none for formats without frames
  bool exact = true;  ///< times are rounded to the nearest step; false: by the rules of the classic manner
};

}  // namespace cuewright

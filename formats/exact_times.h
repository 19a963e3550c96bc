#pragma once

#include <array>
#include <cstdint>

#include "core/frame_rate.h"
#include "text/text.h"

namespace cuewright {

/// The whole seconds of a time, and the steps or frames beyond them.
struct SecondsAndRest {
  std::int64_t seconds = 0;
  std::int32_t rest = 0;
};

/// The time in steps of `stepMs`, a divisor of 1000, that is nearest to `ms`; the rest counts steps. A negative time is
/// shown as 0.
SecondsAndRest NearestStep(Ms ms, std::int32_t stepMs);

/// The beginning of a frame that is nearest to `ms`, frames being counted anew in each second.
SecondsAndRest NearestFrame(Ms ms, const FrameRate& rate);

/// The fields of a clock time in a template's order.
class ClockFields {
 public:
  ClockFields() = default;
  explicit ClockFields(TextView timecodeTemplate);

  /// Reads a time that has all the fields, each of any number of digits and one character between two; false for any
  /// other. Frames without a rate count as none. Run-time error 6 when the time doesn't fit 32 bits.
  [[nodiscard]] bool Read(TextView text, const FrameRate& rate, Ms& ms) const;

 private:
  enum class Field : std::uint8_t { Hours, Minutes, Seconds, Fraction, Frames };

  static std::int64_t MsOf(Field field, TextView digits, const FrameRate& rate);

  std::array<Field, 6> fields_{};
  std::size_t count_ = 0;
};

}  // namespace cuewright

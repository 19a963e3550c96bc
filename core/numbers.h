#pragma once

#include <concepts>
#include <cstdint>
#include <utility>

#include "core/runtime_error.h"
#include "text/text.h"

namespace cuewright {

/// The number that a text begins with, blanks inside and in front skipped; 0 when it begins with none.
/// Reading stops at the first character that can't belong to a decimal number, a comma among them.
double LeadingNumber(TextView text);
/// The same without its fraction, within 32 bits.
std::int32_t LeadingInt(TextView text);

/// A whole number to divide by or to weigh; beyond 2 to the 53rd the nearest that a double has.
constexpr double ToReal(std::int64_t number) { return static_cast<double>(number); }

/// The nearest whole number, a tie going to the even neighbour.
double RoundHalfEven(double value);

/// `value` rounded (half to even) into 32 bits; run-time error 6 when it doesn't fit.
std::int32_t RoundToInt32(double value);

/// A number of at least `digits` digits, padded with zeros in front.
Text Padded(long long number, int digits);

/// A value of a fixed width: results are computed wide, and one that doesn't fit the wider operand is
/// run-time error 6, "Overflow".
template <std::integral T>
class Checked {
 public:
  constexpr Checked() = default;
  /// Takes any whole number; run-time error 6 when it doesn't fit.
  template <std::integral Number>
  constexpr Checked(Number value) : value_(Fit(value)) {}  // NOLINT(google-explicit-constructor)

  constexpr T Value() const { return value_; }
  constexpr operator T() const { return value_; }  // NOLINT(google-explicit-constructor)

  constexpr Checked operator+(Checked other) const { return Checked(Wide(value_) + Wide(other.value_)); }
  constexpr Checked operator-(Checked other) const { return Checked(Wide(value_) - Wide(other.value_)); }
  constexpr Checked operator*(Checked other) const { return Checked(Wide(value_) * Wide(other.value_)); }
  constexpr Checked& operator++() { return *this = *this + Checked(1); }
  constexpr Checked& operator--() { return *this = *this - Checked(1); }

 private:
  static constexpr std::int64_t Wide(T value) { return value; }
  template <std::integral Number>
  static constexpr T Fit(Number value) {
    if (!std::in_range<T>(value)) ThrowOverflow();
    return static_cast<T>(value);
  }

  T value_{};
};

using Checked8 = Checked<std::uint8_t>;
using Checked16 = Checked<std::int16_t>;
using Checked32 = Checked<std::int32_t>;

}  // namespace cuewright

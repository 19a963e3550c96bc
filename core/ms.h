#pragma once

#include <cmath>
#include <compare>
#include <concepts>
#include <cstdint>

namespace cuewright {

/// A time, or a length of time, in whole milliseconds. Whole numbers are taken as milliseconds; what is counted in
/// something else is made one by name, as here or by `FrameRate::MsOf`, so that no frames or seconds pass for it.
class Ms {
 public:
  constexpr Ms() = default;
  constexpr Ms(std::int32_t count) : count_(count) {}  // NOLINT(google-explicit-constructor)
  template <class Other>
  requires(std::convertible_to<Other, std::int32_t> && !std::same_as<Other, std::int32_t>) Ms(Other)
  = delete;

  /// The nearest whole ms, a tie away from 0; within a span of 24 days.
  static Ms OfSeconds(double seconds) { return Nearest(seconds * 1000); }
  /// The last whole ms that isn't behind a picture's time, from 0 on: what begins then is there with that picture, and
  /// not with the one behind it.
  static constexpr Ms OfPicture(std::int64_t us) { return static_cast<std::int32_t>(us / 1000); }
  /// A number of ms with a fraction to the nearest whole one, a tie away from 0.
  static Ms Nearest(double ms) { return static_cast<std::int32_t>(std::lround(ms)); }
  /// A sum that may lie beyond what is stored: the nearest that can be.
  static constexpr Ms Within(std::int64_t ms, Ms least, Ms most) {
    if (ms <= least.count_) return least;
    return ms < most.count_ ? Ms(static_cast<std::int32_t>(ms)) : most;
  }
  /// The latest of all.
  static constexpr Ms Latest() { return 0x7FFFFFFF; }

  /// The number of ms; `Wide` is for sums that may pass 32 bits.
  constexpr std::int32_t Count() const { return count_; }
  constexpr std::int64_t Wide() const { return count_; }
  constexpr double Seconds() const { return count_ / 1000.0; }

  constexpr Ms& operator+=(Ms other) { return count_ += other.count_, *this; }
  constexpr Ms& operator-=(Ms other) { return count_ -= other.count_, *this; }
  friend constexpr Ms operator+(Ms one, Ms other) { return one.count_ + other.count_; }
  friend constexpr Ms operator-(Ms one, Ms other) { return one.count_ - other.count_; }
  friend constexpr Ms operator-(Ms one) { return -one.count_; }
  friend constexpr Ms operator*(Ms one, std::same_as<int> auto times) { return one.count_ * times; }
  friend constexpr Ms operator*(std::same_as<int> auto times, Ms one) { return one.count_ * times; }
  friend constexpr Ms operator/(Ms one, std::same_as<int> auto parts) { return one.count_ / parts; }
  /// How often the other goes into it, as whole numbers are divided.
  friend constexpr std::int32_t operator/(Ms one, Ms other) { return one.count_ / other.count_; }
  friend constexpr Ms operator%(Ms one, Ms other) { return one.count_ % other.count_; }
  friend constexpr auto operator<=>(Ms, Ms) = default;

 private:
  std::int32_t count_ = 0;
};

/// How long it is from one time to another, also where that passes 32 bits.
constexpr std::int64_t Span(Ms from, Ms to) { return to.Wide() - from.Wide(); }

/// The length without its sign.
constexpr Ms Abs(Ms length) { return length < 0 ? -length : length; }

}  // namespace cuewright

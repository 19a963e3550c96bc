#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>

namespace cuewright {

/// Row of the caption list: 0 is the header, captions are 1 to `CaptionList::Rows() - 1`. How many rows there are is a
/// whole number, by which a row is moved on.
class Row {
 public:
  constexpr Row() = default;
  constexpr Row(int number) : number_(number) {}  // NOLINT(google-explicit-constructor)
  template <class Other>
  requires(std::convertible_to<Other, int> && !std::same_as<Other, int>) Row(Other)
  = delete;

  /// The row of the caption at a place that is counted from 0.
  static constexpr Row OfIndex(std::size_t index) { return static_cast<int>(index) + 1; }

  constexpr int Number() const { return number_; }
  /// The place of its caption counted from 0; for rows from 1 on.
  constexpr std::size_t Index() const { return static_cast<std::size_t>(number_ - 1); }

  constexpr Row& operator++() { return ++number_, *this; }
  constexpr Row& operator--() { return --number_, *this; }
  constexpr Row& operator+=(int rows) { return number_ += rows, *this; }
  constexpr Row& operator-=(int rows) { return number_ -= rows, *this; }
  friend constexpr Row operator+(Row row, std::same_as<int> auto rows) { return row.number_ + rows; }
  friend constexpr Row operator-(Row row, std::same_as<int> auto rows) { return row.number_ - rows; }
  /// How many rows one lies behind the other.
  friend constexpr int operator-(Row one, Row other) { return one.number_ - other.number_; }
  friend constexpr auto operator<=>(Row, Row) = default;

 private:
  int number_ = 0;
};

/// The last row: a list of more captions is run-time error 6, and the list stays as it was.
inline constexpr Row kMaxRow = 32766;

}  // namespace cuewright

template <>
struct std::hash<cuewright::Row> {
  std::size_t operator()(cuewright::Row row) const noexcept { return std::hash<int>()(row.Number()); }
};

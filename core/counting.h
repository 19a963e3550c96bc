#pragma once

#include <algorithm>
#include <cassert>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <ranges>
#include <utility>

namespace cuewright {

/// How many items there are, as a whole number. Lists of this program stay far below its limit.
template <class Items>
constexpr int CountOf(const Items& items) {
  const auto count = std::ssize(items);
  assert(std::in_range<int>(count));
  return static_cast<int>(count);
}

/// A count, which must not be negative, as the size that containers and files take.
template <std::signed_integral Count>
constexpr std::size_t SizeOf(Count count) {
  assert(count >= 0);
  return static_cast<std::size_t>(count);
}

/// The place, from 0, that an iterator of the items points to; behind the last one it is their count.
template <class Items>
constexpr int PlaceAt(const Items& items, std::ranges::iterator_t<const Items> at) {
  const auto place = at - std::ranges::begin(items);
  assert(std::in_range<int>(place));
  return static_cast<int>(place);
}

/// The item at a place from 0, which must lie within. An enumerator is the place of its value.
template <class Items, class Place>
constexpr decltype(auto) ItemAt(Items&& items, Place place) {
  const auto at = static_cast<std::size_t>(place);
  assert(at < std::size(items));
  return items[at];
}

/// The place, from 0, of the first item that is the value, or whose projection is; -1 where there is none.
template <class Items, class Value, class Projection = std::identity>
constexpr int PlaceOf(const Items& items, const Value& value, Projection projection = {}) {
  const auto at = std::ranges::find(items, value, projection);
  return at == std::ranges::end(items) ? -1 : PlaceAt(items, at);
}

}  // namespace cuewright

#pragma once

#include <memory>

#include "core/styled_text.h"
#include "formats/source/ttml_styles.h"
#include "text/text.h"

namespace cuewright {

/// What some formats keep beside the text of a caption.
struct Beside {
  Text speaker;
  int place = kUsualPlace;
  RunStyle style{};                                   ///< of all the text, unless marks in it say otherwise
  std::shared_ptr<const TtmlStyles> named = nullptr;  ///< styles that marks in the text may name

  bool HasStyle() const { return !(style == RunStyle{}); }
  bool Any() const { return !speaker.empty() || place != kUsualPlace || HasStyle(); }
  bool operator==(const Beside&) const = default;
};

/// The number of a place by its row on the picture, 0 at the bottom to 2 at the top, and its column, -1 left to 1
/// right.
constexpr int PlaceAt(int row, int column) { return row * 3 + column + 2; }
/// The place that SubStation's version 4 means by a number: 1 to 3 below, 5 to 7 above, 9 to 11 in the middle.
constexpr int PlaceOfOldNumber(int number) {
  return (number & 3) + ((number & 12) == 4 ? 6 : (number & 12) == 8 ? 3 : 0);
}
constexpr int RowOfPlace(int place) { return (place - 1) / 3; }
constexpr int ColumnOfPlace(int place) { return (place - 1) % 3 - 1; }

}  // namespace cuewright

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/text.h"

namespace cuewright {

/// The columns of the list, by the numbers that the list control has for them.
enum class ListColumn : std::uint8_t { Number, Start, End, Duration, Gap, Speed, Words };
inline constexpr std::size_t kListColumns = 7;

/// False for the number and the text, by which a row is known: these two are always shown.
constexpr bool CanBeHidden(ListColumn column) { return column != ListColumn::Number && column != ListColumn::Words; }

/// How the user has arranged the columns of the list: their order, which are shown, and how wide they are.
class ColumnOrder {
 public:
  struct Place {
    ListColumn column = ListColumn::Number;
    bool shown = true;
    int width = 0;  ///< in pixels; 0: as wide as what stands in it

    bool operator==(const Place&) const = default;
  };
  using Places = std::array<Place, kListColumns>;

  /// All columns in the order of their numbers.
  ColumnOrder();
  /// As `Stored` wrote it. Words that name no column are passed over, columns that aren't named stand behind the
  /// others.
  explicit ColumnOrder(TextView stored);
  /// "number,start:90,-end,..." from the leading side: a width behind a colon, a minus for a hidden column. Empty for
  /// the arrangement that the program begins with.
  Text Stored() const;

  const Places& All() const { return places_; }
  const Place& Of(ListColumn column) const;
  void Show(ListColumn column, bool shown);
  void SetWidth(ListColumn column, int width);
  /// Takes the column at a place from the leading side to another place.
  void Move(std::size_t from, std::size_t to);

  bool operator==(const ColumnOrder&) const = default;

 private:
  Place& Find(ListColumn column);

  Places places_;
};

}  // namespace cuewright

#include "capture/list_columns.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/counting.h"
#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, kListColumns> kNames = {u"number", u"start", u"end", u"duration",
                                                       u"gap",    u"speed", u"text"};
constexpr int kWidest = 4000;

}  // namespace

ColumnOrder::ColumnOrder() {
  for (std::size_t i = 0; i < kListColumns; ++i) places_[i].column = static_cast<ListColumn>(i);
}

ColumnOrder::ColumnOrder(TextView stored) : ColumnOrder() {
  std::size_t at = 0;
  for (const Text& word : Split(stored, u",")) {
    TextView name = word;
    const bool hidden = name.starts_with(u'-');
    if (hidden) name.remove_prefix(1);
    const std::size_t colon = std::min(name.find(u':'), name.size());
    const auto* const known = std::ranges::find(kNames, name.substr(0, colon));
    if (known == kNames.end()) continue;
    const auto column = static_cast<ListColumn>(known - kNames.begin());
    const std::size_t from = std::ranges::find(places_, column, &Place::column) - places_.begin();
    // A column that is named twice stands where it was named first.
    if (from < at) continue;
    Move(from, at++);
    Show(column, !hidden);
    if (colon < name.size()) SetWidth(column, LeadingInt(name.substr(colon + 1)));
  }
}

Text ColumnOrder::Stored() const {
  if (*this == ColumnOrder()) return {};
  Text stored;
  for (const Place& place : places_) {
    if (!stored.empty()) stored += u",";
    if (!place.shown) stored += u"-";
    stored += ItemAt(kNames, place.column);
    if (place.width > 0) stored += u":" + Decimal(place.width);
  }
  return stored;
}

const ColumnOrder::Place& ColumnOrder::Of(ListColumn column) const {
  return *std::ranges::find(places_, column, &Place::column);
}

ColumnOrder::Place& ColumnOrder::Find(ListColumn column) { return *std::ranges::find(places_, column, &Place::column); }

void ColumnOrder::Show(ListColumn column, bool shown) { Find(column).shown = shown || !CanBeHidden(column); }

void ColumnOrder::SetWidth(ListColumn column, int width) { Find(column).width = std::clamp(width, 0, kWidest); }

void ColumnOrder::Move(std::size_t from, std::size_t to) {
  if (from >= kListColumns || to >= kListColumns) return;
  const auto at = [this](std::size_t place) { return places_.begin() + place; };
  if (from < to) {
    std::rotate(at(from), at(from + 1), at(to + 1));
  } else {
    std::rotate(at(to), at(from), at(from + 1));
  }
}

}  // namespace cuewright

#include "core/row_set.h"

#include <algorithm>
#include <utility>

namespace cuewright {

RowSet::RowSet(Row one, Row other) : stretches_{{std::min(one, other), std::max(one, other)}} {}

int RowSet::Count() const {
  int count = 0;
  for (const Stretch& stretch : stretches_) count += stretch.last - stretch.first + 1;
  return count;
}

bool RowSet::Has(Row row) const {
  const auto at = std::ranges::lower_bound(stretches_, row, {}, &Stretch::last);
  return at != stretches_.end() && at->first <= row;
}

std::vector<Row> RowSet::Rows() const {
  std::vector<Row> rows;
  for (const Stretch& stretch : stretches_) {
    for (Row row = stretch.first; row <= stretch.last; ++row) rows.push_back(row);
  }
  return rows;
}

void RowSet::Add(Row one, Row other) {
  Stretch added{std::min(one, other), std::max(one, other)};
  std::vector<Stretch> all;
  all.reserve(stretches_.size() + 1);
  for (const Stretch& stretch : stretches_) {
    // Stretches that touch each other become one.
    if (stretch.last + 1 < added.first) {
      all.push_back(stretch);
    } else if (stretch.first <= added.last + 1) {
      added = {std::min(added.first, stretch.first), std::max(added.last, stretch.last)};
    } else {
      all.push_back(std::exchange(added, stretch));
    }
  }
  all.push_back(added);
  stretches_ = std::move(all);
}

void RowSet::Remove(Row one, Row other) {
  const Stretch gone{std::min(one, other), std::max(one, other)};
  std::vector<Stretch> left;
  left.reserve(stretches_.size() + 1);
  for (const Stretch& stretch : stretches_) {
    const Stretch before{stretch.first, std::min(stretch.last, gone.first - 1)};
    const Stretch behind{std::max(stretch.first, gone.last + 1), stretch.last};
    if (before.first <= before.last) left.push_back(before);
    if (behind.first <= behind.last) left.push_back(behind);
  }
  stretches_ = std::move(left);
}

void RowSet::CutBehind(Row last) {
  if (Last() > last) Remove(last + 1, Last());
}

void RowSet::Follow(Row first, int removed, int added) {
  if (removed == added) return;
  const Row kept = first + std::min(removed, added);
  const Row behind = first + removed;
  const int by = added - removed;
  RowSet moved;
  for (const Stretch& stretch : stretches_) {
    if (stretch.first < kept) moved.Add(stretch.first, std::min(stretch.last, kept - 1));
    if (stretch.last >= behind) moved.Add(std::max(stretch.first, behind) + by, stretch.last + by);
  }
  stretches_ = std::move(moved.stretches_);
}

}  // namespace cuewright

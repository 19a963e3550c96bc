#include "tools/retime_points.h"

#include <algorithm>

namespace cuewright {

Row RowAfter(const Splice& splice, Row row) {
  if (row < splice.first) return row;
  if (row >= splice.first + splice.removed) return row + splice.added - splice.removed;
  // A caption that was replaced by another keeps its row.
  return row < splice.first + splice.added ? row : 0;
}

std::size_t RetimePoints::Put(Row row, Ms ms) {
  const auto at = std::ranges::lower_bound(points_, row, {}, &Point::row);
  const std::size_t place = at - points_.begin();
  if (at != points_.end() && at->row == row) {
    at->ms = ms;
  } else {
    points_.insert(at, {row, ms});
  }
  return place;
}

void RetimePoints::Remove(std::size_t place) {
  if (place < points_.size()) points_.erase(points_.begin() + place);
}

void RetimePoints::Follow(const Splice& splice) {
  for (Point& point : points_) point.row = RowAfter(splice, point.row);
  std::erase_if(points_, [](const Point& point) { return point.row == 0; });
}

std::vector<TimePoint> RetimePoints::Times(const CaptionList& list) const {
  std::vector<TimePoint> times;
  for (const Point& point : points_) {
    if (!list.InRange(point.row)) continue;
    const CaptionTimes own = list.TimesAt(point.row);
    if (own.start > 0 || own.end > 0) times.push_back({own.start, point.ms});
  }
  return times;
}

}  // namespace cuewright

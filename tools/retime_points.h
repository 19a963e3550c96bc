#pragma once

#include <cstdint>
#include <vector>

#include "core/caption_list.h"
#include "tools/retime.h"

namespace cuewright {

/// The row in which a caption stands after a change of the list; 0 when it went.
Row RowAfter(const Splice& splice, Row row);

/// Captions and the times at which they belong, by their rows.
class RetimePoints {
 public:
  struct Point {
    Row row = 0;
    Ms ms = 0;  ///< the start that it is to have
  };

  const std::vector<Point>& All() const { return points_; }

  /// Gives a caption a time, instead of the one it had. Its place among the points.
  std::size_t Put(Row row, Ms ms);
  void Remove(std::size_t place);
  void Clear() { points_.clear(); }

  /// The list has changed: points follow their captions, those of captions that went go too.
  void Follow(const Splice& splice);

  /// The points as times of the list that are to become others. Captions without times give none.
  std::vector<TimePoint> Times(const CaptionList& list) const;

 private:
  std::vector<Point> points_;  ///< by their rows
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <vector>

#include "core/caption_list.h"
#include "tools/retime.h"

namespace cuewright {

/// The row in which a caption stands after a change of the list; 0 when the caption was removed.
Row RowAfter(const Splice& splice, Row row);

/// Captions and the times at which they belong, by their rows.
class RetimePoints {
 public:
  struct Point {
    Row row = 0;
    Ms ms = 0;  ///< the start that it is to have
  };

  const std::vector<Point>& All() const { return points_; }

  /// Sets the time of a caption, in place of one set before. Returns the place of the point.
  std::size_t Put(Row row, Ms ms);
  void Remove(std::size_t place);
  void Clear() { points_.clear(); }

  /// To be called when the list has changed: points follow their captions, and those of removed captions are removed.
  void Follow(const Splice& splice);

  /// The points as pairs of the time in the list and the time that it is to become. Captions without times give none.
  std::vector<TimePoint> Times(const CaptionList& list) const;

 private:
  std::vector<Point> points_;  ///< by their rows
};

}  // namespace cuewright

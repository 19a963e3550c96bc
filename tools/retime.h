#pragma once

#include <cstdint>
#include <vector>

#include "core/caption_list.h"
#include "core/frame_rate.h"
#include "tools/row_range.h"

namespace cuewright {

/// A fraction by which times are multiplied; both parts positive and at most `kMost`.
struct SpeedRatio {
  static constexpr std::int64_t kMost = 1000000000;

  std::int64_t numerator = 1;
  std::int64_t denominator = 1;

  /// What becomes of times whose frame numbers stay while the rate goes from one to another.
  static SpeedRatio OfRates(const FrameRate& from, const FrameRate& to);
};

/// A time that is to become another, in ms.
struct TimePoint {
  std::int32_t from = 0;
  std::int32_t to = 0;
};

/// Where each time goes: straight lines, one behind the other. Everything is counted in whole numbers, and only the
/// result is rounded, to the nearest ms.
class TimeMap {
 public:
  static TimeMap Shift(std::int32_t ms);
  /// Multiplies times, 0 staying where it is.
  static TimeMap Scale(const SpeedRatio& ratio);

  enum class Fault : std::uint8_t { None, NoPoint, SameTime, TurnedRound };
  /// Straight lines through points in any order; before the first and behind the last point the nearest line goes on,
  /// and a single point is a shift. `map` is left alone when two points begin at the same time or the order of the new
  /// times is another.
  static Fault Through(std::vector<TimePoint> points, TimeMap& map);

  /// The new time; negative where it would be before the film.
  std::int64_t At(std::int32_t ms) const;

 private:
  struct Line {
    std::int32_t from = 0;  ///< the old time at which it begins; the first goes on before that
    std::int64_t to = 0;
    SpeedRatio slope;
  };

  std::vector<Line> lines_ = {{}};
};

/// What retiming did.
struct RetimeResult {
  int changed = 0;    ///< captions with a time that is another now
  int belowZero = 0;  ///< captions with a time that would be before the film's beginning, and is 0
};

/// Gives the captions in the range the times of the map, as one command. Captions without any time stay without; one
/// that begins at 0 and has an end has times.
RetimeResult RetimeCaptions(CaptionList& list, const RowRange& rows, const TimeMap& map);

}  // namespace cuewright

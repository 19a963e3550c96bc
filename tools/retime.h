#pragma once

#include <cstdint>
#include <optional>
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

  /// The ratio of a text such as "25/24", "1.001" or "23.976/25"; empty for any other text, and for numbers of too many
  /// digits.
  static std::optional<SpeedRatio> FromText(TextView text);
  /// The ratio of new to old times when frame numbers stay and the frame rate changes.
  static SpeedRatio OfRates(const FrameRate& from, const FrameRate& to);
};

/// An old time and the time that it is to become, in ms.
struct TimePoint {
  Ms from = 0;
  Ms to = 0;
};

/// Maps old times to new ones by straight lines, each for its stretch of time. All is reckoned in whole numbers, and
/// only the result is rounded, to the nearest ms.
class TimeMap {
 public:
  static TimeMap Shift(Ms ms);
  /// Multiplies times, 0 staying where it is.
  static TimeMap Scale(const SpeedRatio& ratio);

  /// Multiplies times and then adds milliseconds.
  static TimeMap ScaleAndShift(const SpeedRatio& ratio, Ms ms);

  enum class Fault : std::uint8_t { None, NoPoint, SameTime, TurnedRound };
  /// Straight lines through points in any order; before the first and behind the last point the nearest line goes on,
  /// and a single point is a shift. `map` is left alone when two points begin at the same time, or their new times are
  /// in another order or the same.
  static Fault Through(std::vector<TimePoint> points, TimeMap& map);

  /// The new time; negative where it would be before the film.
  std::int64_t At(Ms ms) const;

 private:
  struct Line {
    Ms from = 0;  ///< the old time at which it begins; the first goes on before that
    std::int64_t to = 0;
    SpeedRatio slope;
  };

  std::vector<Line> lines_ = {{}};
};

/// What a caption's times become by a map.
struct Retimed {
  CaptionTimes times;
  bool belowZero = false;  ///< one of the times would be before the film's beginning, and was set to 0
};

/// The new times of a caption. One without any time stays without; one that begins at 0 and has an end has times.
Retimed RetimedTimes(const CaptionTimes& old, const TimeMap& map);

/// What retiming did or would do.
struct RetimeResult {
  int changed = 0;    ///< captions with a time that is another now
  int belowZero = 0;  ///< captions with a time that would be before the film's beginning, and is 0

  bool operator==(const RetimeResult&) const = default;
};

/// Rows that are retimed together: ranges in ascending order that don't overlap.
using RetimeRows = std::vector<RowRange>;

/// What `RetimeCaptions` would do.
RetimeResult ForeseeRetiming(const CaptionList& list, const RetimeRows& rows, const TimeMap& map);

/// Gives the captions in these rows the times of the map, as one command and one change of the list.
RetimeResult RetimeCaptions(CaptionList& list, const RetimeRows& rows, const TimeMap& map);

/// Rows that have a map of their own.
struct RetimePiece {
  RowRange rows;
  TimeMap map;
};

/// The same for pieces in ascending order that don't overlap, each by its map; also one command and one change.
RetimeResult RetimeCaptions(CaptionList& list, const std::vector<RetimePiece>& pieces);

}  // namespace cuewright

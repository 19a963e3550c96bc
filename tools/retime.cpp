#include "tools/retime.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace cuewright {
namespace {

/// `value` * ratio to the nearest whole number, a tie going up.
std::int64_t Scaled(std::int64_t value, const SpeedRatio& ratio) {
  const std::int64_t product = value * ratio.numerator;
  std::int64_t whole = product / ratio.denominator;
  std::int64_t rest = product % ratio.denominator;
  if (rest < 0) {
    rest += ratio.denominator;
    --whole;
  }
  return whole + (rest >= ratio.denominator - rest ? 1 : 0);
}

SpeedRatio Reduced(std::int64_t numerator, std::int64_t denominator) {
  const std::int64_t shared = std::gcd(numerator, denominator);
  return shared == 0 ? SpeedRatio() : SpeedRatio{numerator / shared, denominator / shared};
}

std::int32_t Stored(std::int64_t ms) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(ms, 0, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

SpeedRatio SpeedRatio::OfRates(const FrameRate& from, const FrameRate& to) {
  return Reduced(std::int64_t{from.Numerator()} * to.Denominator(), std::int64_t{from.Denominator()} * to.Numerator());
}

TimeMap TimeMap::Shift(std::int32_t ms) {
  TimeMap map;
  map.lines_ = {{0, ms, {}}};
  return map;
}

TimeMap TimeMap::Scale(const SpeedRatio& ratio) {
  TimeMap map;
  map.lines_ = {{0, 0, ratio}};
  return map;
}

TimeMap::Fault TimeMap::Through(std::vector<TimePoint> points, TimeMap& map) {
  if (points.empty()) return Fault::NoPoint;
  std::ranges::sort(points, {}, &TimePoint::from);
  std::vector<Line> lines;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const std::int64_t before = std::int64_t{points[i + 1].from} - points[i].from;
    const std::int64_t after = std::int64_t{points[i + 1].to} - points[i].to;
    if (before == 0) return Fault::SameTime;
    if (after < 0) return Fault::TurnedRound;
    lines.push_back({points[i].from, points[i].to, Reduced(after, before)});
  }
  if (lines.empty()) lines.push_back({points.front().from, points.front().to, {}});
  map.lines_ = std::move(lines);
  return Fault::None;
}

std::int64_t TimeMap::At(std::int32_t ms) const {
  const auto behind = std::ranges::upper_bound(lines_, ms, {}, &Line::from);
  const Line& line = behind == lines_.begin() ? lines_.front() : *std::prev(behind);
  return line.to + Scaled(std::int64_t{ms} - line.from, line.slope);
}

RetimeResult RetimeCaptions(CaptionList& list, const RowRange& rows, const TimeMap& map) {
  RetimeResult result;
  const auto [first, last] = rows.In(list);
  std::vector<CaptionTimes> times;
  times.reserve(static_cast<std::size_t>(std::max(last - first + 1, 0)));
  for (Row row = first; row <= last; ++row) {
    const CaptionTimes old = list.TimesAt(row);
    CaptionTimes fresh = old;
    if (old.start > 0 || old.end > 0) {
      const std::int64_t start = map.At(old.start);
      // An end of 0 is none.
      const std::int64_t end = old.end > 0 ? map.At(old.end) : 0;
      if (start < 0 || end < 0) ++result.belowZero;
      fresh = {Stored(start), Stored(end)};
    }
    if (fresh != old) ++result.changed;
    times.push_back(fresh);
  }
  if (result.changed == 0) return result;
  const EditScope scope(list, EditKind::Delay);
  list.Retime(first, times);
  list.SetModified();
  return result;
}

}  // namespace cuewright

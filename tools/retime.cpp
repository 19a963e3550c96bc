#include "tools/retime.h"

#include <algorithm>
#include <numeric>

#include "core/counting.h"
#include "text/digits.h"

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

Ms Stored(std::int64_t ms) { return Ms::Within(ms, 0, Ms::Latest()); }

/// A positive number with or without decimals as a fraction; empty for any other text and for more than nine digits.
std::optional<SpeedRatio> FractionOf(TextView text) {
  constexpr int kMostDigits = 9;
  SpeedRatio fraction{0, 1};
  int digits = 0;
  bool decimals = false;
  for (const char16_t c : TrimBlanks(text)) {
    if ((c == u'.' || c == u',') && !decimals && digits > 0) {
      decimals = true;
    } else if (IsDigit(c) && ++digits <= kMostDigits) {
      fraction.numerator = fraction.numerator * 10 + (c - u'0');
      if (decimals) fraction.denominator *= 10;
    } else {
      return {};
    }
  }
  // A point must have digits behind it.
  if (fraction.numerator == 0 || (decimals && fraction.denominator == 1)) return {};
  return fraction;
}

}  // namespace

std::optional<SpeedRatio> SpeedRatio::FromText(TextView text) {
  const std::size_t slash = text.find(u'/');
  const std::optional<SpeedRatio> first = FractionOf(text.substr(0, slash));
  const std::optional<SpeedRatio> second = slash == TextView::npos ? SpeedRatio() : FractionOf(text.substr(slash + 1));
  if (!first || !second) return {};
  const SpeedRatio ratio = Reduced(first->numerator * second->denominator, second->numerator * first->denominator);
  if (ratio.numerator > kMost || ratio.denominator > kMost) return {};
  return ratio;
}

SpeedRatio SpeedRatio::OfRates(const FrameRate& from, const FrameRate& to) {
  return Reduced(std::int64_t{from.Numerator()} * to.Denominator(), std::int64_t{from.Denominator()} * to.Numerator());
}

TimeMap TimeMap::Shift(Ms ms) {
  TimeMap map;
  map.lines_ = {{0, ms.Wide(), {}}};
  return map;
}

TimeMap TimeMap::ScaleAndShift(const SpeedRatio& ratio, Ms ms) {
  TimeMap map;
  map.lines_ = {{0, ms.Wide(), ratio}};
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
    const std::int64_t before = Span(points[i].from, points[i + 1].from);
    const std::int64_t after = Span(points[i].to, points[i + 1].to);
    if (before == 0) return Fault::SameTime;
    if (after <= 0) return Fault::TurnedRound;
    lines.push_back({points[i].from, points[i].to.Wide(), Reduced(after, before)});
  }
  if (lines.empty()) lines.push_back({points.front().from, points.front().to.Wide(), {}});
  map.lines_ = std::move(lines);
  return Fault::None;
}

std::int64_t TimeMap::At(Ms ms) const {
  const auto behind = std::ranges::upper_bound(lines_, ms, {}, &Line::from);
  const Line& line = behind == lines_.begin() ? lines_.front() : *std::prev(behind);
  return line.to + Scaled(Span(line.from, ms), line.slope);
}

Retimed RetimedTimes(const CaptionTimes& old, const TimeMap& map) {
  if (old.start <= 0 && old.end <= 0) return {old, false};
  const std::int64_t start = map.At(old.start);
  // An end of 0 means that the caption has none.
  const std::int64_t end = old.end > 0 ? map.At(old.end) : 0;
  return {{Stored(start), Stored(end)}, start < 0 || end < 0};
}

namespace {

/// Calls `take` with each row of a range and its new times.
template <class Take>
void PassRetimed(const CaptionList& list, const RowRange& range, const TimeMap& map, RetimeResult& result, Take take) {
  const auto [first, last] = range.In(list);
  for (Row row = first; row <= last; ++row) {
    const CaptionTimes old = list.TimesAt(row);
    const Retimed fresh = RetimedTimes(old, map);
    result.changed += int{fresh.times != old};
    result.belowZero += int{fresh.belowZero};
    take(row, fresh.times);
  }
}

/// New times of rows that follow on each other, gathered for one change.
class FreshTimes {
 public:
  explicit FreshTimes(CaptionList& list) : list_(list) {}

  void Take(Row row, const CaptionTimes& fresh) {
    if (first_ == 0) first_ = row;
    // Captions between two ranges keep their times.
    for (Row next = first_ + CountOf(times_); next < row; ++next) times_.push_back(list_.TimesAt(next));
    times_.push_back(fresh);
  }

  void Store() {
    const EditScope scope(list_, EditKind::Retime);
    list_.Retime(first_, times_);
    list_.SetModified();
  }

 private:
  CaptionList& list_;
  std::vector<CaptionTimes> times_;
  Row first_ = 0;
};

}  // namespace

RetimeResult ForeseeRetiming(const CaptionList& list, const RetimeRows& rows, const TimeMap& map) {
  RetimeResult result;
  for (const RowRange& range : rows) PassRetimed(list, range, map, result, [](Row, const CaptionTimes&) {});
  return result;
}

RetimeResult RetimeCaptions(CaptionList& list, const RetimeRows& rows, const TimeMap& map) {
  std::vector<RetimePiece> pieces;
  for (const RowRange& range : rows) pieces.push_back({range, map});
  return RetimeCaptions(list, pieces);
}

RetimeResult RetimeCaptions(CaptionList& list, const std::vector<RetimePiece>& pieces) {
  RetimeResult result;
  FreshTimes fresh(list);
  for (const RetimePiece& piece : pieces) {
    PassRetimed(list, piece.rows, piece.map, result,
                [&](Row row, const CaptionTimes& times) { fresh.Take(row, times); });
  }
  if (result.changed != 0) fresh.Store();
  return result;
}

}  // namespace cuewright

#include "capture/caption_cells.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/numbers.h"
#include "text/visible_length.h"

namespace cuewright {
namespace {

constexpr std::int64_t kMsASecond = 1000;
constexpr std::int64_t kSecondsAMinute = 60;
constexpr std::int64_t kSecondsAnHour = 3600;

Text ClockOf(std::int64_t seconds) {
  return Decimal(seconds / kSecondsAnHour) + u":" + Padded(seconds / kSecondsAMinute % kSecondsAMinute, 2) + u":" +
         Padded(seconds % kSecondsAMinute, 2);
}

/// How many frames are counted to a second: 24 at 23.976.
std::int64_t FramesASecond(const FrameRate& rate) {
  return std::max<std::int64_t>(std::llround(1.0 * rate.Numerator() / rate.Denominator()), 1);
}

bool InFrames(const TimesShown& shown) { return shown.form == TimeForm::Frames && shown.rate.IsUsual(); }

std::int64_t FramesOf(std::int64_t ms, const TimesShown& shown) {
  return shown.rate.FramesOfMs(Ms::Within(ms, 0, Ms::Latest()));
}

Text DurationCell(const CaptionTimes& times, const TimesShown& shown) {
  return times.end == 0 ? Text() : LengthCell(Span(times.start, times.end), shown);
}

/// From the end of a caption to the start of the next one.
Text GapCell(const CellTimes& times, const TimesShown& shown) {
  if (times.own.end == 0 || times.next.start <= 0) return {};
  return LengthCell(Span(times.own.end, times.next.start), shown);
}

Text SpeedCell(const CaptionList& list, Row row, const CaptionTimes& times) {
  const double speed = ReadingSpeed(list, row, times);
  if (speed <= 0) return {};
  const auto tenths = std::llround(speed * 10);
  return Decimal(tenths / 10) + u"." + Decimal(tenths % 10);
}

}  // namespace

Text TimeCell(Ms ms, const TimesShown& shown) {
  if (shown.form == TimeForm::Milliseconds) return Decimal(ms.Count());
  const Text sign = ms < 0 ? u"-" : u"";
  const std::int64_t size = std::abs(ms.Wide());
  if (!InFrames(shown)) return sign + ClockOf(size / kMsASecond) + u"." + Padded(size % kMsASecond, 3);
  const std::int64_t frames = FramesOf(size, shown);
  const std::int64_t second = FramesASecond(shown.rate);
  return sign + ClockOf(frames / second) + u":" + Padded(frames % second, 2);
}

Text LengthCell(std::int64_t ms, const TimesShown& shown) {
  if (shown.form == TimeForm::Milliseconds) return Decimal(ms);
  const Text sign = ms < 0 ? u"-" : u"";
  const std::int64_t size = std::abs(ms);
  if (InFrames(shown)) return sign + Decimal(FramesOf(size, shown));
  return sign + Decimal(size / kMsASecond) + u"." + Padded(size % kMsASecond, 3);
}

CellTimes TimesOfCells(const CaptionList& list, Row row) {
  return {list.TimesAt(row), list.InRange(row + 1) ? list.TimesAt(row + 1) : CaptionTimes{}};
}

Text CaptionCell(const CaptionList& list, Row row, ListColumn column, const TimesShown& shown, const CellTimes& times) {
  const CaptionTimes& own = times.own;
  switch (column) {
    case ListColumn::Number:
      return Decimal(row.Number());
    case ListColumn::Start:
      return own == CaptionTimes{} ? Text() : TimeCell(own.start, shown);
    case ListColumn::End:
      return own.end == 0 ? Text() : TimeCell(own.end, shown);
    case ListColumn::Duration:
      return DurationCell(own, shown);
    case ListColumn::Gap:
      return GapCell(times, shown);
    case ListColumn::Speed:
      return SpeedCell(list, row, own);
    case ListColumn::Words:
      break;
  }
  Text text;
  for (const StyledRun& run : TextCell(list, row)) text += run.text;
  return text;
}

std::vector<StyledRun> TextCell(const CaptionList& list, Row row) {
  const AppOptions& options = list.Options();
  std::vector<StyledRun> runs;
  if (options.rawMarks || !options.manner.KeepsStylesWithin()) {
    runs.push_back({list.At(row).text, {}});
  } else {
    runs = list.Marks().ReadOf(list.At(row).origin, list.At(row).text, options.lineSeparator).runs;
  }
  const Text sign = u" " + Text(kBreakSign) + u" ";
  for (StyledRun& run : runs) run.text = ReplaceAll(run.text, options.lineSeparator, sign);
  return runs;
}

double ReadingSpeed(const CaptionList& list, Row row, const CaptionTimes& times) {
  if (times.end <= times.start) return 0;
  // Line ends have no width, so they count for nothing.
  const int length = VisibleLength(list.GetSeenText(row, true), false);
  return length * 1000.0 / ToReal(Span(times.start, times.end));
}

}  // namespace cuewright

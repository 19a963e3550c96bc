#include "tools/insert_caption.h"

#include <algorithm>

#include "core/best_duration.h"

namespace cuewright {
namespace {

/// How many characters a caption is expected to get that has none yet.
constexpr int kUsualLength = 30;
/// A gap in ms that is shorter than this gets no caption with times.
constexpr Ms kLeastRoom = 100;
/// A caption that starts at 0 counts as one without times.
constexpr Ms kFirstStart = 1;
constexpr Ms kNoLimit = Ms::Latest();

/// The part of a stretch of time that a new caption takes, from its beginning on; no times when it is too short.
CaptionTimes FirstOf(const CaptionList& list, Ms begin, Ms end) {
  if (Span(begin, end) < kLeastRoom.Wide()) return {};
  const Ms wanted = std::max(DurationOfLength(list.Options(), kUsualLength), kLeastRoom);
  return {begin, Ms::Within(begin.Wide() + wanted.Wide(), begin, end)};
}

Ms NextStart(const CaptionList& list, Row row) {
  while (list.InRange(row) && !list.IsCaptionTimed(row)) ++row;
  return list.InRange(row) ? list.GetCaptionStart(row) : kNoLimit;
}

Ms EndBefore(const CaptionList& list, Row row) {
  while (list.InRange(row) && !list.IsCaptionTimed(row)) --row;
  return list.InRange(row) ? std::max(list.GetCaptionStart(row), list.GetCaptionEnd(row)) : 0;
}

CaptionTimes TimesAbove(const CaptionList& list, Row row) {
  const Ms begin = std::max(EndBefore(list, row - 1), kFirstStart);
  const Ms end = list.GetCaptionStart(row);
  const CaptionTimes times = FirstOf(list, begin, end);
  // The caption ends where the row begins, rather than beginning where the caption before it ends.
  return times.end == 0 ? times : CaptionTimes{end - (times.end - times.start), end};
}

CaptionTimes TimesBelow(const CaptionList& list, Row row) {
  const Ms begin = list.GetCaptionEnd(row);
  return begin > list.GetCaptionStart(row) ? FirstOf(list, begin, NextStart(list, row + 1)) : CaptionTimes{};
}

Row Add(CaptionList& list, const CaptionTimes& times, Row row) {
  const Row added = list.AddCaption(times.start, times.end, {}, row);
  list.SetModified();
  return added;
}

}  // namespace

Row InsertBeside(CaptionList& list, Row row, Side side) {
  CaptionTimes times;
  if (list.IsCaptionTimed(row)) times = side == Side::Above ? TimesAbove(list, row) : TimesBelow(list, row);
  return Add(list, times, side == Side::Above ? row : row + 1);
}

std::optional<Row> InsertAt(CaptionList& list, Ms ms) {
  const Ms start = std::max(ms, kFirstStart);
  Row before = 0;  // the last one that has started by then
  for (Row row = 1; row < list.Rows(); ++row) {
    if (!list.IsCaptionTimed(row)) continue;
    if (list.GetCaptionStart(row) > start) break;
    before = row;
  }
  if (before != 0 && (list.GetCaptionEnd(before) > start || list.GetCaptionStart(before) == start)) return {};
  const CaptionTimes times = FirstOf(list, start, NextStart(list, before + 1));
  if (times.end == 0) return {};
  return Add(list, times, before + 1);
}

Row InsertStretchAt(CaptionList& list, CaptionTimes times) {
  times.start = std::max(times.start, kFirstStart);
  Row before = 0;
  for (Row row = 1; row < list.Rows(); ++row) {
    if (!list.IsCaptionTimed(row)) continue;
    if (list.GetCaptionStart(row) > times.start) break;
    before = row;
  }
  return Add(list, times, before + 1);
}

void DuplicateCaption(CaptionList& list, Row row) {
  Caption copy = list.At(row);
  copy.origin = 0;
  list.Replace(row + 1, 0, {std::move(copy)});
  list.SetModified();
}

}  // namespace cuewright

#include "core/best_duration.h"

#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr int kShortUpTo = 5;
constexpr int kMediumUpTo = 15;
constexpr int kLeastDuration = 100;
constexpr int kMarkerLength = 3;

}  // namespace

std::size_t LengthClass(int length) { return length <= kShortUpTo ? 0 : length <= kMediumUpTo ? 1 : 2; }

Ms DurationOfLength(const AppOptions& options, int length) {
  return std::int32_t{options.durationPerCharacter[LengthClass(length)]} * length;
}

std::optional<std::int16_t> SetBestDuration(CaptionList& list, Row row) {
  if (!list.InRange(row)) return {};
  const Text& separator = list.Options().lineSeparator;
  const Text text = list.GetSeenText(row);
  const Checked32 start(list.GetCaptionStart(row).Count());
  const Checked32 duration = Checked32(list.GetCaptionEnd(row).Count()) - start;
  Checked16 length(text.size());
  // The italic marker isn't counted as a character here; the others are.
  const CaptionList::Markers markers = list.MarkersOf(row);
  if (list.Options().manner.KeepsStylesWithin()) {
    length = length + Checked16((int{markers.bold} + int{markers.underline}) * kMarkerLength);
  } else if (markers.italic) {
    length = length - Checked16(kMarkerLength);
  }
  if (FindPlain(text, separator) != Text::npos) length = length - Checked16(separator.size());
  if (duration < 1) list.SetCaptionEnd(row, (start + Checked32(kLeastDuration)).Value());
  if (length < 1) return {};
  const Checked16 best = Checked16(list.Options().durationPerCharacter[LengthClass(length)]) * length;
  list.SetCaptionEnd(row, (start + Checked32(best.Value())).Value());
  return best.Value();
}

}  // namespace cuewright

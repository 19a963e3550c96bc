#include "core/caption_list.h"

#include <algorithm>
#include <utility>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/seen_text.h"
#include "core/style_markers.h"

namespace cuewright {
namespace {

/// "Left" and "right" characters of a text; a negative count is a run-time error, a large one gives all.
TextView LeftPart(TextView text, long count) {
  if (count < 0) ThrowInvalidCall();
  return text.substr(0, SizeOf(count));
}

Text Flatten(TextView text, TextView separator) {
  Text flat = ReplaceAll(text, separator, u" ");
  if (flat.find(u"  ") != Text::npos) flat = ReplaceAll(flat, u"  ", u" ");
  if (FindPlain(flat, u"\r") != Text::npos) {
    flat = ReplaceAll(flat, u"\r\n ", u"\r\n");
    flat = ReplaceAll(flat, kLineEnd, u" ");
  }
  return Text(TrimBlanks(flat));
}

/// The 1-based place of the blank nearest the middle, the later one of two equally near; 0 when the search ran
/// off both ends.
int MiddleBlank(TextView text) {
  const auto isBlank = [&](int at) { return at >= 1 && ItemAt(text, at - 1) == u' '; };
  const int length = CountOf(text);
  // Both places are held in 8 bits, so a long text fails here.
  Checked8 forward(length / 2);
  Checked8 back(forward - Checked8(1));
  for (;;) {
    if (isBlank(forward)) return forward;
    ++forward;
    const bool found = isBlank(back);
    if (!found) --back;
    if (found || forward >= length || back == 0) return isBlank(forward) ? forward : back;
  }
}

}  // namespace

CaptionList::CaptionList(const AppOptions& options, bool& modified) : options_(options), modified_(modified) {
  rows_.Splice(0, 0, {Caption{}});
}

std::vector<CaptionTimes> CaptionList::AllTimes() const {
  std::vector<CaptionTimes> times;
  times.reserve(rows_.size());
  for (Row row = 1; InRange(row); ++row) times.push_back(TimesAt(row));
  return times;
}

Text CaptionList::GetCaptionText(Row row, bool asLines) const {
  if (!InRange(row)) return {};
  return asLines ? ReplaceAll(At(row).text, options_.lineSeparator, kLineEnd) : At(row).text;
}

Text CaptionList::GetSeenText(Row row, bool asLines) const {
  if (!InRange(row) || !HasMarks() || !MayHaveMarks(At(row).text)) return GetCaptionText(row, asLines);
  const Text& separator = options_.lineSeparator;
  SeenText seen;
  seen.Take(At(row).text, separator, *marks_);
  return ReplaceAll(seen.View(), u"\n", asLines ? kLineEnd : TextView(separator));
}

Text CaptionList::WithSeenText(Row row, TextView seen) const {
  if (!HasMarks()) return Text(seen);
  SeenText text;
  text.Take(At(row).text, options_.lineSeparator, *marks_);
  text.ChangeTo(ReplaceAll(seen, options_.lineSeparator, u"\n"));
  return text.Stored();
}

Ms CaptionList::GetCaptionStart(Row row) const { return InRange(row) ? At(row).start : 0; }

Ms CaptionList::GetCaptionEnd(Row row) const { return InRange(row) ? At(row).end : 0; }

bool CaptionList::IsCaptionTimed(Row row) const { return GetCaptionStart(row) > 0; }

void CaptionList::SetCaptionText(Row row, TextView text) {
  const Text& separator = options_.lineSeparator;
  if (!InRange(row) || (!separator.empty() && text.ends_with(separator))) return;
  if (At(row).text == text) return;
  Replace(row, 1, {At(row).WithText(Text(text))});
}

void CaptionList::StoreTimes(Row row, Ms start, Ms end) {
  CaptionTimes times{start, end};
  if (times != TimesAt(row)) Retime(row, {&times, 1});
}

void CaptionList::SetCaptionStart(Row row, Ms ms, bool quiet) {
  if (!InRange(row)) return;
  const EditScope scope(*this, EditKind::Change);
  StoreTimes(row, ms < 0 ? 0 : ms, At(row).end);
  if (!quiet) SetModified();
}

void CaptionList::SetCaptionEnd(Row row, Ms ms) {
  if (!InRange(row)) return;
  const EditScope scope(*this, EditKind::Change);
  StoreTimes(row, At(row).start, ms < 0 ? 0 : ms);
  SetModified();
}

void CaptionList::ClearCaptionTiming(Row row, bool quiet) {
  if (!InRange(row)) return;
  const EditScope scope(*this, EditKind::Change);
  StoreTimes(row, 0, 0);
  if (!quiet) SetModified();
}

CaptionList::Markers CaptionList::MarkersIn(TextView text) {
  Markers found;
  for (std::size_t at = FindPlain(text, u"<"); at != TextView::npos; at = FindPlain(text, u"<", at + 1)) {
    const TextView marker = text.substr(at, kBoldMarker.size());
    found.bold = found.bold || marker == kBoldMarker;
    found.italic = found.italic || marker == kItalicMarker;
    found.underline = found.underline || marker == kUnderlineMarker;
  }
  return found;
}

CaptionList::Markers CaptionList::MarkersOf(Row row) const {
  if (!InRange(row)) return {};
  if (!HasMarks()) return MarkersIn(At(row).text);
  const WholeMarkers whole = FindWholeMarkers(At(row).text);
  return {whole.bold, whole.italic, whole.underline};
}

bool CaptionList::IsCaptionBold(Row row) const { return MarkersOf(row).bold; }
bool CaptionList::IsCaptionItalic(Row row) const { return MarkersOf(row).italic; }
bool CaptionList::IsCaptionUnderline(Row row) const { return MarkersOf(row).underline; }

bool CaptionList::IsCaptionFormatted(Row row) const { return MarkersOf(row).Count() > 0; }

Text CaptionList::TextWithMarker(Row row, TextView marker, bool on) const {
  const Text& text = At(row).text;
  if (!HasMarks()) return on ? text + Text(marker) : ReplaceAll(text, marker, {});
  if (!on) return WithoutWholeMarker(text, marker);
  if (FindWholeMarkers(text).Has(marker)) return text;
  return Text(marker) + marks_->WithoutStyle(text, marker, options_.lineSeparator);
}

void CaptionList::ToggleMarker(Row row, TextView marker) {
  if (!InRange(row)) return;
  const Text& text = At(row).text;
  const bool held = HasMarks() ? FindWholeMarkers(text).Has(marker) : FindLoose(text, marker) != TextView::npos;
  Text changed = TextWithMarker(row, marker, !held);
  if (changed != text) Replace(row, 1, {At(row).WithText(std::move(changed))});
}

Row CaptionList::AddCaption(Ms start, Ms end, TextView text, Row row) {
  if (row == 0) row = Rows();
  const Caption caption{start, end, Text(text)};
  if (Rows() == 2 && At(1) == Caption{}) {
    Replace(1, 1, {caption});
    return 1;
  }
  Replace(row, 0, {caption});
  return row;
}

void CaptionList::DeleteCaption(Row row) {
  if (!InRange(row)) return;
  const EditScope scope(*this, EditKind::Remove);
  if (Rows() == 2) {
    if (At(1).text.empty() && !IsCaptionTimed(1)) return;
    // One splice, so that taking it back is one step.
    Replace(1, 1, {Caption{}});
    SetModified();
    SetRow(1, false);
    return;
  }
  Replace(row, 1, {});
  SetRow(row, false);
  SetModified();
}

// By value: the rows may be those that are selected, which change with the list.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void CaptionList::DeleteCaptions(RowSet rows) {
  const Row first = rows.First();
  const Row last = std::min(rows.Last(), Rows() - 1);
  if (!InRange(first)) return;
  if (first == last) return DeleteCaption(first);
  const EditScope scope(*this, EditKind::Remove);
  std::vector<Caption> left;
  for (Row row = first; row <= last; ++row) {
    if (!rows.Has(row)) left.push_back(At(row));
  }
  if (left.empty() && last - first + 2 == Rows()) left.emplace_back();
  Replace(first, last - first + 1, std::move(left));
  SelectRows(RowSet(), first, false);
  SetModified();
}

void CaptionList::SnapNearbyStart(Row row, bool quiet) {
  if (!InRange(row) || !IsCaptionTimed(row - 1)) return;
  const Ms previousEnd = GetCaptionEnd(row - 1);
  if (GetCaptionStart(row).Wide() > previousEnd.Wide() + options_.nearMs) return;
  SetCaptionStart(row, previousEnd, quiet);
}

Text CaptionList::SplitCaptionLines(TextView text) const {
  const Text flat = Flatten(text, options_.lineSeparator);
  if (flat.find(u' ') == Text::npos) return {};
  const auto join = [&](TextView left, TextView right) {
    return Text(TrimBlanks(left)) + options_.lineSeparator + Text(TrimBlanks(right));
  };
  const std::size_t dash = FindLoose(flat, u"- ", 2);
  if (dash != TextView::npos) {
    const std::size_t left = dash - 1;  // the character in front of the dash goes to the right part
    return join(TextView(flat).substr(0, left), TextView(flat).substr(left));
  }
  const int at = MiddleBlank(flat);
  return join(LeftPart(flat, at - 1), TextView(flat).substr(SizeOf(at)));
}

void CaptionList::SortNumbers() { SelectionChanged(selected_); }

void CaptionList::Reset() {
  Replace(1, Count(), {Caption{}});
  selected_ = 1;
  chosen_ = RowSet(1);
}

void CaptionList::Replace(Row first, int count, std::vector<Caption> rows) {
  const int added = CountOf(rows);
  if (first < 1 || count < 0 || first + count > Rows()) ThrowInvalidCall();
  if (rows.size() > kMaxRow.Index() + 1 || Count() - count + added > kMaxRow.Number()) ThrowOverflow();
  if (Rows() - 1 - count + added < 1) ThrowInvalidCall();
  const EditScope scope(*this, EditKind::Change);
  const bool alone = chosen_ == RowSet(selected_);
  const auto before = rows_.Splice(first.Index(), SizeOf(count), std::move(rows));
  chosen_.Follow(first, count, added);
  // A row that is selected alone is the current one, which is a place: whoever changes the list says where it goes.
  if (alone || chosen_.Empty()) chosen_ = RowSet(std::clamp<Row>(selected_, 1, Rows() - 1));
  Spliced(Splice{first, count, added, before, {}});
}

void CaptionList::Retime(Row first, std::span<CaptionTimes> times) {
  const int count = CountOf(times);
  if (first < 1 || first + count > Rows()) ThrowInvalidCall();
  if (count == 0) return;
  const EditScope scope(*this, EditKind::Change);
  auto at = first.Index();
  for (CaptionTimes& given : times) {
    Caption& caption = rows_.At(at++);
    std::swap(caption.start, given.start);
    std::swap(caption.end, given.end);
  }
  Spliced(Splice{first, count, count, {}, times});
}

void CaptionList::SetRow(Row row, bool scroll) {
  if (row == 0) return;
  if (row < 0) row = 1;
  if (row >= Rows()) row = Rows() - 1;
  const bool anew = row == selected_ && chosen_.Has(row);
  Choose(row, anew ? chosen_ : RowSet(row), scroll);
}

void CaptionList::SelectRows(RowSet rows, Row row, bool scroll) {
  row = std::clamp<Row>(row, 1, Rows() - 1);
  rows.CutBehind(Rows() - 1);
  Choose(row, rows.Empty() ? RowSet(row) : std::move(rows), scroll);
}

void CaptionList::Choose(Row row, RowSet rows, bool scroll) {
  currentRow_ = row;
  selected_ = row;
  chosen_ = std::move(rows);
  SelectionChanged(row);
  if (enabled_) RowShown(row, scroll);
}

void CaptionList::MoveSelection(Row row, bool scroll) {
  if (!InRange(row)) return;
  selected_ = row;
  chosen_ = RowSet(row);
  if (row != currentRow_) {
    SetRow(row, scroll);
  } else {
    SelectionChanged(row);
  }
}

void CaptionList::BeginCommand(EditKind kind, std::uint64_t join) {
  if (++commandDepth_ > 1) return;
  try {
    CommandBegan(kind, join);
  } catch (...) {
    // Whoever heard of the beginning hears of the end: nobody else will tell it.
    EndCommand();
    throw;
  }
}

void CaptionList::EndCommand() {
  if (--commandDepth_ == 0) CommandEnded();
}

void CaptionList::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  EnabledChanged(enabled);
}

}  // namespace cuewright

#include "capture/caption_grid.h"

#include <algorithm>
#include <utility>

#include "core/counting.h"
#include "core/style_markers.h"

namespace cuewright {
namespace {

/// Seconds with their tenths: "6.5", "9".
Text Seconds(Ms ms) {
  const std::int64_t tenths = (ms.Wide() + 50) / 100;
  return tenths % 10 == 0 ? Decimal(tenths / 10) : Decimal(tenths / 10) + u"." + Decimal(tenths % 10);
}

}  // namespace

void CaptionGrid::ShowNotice(TextView notice) {
  active_ = false;
  notice_ = notice;
  topRow_ = 1;
  Changed();
}

void CaptionGrid::ShowCaptions() {
  active_ = true;
  topRow_ = 1;
  Changed();
}

void CaptionGrid::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void CaptionGrid::SetHeadings(Texts headings) {
  headings_ = std::move(headings);
  Changed();
}

void CaptionGrid::SetColumns(const ColumnOrder& columns) {
  if (columns_ == columns) return;
  columns_ = columns;
  Changed();
}

void CaptionGrid::SetTimes(const TimesShown& times) {
  if (times_ == times) return;
  times_ = times;
  Changed();
}

void CaptionGrid::SetMoves(const RowMoves* moves) {
  moves_ = moves;
  Changed();
}

Text CaptionGrid::Remarks(Row row) const {
  Text remarks = Findings(row);
  if (MoveOf(row) == RowMoves::Kind::None) return remarks;
  if (!remarks.empty()) remarks += u"\n";
  return remarks + moves_->Words(row);
}

void CaptionGrid::SetFindings(const RowFindings* findings) {
  findings_ = findings;
  Changed();
}

void CaptionGrid::MarkFilmRow(Row row) {
  if (filmRow_ == row) return;
  const Row before = std::exchange(filmRow_, row);
  for (const Row touched : {before, row}) {
    if (list_.InRange(touched)) RowsTouched(touched, touched);
  }
}

void CaptionGrid::SetSpoken(TextView timed, TextView untimed, TextView found) {
  spokenTimed_ = timed;
  spokenUntimed_ = untimed;
  spokenFound_ = found;
}

Text CaptionGrid::CellText(Row row, ListColumn column) const {
  CellTimes times{ShownTimes(row), {}};
  if (list_.InRange(row + 1)) times.next = ShownTimes(row + 1);
  return CaptionCell(list_, row, column, times_, times);
}

Text CaptionGrid::ShownText(Row row) const {
  return list_.Options().rawMarks ? list_.GetCaptionText(row) : list_.GetSeenText(row);
}

Text CaptionGrid::SpokenCaption(Row row) const {
  if (!list_.InRange(row)) return {};
  Text text = ReplaceAll(list_.GetSeenText(row, true), kLineEnd, u" ");
  if (!list_.Options().manner.KeepsStylesWithin()) text = WithoutStyleMarkers(std::move(text));
  const CaptionTimes times = ShownTimes(row);
  const Text form = times.start > 0 ? spokenTimed_ : spokenUntimed_;
  const std::array<Text, 4> values = {Decimal(row.Number()), Seconds(times.start), Seconds(times.end), text};
  Text spoken;
  for (std::size_t i = 0; i < form.size(); ++i) {
    const bool place = form[i] == u'%' && i + 1 < form.size() && form[i + 1] >= u'1' && form[i + 1] <= u'4';
    if (place) {
      spoken += ItemAt(values, form[++i] - u'1');
    } else {
      spoken += form[i];
    }
  }
  const Text remarks = Remarks(row);
  return remarks.empty() ? spoken : Fill(spokenFound_, spoken, ReplaceAll(remarks, u"\n", u", "));
}

void CaptionGrid::Foresee(const ForeseenTimes* times) {
  if (times == nullptr && foreseen_ == nullptr) return;
  foreseen_ = times;
  Changed();
}

void CaptionGrid::SetRightToLeft(bool on) {
  if (rightToLeft_ == on) return;
  rightToLeft_ = on;
  Changed();
}

void CaptionGrid::SetColumnWidths(std::array<int, 4> widths) {
  if (widths_ == widths) return;
  widths_ = widths;
  Changed();
}

void CaptionGrid::SetFont(TextView name, int size, bool bold) {
  fontName_ = name;
  fontSize_ = size;
  fontBold_ = bold;
  Changed();
}

void CaptionGrid::SetTopRow(Row row) {
  topRow_ = std::max<Row>(row, 1);
  Scrolled();
}

void CaptionGrid::NoteMetrics(int height, int rowHeight) {
  height_ = height;
  rowHeight_ = std::max(rowHeight, 1);
}

void CaptionGrid::ScrollRow(bool force) {
  const int visible = height_ / rowHeight_ - 1;
  const Row selected = list_.Selected();
  if (selected < topRow_) {
    SetTopRow(selected);
  } else if (selected >= topRow_ + visible || (force && selected > topRow_ + visible - 3)) {
    SetTopRow(std::max<Row>(selected - visible + 3, 1));
  }
}

}  // namespace cuewright

#include "capture/caption_panel.h"

#include "core/caption_time.h"
#include "core/runtime_error.h"

namespace cuewright {

CaptionPanel::CaptionPanel(MainWindow& window, CaptionList& list, CaptionGrid& grid, const LangStrings& strings)
    : window_(window), list_(list), grid_(grid), strings_(strings) {
  list_.RowShown.Connect([this](Row row, bool scroll) { ShowRow(row, scroll); });
}

void CaptionPanel::ShowStyles(Row row) {
  window_.mnuBold.SetChecked(list_.IsCaptionBold(row));
  window_.mnuItalic.SetChecked(list_.IsCaptionItalic(row));
  window_.mnuUnderline.SetChecked(list_.IsCaptionUnderline(row));
}

bool CaptionPanel::HidesMarks() const {
  return list_.Options().manner.KeepsStylesWithin() && !list_.Options().rawMarks;
}

void CaptionPanel::ShowText(Row row) {
  if (!HidesMarks()) return window_.txtSub.SetText(list_.GetCaptionText(row, true));
  pane_.Take(list_.GetCaptionText(row), list_.Options().lineSeparator, list_.Marks());
  window_.txtSub.SetText(ReplaceAll(pane_.View(), u"\n", kLineEnd));
}

Text CaptionPanel::TakeText() {
  const Text& shown = window_.txtSub.GetText();
  if (!HidesMarks()) return ReplaceAll(shown, kLineEnd, list_.Options().lineSeparator);
  pane_.ChangeTo(ReplaceAll(shown, kLineEnd, u"\n"));
  return pane_.Stored();
}

void CaptionPanel::ShowRow(Row row, bool scroll) {
  ShowStyles(row);
  ShowText(row);
  shownStart_ = list_.GetCaptionStart(row);
  shownEnd_ = list_.GetCaptionEnd(row);
  // A time that is too large for a box leaves the box as it was; everything else is still shown.
  CarryOn step;
  step([&] { window_.txtTime[0].SetText(MsToTimeText(shownStart_)); });
  step([&] {
    // A caption that ends before it starts has no duration. The classic manner leaves that of the caption shown before.
    const bool none = shownEnd_ <= shownStart_ && list_.Options().manner.ShowsTrueDuration();
    if (shownEnd_ == 0 || none) window_.txtTime[1].SetText(MsToTimeText(0));
    if (shownEnd_ > shownStart_) window_.txtTime[1].SetText(MsToTimeText(shownEnd_ - shownStart_));
  });
  CaptionShown(row);
  if (scroll) grid_.ScrollRow(true);
}

void CaptionPanel::ResetGrid(Showing showing) {
  const bool active = showing == Showing::BlankCaption;
  list_.Reset();
  if (active) {
    ApplyLanguage(grid_.RightToLeft());
    grid_.ShowCaptions();
    list_.SetRow(1, false);
    list_.ClearCaptionTiming(1, true);
  } else {
    grid_.ShowNotice(strings_[Message::NoTextFileLoaded]);
    ShowText(0);
  }
  window_.txtSub.SetEnabled(active);
  for (TextBox& box : window_.txtTime) box.SetEnabled(active);
}

void CaptionPanel::ApplyLanguage(bool rightToLeft) {
  grid_.SetHeadings({u"#", strings_[Message::Start], strings_[Message::End], strings_[Message::ColumnDuration],
                     strings_[Message::ColumnGap], strings_[Message::ColumnSpeed], strings_[Message::TextColumn]});
  grid_.SetSpoken(strings_[Message::SpokenTimedRow], strings_[Message::SpokenUntimedRow],
                  strings_[Message::SpokenFindings]);
  grid_.SetRightToLeft(rightToLeft);
}

}  // namespace cuewright


#include "audio/audio_bar.h"
#include "core/caption_time.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr int kGrip = 2;         // pixels around a mark that take hold of it
constexpr int kLeastLength = 9;  // pixels between the marks while one is dragged
constexpr int kTipMargin = 1;
constexpr int kMsAPixel = 10;
constexpr std::int32_t kSeekColor = 0xFFFFFF;
constexpr std::int32_t kPositionColor = 0xFFFFC0;

}  // namespace

void AudioBar::OnPress(MouseButton button, int x) {
  if (button == MouseButton::Right) {
    dragOffset_ = x - marks_.start;
    dragRow_ = p_.list.CurrentRow();
    ++drags_;
  }
  if (marks_.captionShown) PressMark(x);
  dragging_ = button == MouseButton::Right && marks_.captionShown && drag_ != Drag::Nothing;
  OnMove(button, x);
}

void AudioBar::PressMark(int x) {
  const auto on = [x](int mark) { return mark - kGrip < x && x < mark + kGrip; };
  drag_ = on(marks_.start)                     ? Drag::Start
          : on(marks_.end)                     ? Drag::End
          : marks_.start < x && x < marks_.end ? Drag::Span
                                               : Drag::Nothing;
}

void AudioBar::OnMove(MouseButton held, int x) {
  if (!p_.document.HasVideo() || !Loaded()) return;
  if (held != MouseButton::Right) EndDrag();
  p_.window.lblWaveTip.SetVisible(marks_.start - kTipMargin <= x && x <= marks_.end + kTipMargin);
  if (held == MouseButton::Left && x >= 0 && x <= WaveWidth()) Seek(x);
  if (held == MouseButton::Right && marks_.captionShown) DragMarks(x);
}

void AudioBar::Seek(int x) {
  if (p_.player.PlayState() == kPlayerPlaying) {
    resumePlay_ = true;
    p_.player.Pause();
  }
  if (p_.player.PlayState() != kPlayerPaused) return;
  WaveMarks marks = marks_;
  marks.positionColor = kSeekColor;
  marks.position = x;
  marks.arrowLeft = (shown_ == nullptr ? 0 : shown_->WaveLeft()) + x - 2;
  marks.seeking = true;
  SetMarks(marks);
  const Ms ms = (x + view_.scrollPos) * kMsAPixel;
  p_.sample.SetPlayerPosMs(ms);
  p_.player.SetCurrentPosition(ms.Seconds());
}

void AudioBar::DragMarks(int x) {
  WaveMarks marks = marks_;
  switch (drag_) {
    case Drag::Start:
      if (x < marks.end - kLeastLength && x >= 0) marks.start = x;
      break;
    case Drag::End:
      if (x > marks.start + kLeastLength) marks.end = x;
      break;
    case Drag::Span:
      marks.start = x - dragOffset_;
      // In a wave that is scrolled the span may leave the picture on the left.
      if (view_.scrollPos == 0 && marks.start < 0) marks.start = 0;
      marks.end = marks.start + marks.spanWidth;
      break;
    case Drag::Nothing:
      break;
  }
  if (drag_ != Drag::Nothing) {
    marks.spanLeft = marks.start + 1;
    marks.spanWidth = marks.end - marks.start;
    SetMarks(marks);
    StoreDrag();
  }
  if (p_.window.optPreview.Value()) p_.preview.GetPreviewCap();
}

void AudioBar::StoreDrag() {
  const Row row = HoldsDrag() ? dragRow_ : p_.list.CurrentRow();
  if (!p_.list.InRange(row)) return;
  const EditScope scope(p_.list, EditKind::Drag, drags_);
  p_.list.SetCaptionStart(row, (marks_.start + view_.scrollPos) * kMsAPixel, false);
  p_.list.SetCaptionEnd(row, (marks_.end + view_.scrollPos) * kMsAPixel);
  CarryOn steps;
  if (row != p_.list.CurrentRow()) return;
  const Ms start = p_.list.GetCaptionStart(row);
  const Ms from = p_.options.manner.ShowsTrueDuration() ? start : 0;
  steps([&] { p_.window.txtTime[0].SetText(MsToTimeText(start)); });
  steps([&] { p_.window.txtTime[1].SetText(MsToTimeText(p_.list.GetCaptionEnd(row) - from)); });
}

void AudioBar::EndDrag() {
  if (!dragging_) return;
  const bool held = HoldsDrag();
  dragging_ = false;
  // The row may have changed under the drag.
  if (held && p_.list.CurrentRow() != dragRow_) PlaceCurrentMarks();
}

void AudioBar::OnRelease(MouseButton button) {
  if (button == MouseButton::Right) EndDrag();
  if (button == MouseButton::Left && resumePlay_) {
    resumePlay_ = false;
    // At the end of the film there is nothing left to play, and a seek must not restart it.
    if (!p_.player.AtEnd()) p_.player.Play();
  }
  WaveMarks marks = marks_;
  marks.seeking = false;
  marks.positionColor = kPositionColor;
  SetMarks(marks);
}

void AudioBar::OnPointerElsewhere() { p_.window.lblWaveTip.SetVisible(false); }

}  // namespace cuewright

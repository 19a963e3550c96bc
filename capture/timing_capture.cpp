#include "capture/timing_capture.h"

#include <array>

#include "core/best_duration.h"
#include "core/caption_time.h"
#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Reaches behind the frame that begins at the caption's start, so that the frame shown is the caption's own.
constexpr double kNudgeSeconds = 0.001;

/// What the captioning modes are for, in their order.
constexpr std::array kModeHints = {Message::PressAndHoldHint, Message::ManualModeHint, Message::PreviewModeHint};

}  // namespace

TimingCapture::TimingCapture(Workbench bench, Player& player, PlayerSample& sample, Preview& preview)
    : bench_(bench), player_(player), sample_(sample), preview_(preview) {
  WireButtons();
}

void TimingCapture::WireButtons() {
  bench_.window.tmrTime.Tick.Connect([this] {
    if (Playing()) SamplePosition();
  });
  bench_.window.tmrLimit.Tick.Connect([this] { LimitTick(); });

  Button& apply = bench_.window.cmdApply;
  apply.KeyDown.Connect([this](KeyEvent& key) {
    if (!bench_.window.optPress.Value() || (key.code != kKeySpace && key.code != 0)) return;
    key.handled = true;
    if (capturing_ || key.autoRepeat) return;
    StartCaption(false, false);
    BeginHold({Hold::By::ButtonKey, key.physical});
  });
  apply.KeyUp.Connect([this](KeyEvent& key) { OnKeyUp(key); });
  apply.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button != MouseButton::Left || !bench_.window.optPress.Value()) return;
    StartCaption(false, false);
    BeginHold({Hold::By::Pointer});
  });
  apply.MouseUp.Connect([this](const MouseEvent& mouse) { OnPointerUp(mouse.button); });
  apply.Clicked.Connect([this] {
    if (bench_.window.optManual.Value() && !capturing_) StartCaption(false, false);
  });
  bench_.window.cmdEnd.Clicked.Connect([this] { EndCaption(); });
  bench_.window.cmdNext.Clicked.Connect([this] { NextCaption(false); });

  bench_.window.optPress.Clicked.Connect([this] { SelectMode(CaptionMode::PressAndHold); });
  bench_.window.optManual.Clicked.Connect([this] { SelectMode(CaptionMode::Manual); });
  bench_.window.optPreview.Clicked.Connect([this] { SelectMode(CaptionMode::Preview); });
}

void TimingCapture::SamplePosition() {
  CarryOn step;
  step([&] { sample_.SetPlayerPosMs(RoundToInt32(player_.CurrentPosition() * 1000)); });
  bench_.window.lblTime.SetText(Decimal(PlayerPosMs().Count()));
  const TextView shown = bench_.window.lblTime.GetText();
  const TextView digits = shown.size() > 3 ? shown.substr(shown.size() - 3) : shown;
  bench_.window.lblStringPos.SetText(player_.CurrentPositionString() + u"." + Text(digits));
}

void TimingCapture::ClearPosition() {
  bench_.window.lblTime.SetText(u"0");
  bench_.window.lblStringPos.SetText(u"00:00.000");
  sample_.SetPlayerPosMs(0);
}

std::optional<Ms> TimingCapture::PositionOfInput() const {
  if (!bench_.options.manner.CountsAtTheInstant() || !bench_.window.inputInstant) return std::nullopt;
  if (!Playing() && player_.PlayState() != kPlayerPaused) return std::nullopt;
  std::optional<Ms> position;
  CarryOn step;
  step([&] { position = RoundToInt32(player_.PositionAt(*bench_.window.inputInstant) * 1000); });
  return position;
}

// The label and not the sample decides: a caption ends at the time that the user has seen, while the Audio bar sets the
// sample to where a seek goes before the film is there.
Ms TimingCapture::ShownPosition() const { return LeadingInt(bench_.window.lblTime.GetText()); }

void TimingCapture::StartCaption(bool byStartKey, bool byNextKey) {
  if (bench_.document.FileInWork) return;
  const Row selected = bench_.list.Selected();
  if (mode_ == CaptionMode::Manual) {
    bench_.window.cmdApply.SetEnabled(false);
    bench_.window.cmdNext.SetEnabled(selected != bench_.list.Rows() - 1);
    bench_.window.cmdEnd.SetEnabled(true);
  }
  capturing_ = true;
  captureRow_ = selected;
  hold_.reset();
  // Press and release are one step.
  const EditScope scope(bench_.list, EditKind::Capture, ++captureNumber_);

  const bool limit = LimitActive(bench_.options);
  const Ms position = PositionOfInput().value_or(PlayerPosMs());
  const bool joins = bench_.options.autoJoin != 0 && priorCaptionEnd_ && position > *priorCaptionEnd_ &&
                     Span(*priorCaptionEnd_, position) < bench_.options.nearMs;
  captureStartMs_ = joins ? *priorCaptionEnd_ : position;
  // The time is stored before anything is drawn: nothing stands between the press and the list.
  bench_.list.SetCaptionStart(captureRow_, captureStartMs_, false);

  preview_.ShowPreviewCaption(captureRow_);
  if (!limit) {
    bench_.window.cmdApply.SetUnderlined(byStartKey);
    bench_.window.cmdNext.SetUnderlined(byNextKey);
  }
  CarryOn step;
  step([&] { bench_.window.txtTime[0].SetText(MsToTimeText(captureStartMs_)); });
  if (!limit) return ShowDuration();
  bench_.window.cmdApply.SetEnabled(false);
  // A text too long for a best duration keeps the end that it has.
  step([&] { SetBestDuration(bench_.list, selected); });
  ShowDuration();
  priorCaptionEnd_ = bench_.list.GetCaptionEnd(selected);
  bench_.window.tmrLimit.SetEnabled(true);
}

void TimingCapture::ShowDuration() {
  if (!bench_.options.manner.ShowsTrueDuration()) return;
  CarryOn step;
  step([&] {
    const Ms duration = bench_.list.GetCaptionEnd(captureRow_) - bench_.list.GetCaptionStart(captureRow_);
    bench_.window.txtTime[1].SetText(MsToTimeText(duration));
  });
}

void TimingCapture::LeaveCapture() {
  bench_.window.tmrLimit.SetEnabled(false);
  if (Playing()) bench_.window.cmdApply.SetEnabled(true);
  bench_.window.cmdNext.SetEnabled(false);
  bench_.window.cmdEnd.SetEnabled(false);
  capturing_ = false;
  hold_.reset();
  captureRow_ = bench_.list.Selected();
  preview_.ClearPreviewCaption();
  bench_.window.cmdApply.SetUnderlined(false);
  bench_.window.cmdNext.SetUnderlined(false);
}

void TimingCapture::AbandonCapture() {
  if (capturing_) LeaveCapture();
}

void TimingCapture::EndCaption() { EndAt(PositionOfInput().value_or(ShownPosition())); }

void TimingCapture::EndAt(Ms end) {
  const Row held = captureRow_;
  Store(end);
  Held(held);
}

void TimingCapture::Store(Ms end) {
  const EditScope scope(bench_.list, EditKind::Capture, captureNumber_);
  LeaveCapture();
  priorCaptionEnd_ = end;
  bench_.list.SetCaptionEnd(captureRow_, end);
  if (captureRow_ != bench_.list.Rows() - 1) {
    MoveTo(captureRow_ + 1);
  } else {
    CarryOn step;
    step([&] { bench_.window.txtTime[1].SetText(MsToTimeText(end)); });
    ShowDuration();
  }
  bench_.grid.ScrollRow(true);
}

void TimingCapture::LimitTick() {
  if (!priorCaptionEnd_ || PlayerPosMs() <= *priorCaptionEnd_) return;
  capturing_ = false;
  hold_.reset();
  preview_.ClearPreviewCaption();
  if (bench_.list.InRange(captureRow_ + 1)) MoveTo(captureRow_ + 1);
  if (!bench_.window.optPreview.Value()) bench_.window.cmdApply.SetEnabled(true);
  bench_.window.cmdNext.SetEnabled(false);
  bench_.window.cmdEnd.SetEnabled(false);
  bench_.window.tmrLimit.SetEnabled(false);
}

void TimingCapture::NextCaption(bool byNextKey) {
  EndCaption();
  StartCaption(false, byNextKey);
}

void TimingCapture::MoveTo(Row row) { bench_.list.MoveSelection(row); }

void TimingCapture::SelectMode(CaptionMode mode) {
  if (capturing_) EndCaption();
  mode_ = mode;
  bench_.window.optPress.SetValue(mode == CaptionMode::PressAndHold);
  bench_.window.optManual.SetValue(mode == CaptionMode::Manual);
  bench_.window.optPreview.SetValue(mode == CaptionMode::Preview);
  ShowModeTexts();
  if (mode == CaptionMode::Preview) {
    preview_.SetPreviewMode(true);
    return;
  }
  bench_.window.cmdApply.SetEnabled(Playing());
  preview_.ClearPreviewCaption();
  preview_.SetPreviewMode(false);
}

void TimingCapture::ShowModeTexts() {
  bench_.window.cmdApply.SetText(bench_.strings[mode_ == CaptionMode::Manual ? Message::Start : Message::Apply]);
  bench_.window.lblMode.SetText(bench_.strings[ItemAt(kModeHints, mode_)]);
  bench_.window.optPress.SetText(LimitActive(bench_.options) ? bench_.strings[Message::PressAndHold] + u" [auto]"
                                                             : bench_.strings[Message::PressAndHold]);
}

void TimingCapture::BeginHold(Hold hold) {
  if (capturing_) hold_ = hold;
}

void TimingCapture::ReleaseHold() {
  hold_.reset();
  // With a limit to the duration the timer ends the caption, however long the key is held.
  if (LimitActive(bench_.options) || !capturing_) return;
  if (player_.PlayState() == kPlayerPaused) SamplePosition();
  EndCaption();
}

void TimingCapture::OnPointerUp(MouseButton button) {
  if (button == MouseButton::Left && hold_ && hold_->by == Hold::By::Pointer) ReleaseHold();
}

void TimingCapture::OnFocusLost() {
  if (!hold_ || LimitActive(bench_.options)) return;
  EndAt(ShownPosition());
}

void TimingCapture::OnFilmGone() {
  if (!capturing_) return;
  if (mode_ == CaptionMode::PressAndHold && LimitActive(bench_.options)) {
    // The limit has given the caption its end already.
    LeaveCapture();
  } else if (hold_) {
    EndAt(ShownPosition());
  }
}

void TimingCapture::Reset() {
  if (capturing_) LeaveCapture();
  hold_.reset();
  priorCaptionEnd_.reset();
  bench_.window.tmrLimit.SetEnabled(false);
}

bool TimingCapture::ShortcutsOn() const {
  if (bench_.options.hotkeysOn == 0 || textFocus_ || !player_.Enabled()) return false;
  return bench_.document.HasDocument() || (bench_.document.HasVideo() && bench_.options.manner.SeeksAtRest());
}

bool TimingCapture::CanSeek() const {
  const int state = player_.PlayState();
  const bool atRest = state == kPlayerPaused || state == kPlayerStopped;
  return state == kPlayerPlaying || (atRest && bench_.options.manner.SeeksAtRest());
}

void TimingCapture::OnKeyDown(KeyEvent& key) {
  if (key.handled || key.command || !ShortcutsOn()) return;
  // One letter may be set for two actions: the first in this order has it.
  const bool document = bench_.document.HasDocument();
  key.handled = (document && RunCaptureKey(key)) || RunFilmKey(key.code) || (document && RunRowKey(key.code)) ||
                RunSeekKey(key.code);
}

void TimingCapture::OnKeyUp(KeyEvent& key) {
  if (key.autoRepeat || !hold_ || hold_->by == Hold::By::Pointer || hold_->physical != key.physical) return;
  key.handled = true;
  ReleaseHold();
}

bool TimingCapture::RunCaptureKey(const KeyEvent& key) {
  // A key that repeats itself while held takes no times; it may go on moving and seeking.
  const bool takesTimes = !key.autoRepeat;
  if (key.code == bench_.options.startKey) {
    if (takesTimes && mode_ != CaptionMode::Preview && !capturing_) {
      StartCaption(true, false);
      if (mode_ == CaptionMode::PressAndHold) BeginHold({Hold::By::ShortcutKey, key.physical});
    }
  } else if (key.code == bench_.options.nextKey) {
    if (takesTimes && mode_ == CaptionMode::Manual && bench_.window.cmdNext.Enabled()) NextCaption(true);
  } else if (key.code == bench_.options.endKey) {
    if (takesTimes && mode_ == CaptionMode::Manual && bench_.window.cmdEnd.Enabled()) EndCaption();
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunFilmKey(int code) {
  if (code == bench_.options.playKey) {
    player_.Play();
  } else if (code == bench_.options.pauseKey) {
    if (Playing()) player_.Pause();
  } else if (code == bench_.options.stopKey) {
    player_.Stop();
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunRowKey(int code) {
  const Row selected = bench_.list.Selected();
  const auto seekIfTimed = [&](Row row) {
    MoveTo(row);
    if (bench_.list.IsCaptionTimed(row)) player_.SetCurrentPosition(bench_.list.GetCaptionStart(row).Seconds());
  };
  if (code == bench_.options.previousKey) {
    if (selected >= 2) seekIfTimed(selected - 1);
  } else if (code == bench_.options.jumpKey) {
    if (selected != bench_.list.Rows() - 1) seekIfTimed(selected + 1);
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunSeekKey(int code) {
  if (code == bench_.options.rewindKey) {
    if (CanSeek()) player_.SetCurrentPosition(player_.CurrentPosition() - bench_.options.rewindSeconds);
  } else if (code == bench_.options.forwardKey) {
    if (CanSeek()) player_.SetCurrentPosition(player_.CurrentPosition() + bench_.options.forwardSeconds);
  } else {
    return false;
  }
  return true;
}

void TimingCapture::SeekToCaption(Row row, SeekTo place) {
  if (!CanSeek() || !bench_.list.IsCaptionTimed(row)) return;
  player_.SetCurrentPosition(bench_.list.GetCaptionStart(row).Seconds() +
                             (place == SeekTo::JustBehindStart ? kNudgeSeconds : 0));
}

}  // namespace cuewright

#include "core/timing_capture.h"

#include <array>

#include "core/best_duration.h"
#include "core/caption_time.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Reaches behind the frame that begins at the caption's start, so that the frame shown is the caption's own.
constexpr double kNudgeSeconds = 0.001;

/// What the captioning modes are for, in their order.
constexpr std::array kModeHints = {Message::PressAndHoldHint, Message::ManualModeHint, Message::PreviewModeHint};

}  // namespace

TimingCapture::TimingCapture(MainWindow& window, CaptionList& list, CaptionGrid& grid, DocumentState& document,
                             const AppOptions& options, const LangStrings& strings, Player& player, Preview& preview)
    : window_(window),
      list_(list),
      grid_(grid),
      document_(document),
      options_(options),
      strings_(strings),
      player_(player),
      preview_(preview) {
  WireButtons();
}

void TimingCapture::WireButtons() {
  window_.tmrTime.Tick.Connect([this] {
    if (Playing()) SamplePosition();
  });
  window_.tmrLimit.Tick.Connect([this] { LimitTick(); });

  Button& apply = window_.cmdApply;
  apply.KeyDown.Connect([this](KeyEvent& key) {
    if (!window_.optPress.Value() || (key.code != kKeySpace && key.code != 0)) return;
    key.handled = true;
    if (capturing_ || key.autoRepeat) return;
    StartCaption(false, false);
    BeginHold({Hold::By::ButtonKey, key.physical});
  });
  apply.KeyUp.Connect([this](KeyEvent& key) { OnKeyUp(key); });
  apply.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button != MouseButton::Left || !window_.optPress.Value()) return;
    StartCaption(false, false);
    BeginHold({Hold::By::Pointer});
  });
  apply.MouseUp.Connect([this](const MouseEvent& mouse) { OnPointerUp(mouse.button); });
  apply.Clicked.Connect([this] {
    if (window_.optManual.Value() && !capturing_) StartCaption(false, false);
  });
  window_.cmdEnd.Clicked.Connect([this] { EndCaption(); });
  window_.cmdNext.Clicked.Connect([this] { NextCaption(false); });

  window_.optPress.Clicked.Connect([this] { SelectMode(CaptionMode::PressAndHold); });
  window_.optManual.Clicked.Connect([this] { SelectMode(CaptionMode::Manual); });
  window_.optPreview.Clicked.Connect([this] { SelectMode(CaptionMode::Preview); });
}

void TimingCapture::SamplePosition() {
  CarryOn step;
  step([&] { preview_.SetPlayerPosMs(RoundToInt32(player_.CurrentPosition() * 1000)); });
  window_.lblTime.SetText(Decimal(PlayerPosMs()));
  const TextView shown = window_.lblTime.GetText();
  const TextView digits = shown.size() > 3 ? shown.substr(shown.size() - 3) : shown;
  window_.lblStringPos.SetText(player_.CurrentPositionString() + u"." + Text(digits));
}

void TimingCapture::ClearPosition() {
  window_.lblTime.SetText(u"0");
  window_.lblStringPos.SetText(u"00:00.000");
  preview_.SetPlayerPosMs(0);
}

std::optional<std::int32_t> TimingCapture::PositionOfInput() const {
  if (!options_.manner.CountsAtTheInstant() || !window_.inputInstant) return std::nullopt;
  if (!Playing() && player_.PlayState() != kPlayerPaused) return std::nullopt;
  std::optional<std::int32_t> position;
  CarryOn step;
  step([&] { position = RoundToInt32(player_.PositionAt(*window_.inputInstant) * 1000); });
  return position;
}

std::int32_t TimingCapture::ShownPosition() const {
  return static_cast<std::int32_t>(LeadingNumber(window_.lblTime.GetText()));
}

void TimingCapture::StartCaption(bool byStartKey, bool byNextKey) {
  if (document_.FileInWork) return;
  const Row selected = list_.Selected();
  if (mode_ == CaptionMode::Manual) {
    window_.cmdApply.SetEnabled(false);
    window_.cmdNext.SetEnabled(selected != list_.Rows() - 1);
    window_.cmdEnd.SetEnabled(true);
  }
  capturing_ = true;
  captureRow_ = selected;
  hold_.reset();
  // Press and release are one step.
  const EditScope scope(list_, EditKind::Capture, ++captureNumber_);

  const bool limit = LimitActive(options_);
  const std::int32_t position = PositionOfInput().value_or(PlayerPosMs());
  const bool joins = options_.AutoJoin != 0 && priorCaptionEnd_ && position > *priorCaptionEnd_ &&
                     std::int64_t{position} - *priorCaptionEnd_ < options_.Near;
  captureStartMs_ = joins ? *priorCaptionEnd_ : position;
  // The time is stored before anything is drawn: nothing stands between the press and the list.
  list_.SetCaptionStart(captureRow_, captureStartMs_, false);

  preview_.ShowPreviewCaption(captureRow_);
  if (!limit) {
    window_.cmdApply.SetUnderlined(byStartKey);
    window_.cmdNext.SetUnderlined(byNextKey);
  }
  CarryOn step;
  step([&] { window_.txtTime[0].SetText(MsToTimeText(captureStartMs_)); });
  if (!limit) return ShowDuration();
  window_.cmdApply.SetEnabled(false);
  // A text too long for a best duration keeps the end that it has.
  step([&] { SetBestDuration(list_, selected); });
  ShowDuration();
  priorCaptionEnd_ = list_.GetCaptionEnd(selected);
  window_.tmrLimit.SetEnabled(true);
}

void TimingCapture::ShowDuration() {
  if (!options_.manner.ShowsTrueDuration()) return;
  CarryOn step;
  step([&] {
    const std::int32_t duration = list_.GetCaptionEnd(captureRow_) - list_.GetCaptionStart(captureRow_);
    window_.txtTime[1].SetText(MsToTimeText(duration));
  });
}

void TimingCapture::LeaveCapture() {
  window_.tmrLimit.SetEnabled(false);
  if (Playing()) window_.cmdApply.SetEnabled(true);
  window_.cmdNext.SetEnabled(false);
  window_.cmdEnd.SetEnabled(false);
  capturing_ = false;
  hold_.reset();
  captureRow_ = list_.Selected();
  preview_.ClearPreviewCaption();
  window_.cmdApply.SetUnderlined(false);
  window_.cmdNext.SetUnderlined(false);
}

void TimingCapture::AbandonCapture() {
  if (capturing_) LeaveCapture();
}

void TimingCapture::EndCaption() { EndAt(PositionOfInput().value_or(ShownPosition())); }

void TimingCapture::EndAt(std::int32_t end) {
  const EditScope scope(list_, EditKind::Capture, captureNumber_);
  LeaveCapture();
  priorCaptionEnd_ = end;
  list_.SetCaptionEnd(captureRow_, end);
  if (captureRow_ != list_.Rows() - 1) {
    MoveTo(captureRow_ + 1);
  } else {
    CarryOn step;
    step([&] { window_.txtTime[1].SetText(MsToTimeText(end)); });
    ShowDuration();
  }
  grid_.ScrollRow(true);
}

void TimingCapture::LimitTick() {
  if (!priorCaptionEnd_ || PlayerPosMs() <= *priorCaptionEnd_) return;
  capturing_ = false;
  hold_.reset();
  preview_.ClearPreviewCaption();
  if (list_.InRange(captureRow_ + 1)) MoveTo(captureRow_ + 1);
  if (!window_.optPreview.Value()) window_.cmdApply.SetEnabled(true);
  window_.cmdNext.SetEnabled(false);
  window_.cmdEnd.SetEnabled(false);
  window_.tmrLimit.SetEnabled(false);
}

void TimingCapture::NextCaption(bool byNextKey) {
  EndCaption();
  StartCaption(false, byNextKey);
}

void TimingCapture::MoveTo(Row row) { list_.MoveSelection(row); }

void TimingCapture::SelectMode(CaptionMode mode) {
  if (capturing_) EndCaption();
  mode_ = mode;
  window_.optPress.SetValue(mode == CaptionMode::PressAndHold);
  window_.optManual.SetValue(mode == CaptionMode::Manual);
  window_.optPreview.SetValue(mode == CaptionMode::Preview);
  ShowModeTexts();
  if (mode == CaptionMode::Preview) {
    preview_.SetPreviewMode(true);
    return;
  }
  window_.cmdApply.SetEnabled(Playing());
  preview_.ClearPreviewCaption();
  preview_.SetPreviewMode(false);
}

void TimingCapture::ShowModeTexts() {
  window_.cmdApply.SetText(strings_[mode_ == CaptionMode::Manual ? Message::Start : Message::Apply]);
  window_.lblMode.SetText(strings_[kModeHints[static_cast<std::size_t>(mode_)]]);
  window_.optPress.SetText(LimitActive(options_) ? strings_[Message::PressAndHold] + u" [auto]"
                                                 : strings_[Message::PressAndHold]);
}

void TimingCapture::BeginHold(Hold hold) {
  if (capturing_) hold_ = hold;
}

void TimingCapture::ReleaseHold() {
  hold_.reset();
  // Under the limit the timer ends the caption, however long the key is held.
  if (LimitActive(options_) || !capturing_) return;
  if (player_.PlayState() == kPlayerPaused) SamplePosition();
  EndCaption();
}

void TimingCapture::OnPointerUp(MouseButton button) {
  if (button == MouseButton::Left && hold_ && hold_->by == Hold::By::Pointer) ReleaseHold();
}

void TimingCapture::OnFocusLost() {
  if (!hold_ || LimitActive(options_)) return;
  EndAt(ShownPosition());
}

void TimingCapture::OnFilmGone() {
  if (!capturing_) return;
  if (mode_ == CaptionMode::PressAndHold && LimitActive(options_)) {
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
  window_.tmrLimit.SetEnabled(false);
}

bool TimingCapture::ShortcutsOn() const {
  if (options_.HotKeys == 0 || textFocus_ || !player_.Enabled()) return false;
  return document_.HasDocument() || (document_.HasVideo() && options_.manner.SeeksAtRest());
}

bool TimingCapture::CanSeek() const {
  const int state = player_.PlayState();
  const bool atRest = state == kPlayerPaused || state == kPlayerStopped;
  return state == kPlayerPlaying || (atRest && options_.manner.SeeksAtRest());
}

void TimingCapture::OnKeyDown(KeyEvent& key) {
  if (key.handled || key.command || !ShortcutsOn()) return;
  // One letter may be set for two actions: the first in this order has it.
  const bool document = document_.HasDocument();
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
  if (key.code == options_.hkStart) {
    if (takesTimes && mode_ != CaptionMode::Preview && !capturing_) {
      StartCaption(true, false);
      if (mode_ == CaptionMode::PressAndHold) BeginHold({Hold::By::ShortcutKey, key.physical});
    }
  } else if (key.code == options_.hkNext) {
    if (takesTimes && mode_ == CaptionMode::Manual && window_.cmdNext.Enabled()) NextCaption(true);
  } else if (key.code == options_.hkEnd) {
    if (takesTimes && mode_ == CaptionMode::Manual && window_.cmdEnd.Enabled()) EndCaption();
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunFilmKey(int code) {
  if (code == options_.hkPlay) {
    player_.Play();
  } else if (code == options_.hkPause) {
    if (Playing()) player_.Pause();
  } else if (code == options_.hkStop) {
    player_.Stop();
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunRowKey(int code) {
  const Row selected = list_.Selected();
  const auto seekIfTimed = [&](Row row) {
    MoveTo(row);
    if (list_.IsCaptionTimed(row)) player_.SetCurrentPosition(list_.GetCaptionStart(row) / 1000.0);
  };
  if (code == options_.hkPrevious) {
    if (selected >= 2) seekIfTimed(selected - 1);
  } else if (code == options_.hkJump) {
    if (selected != list_.Rows() - 1) seekIfTimed(selected + 1);
  } else {
    return false;
  }
  return true;
}

bool TimingCapture::RunSeekKey(int code) {
  if (code == options_.hkRewind) {
    if (CanSeek()) player_.SetCurrentPosition(player_.CurrentPosition() - options_.kRewindSecs);
  } else if (code == options_.hkForward) {
    if (CanSeek()) player_.SetCurrentPosition(player_.CurrentPosition() + options_.kForwardSecs);
  } else {
    return false;
  }
  return true;
}

void TimingCapture::SeekToCaption(Row row, bool nudge) {
  if (!CanSeek() || !list_.IsCaptionTimed(row)) return;
  player_.SetCurrentPosition(list_.GetCaptionStart(row) / 1000.0 + (nudge ? kNudgeSeconds : 0));
}

}  // namespace cuewright

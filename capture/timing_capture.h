#pragma once

#include <cstdint>
#include <optional>

#include "capture/player_sample.h"
#include "capture/preview.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"
#include "core/signal.h"

namespace cuewright {

enum class CaptionMode { PressAndHold = 0, Manual = 1, Preview = 2 };

/// Turns presses and releases into the times of captions. Times are whole ms on the player's clock: where the film was
/// at the instant of the press or release, however late it is handled. Where nobody pressed, and in the classic manner,
/// it is the last sample.
class TimingCapture {
 public:
  TimingCapture(Workbench bench, Player& player, PlayerSample& sample, Preview& preview);

  CaptionMode Mode() const { return mode_; }
  bool Capturing() const { return capturing_; }
  /// End of the caption captured or limited last in this document; empty when there is none.
  std::optional<Ms> PriorCaptionEnd() const { return priorCaptionEnd_; }
  Ms PlayerPosMs() const { return sample_.PlayerPosMs(); }

  /// The text pane has the keyboard: shortcuts are off.
  bool TextFocus() const { return textFocus_; }
  void SetTextFocus(bool focus) { textFocus_ = focus; }

  /// Takes a start for the selected row; the flags tell which key hint to show.
  void StartCaption(bool byStartKey, bool byNextKey);
  /// Stores the end and selects the next row.
  void EndCaption();
  /// Ends a running capture without an end.
  void AbandonCapture();

  /// A caption has got both its times by hand. Handlers must not do lengthy work at once, since the next press may
  /// come.
  Signal<TimingCapture, Row> Held;

  /// Changes the mode, ending a running capture first.
  void SelectMode(CaptionMode mode);
  /// Shows mode and limit in the captions of the buttons and the mode's text.
  void ShowModeTexts();

  /// Reads the player's position into the sample and the labels.
  void SamplePosition();
  /// The sample and the labels go to 0.
  void ClearPosition();

  /// The window sees keys before its controls. A key that is a shortcut is handled.
  void OnKeyDown(KeyEvent& key);
  void OnKeyUp(KeyEvent& key);
  /// A pointer button was let go anywhere.
  void OnPointerUp(MouseButton button);
  /// The window lost the focus: a hold ends at the last sample.
  void OnFocusLost();
  /// The film stopped, ended or was replaced: a hold ends at the last sample before that.
  void OnFilmGone();

  /// A capture was undone or redone: the end captured last no longer counts for the next caption.
  void ForgetPriorEnd() { priorCaptionEnd_.reset(); }

  /// A document was opened or closed: no capture runs, and no end was captured last.
  void Reset();

  enum class SeekTo { Start, JustBehindStart };
  /// Seeks to a caption, as a double click (just behind its start) or Enter in the list does; in the classic manner
  /// only while the film plays.
  void SeekToCaption(Row row, SeekTo place);

 private:
  /// The key or button that began the hold in progress: only its own release ends it.
  struct Hold {
    enum class By { ShortcutKey, ButtonKey, Pointer } by;
    std::uint32_t physical = 0;
  };

  /// Where the film was when the key or button being handled went down or up; empty where the last sample counts
  /// instead.
  std::optional<Ms> PositionOfInput() const;
  Ms ShownPosition() const;
  void EndAt(Ms end);
  void Store(Ms end);
  void ShowDuration();
  void LeaveCapture();
  void BeginHold(Hold hold);
  void ReleaseHold();
  void LimitTick();
  void NextCaption(bool byNextKey);
  void MoveTo(Row row);
  bool Playing() const { return player_.PlayState() == kPlayerPlaying; }
  bool ShortcutsOn() const;
  bool CanSeek() const;
  bool RunCaptureKey(const KeyEvent& key);
  bool RunFilmKey(int code);
  bool RunRowKey(int code);
  bool RunSeekKey(int code);
  void WireButtons();

  Workbench bench_;
  Player& player_;
  PlayerSample& sample_;
  Preview& preview_;

  CaptionMode mode_ = CaptionMode::PressAndHold;
  bool capturing_ = false;
  std::uint64_t captureNumber_ = 0;  ///< of the capture that runs, or ran last
  Row captureRow_ = 1;
  Ms captureStartMs_ = 0;
  std::optional<Ms> priorCaptionEnd_;
  bool textFocus_ = false;
  std::optional<Hold> hold_;
};

}  // namespace cuewright

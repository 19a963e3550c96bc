#pragma once

#include "capture/caption_panel.h"
#include "capture/preview.h"
#include "capture/sub_window.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/ports/player.h"

namespace cuewright {

/// What of the main window the open files allow, and what it says of them.
class ControlStates {
 public:
  ControlStates(Workbench bench, CaptionPanel& panel, SubWindow& sub, Preview& preview, TimingCapture& capture,
                Player& player);

  /// Enables and shows what the open files allow.
  void ResetControls();
  /// The two file labels of the information bar.
  void RefreshFileLabels();
  /// No film is open any more: the logo stands in the picture's place.
  void EmptyPlayer();

  Signal<ControlStates> Shown;  ///< the window shows what the open files allow

 private:
  void SetDocumentItems(bool on);

  Workbench bench_;
  CaptionPanel& panel_;
  SubWindow& sub_;
  Preview& preview_;
  TimingCapture& capture_;
  Player& player_;
};

}  // namespace cuewright

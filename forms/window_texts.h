#pragma once

#include "capture/caption_panel.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "forms/caption_commands.h"
#include "forms/control_states.h"

namespace cuewright {

/// The main window's texts and its reading direction, in the language in force.
class WindowTexts {
 public:
  WindowTexts(Workbench bench, CaptionPanel& panel, CaptionCommands& commands, TimingCapture& capture,
              ControlStates& states, Messages& messages);

  /// Captions of all controls in the language in force.
  void ApplyMainWindowLanguage(bool rightToLeft);

 private:
  void ApplyTexts(bool rightToLeft);
  /// What a screen reader says for controls without a caption.
  void SpeakNames();
  void ApplyDirection(bool rightToLeft);

  Workbench bench_;
  CaptionPanel& panel_;
  CaptionCommands& commands_;
  TimingCapture& capture_;
  ControlStates& states_;
  Messages& messages_;
};

}  // namespace cuewright

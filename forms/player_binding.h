#pragma once

#include <functional>
#include <vector>

#include "capture/main_window.h"
#include "capture/preview.h"
#include "capture/sub_window.h"
#include "capture/timing_capture.h"
#include "core/document.h"
#include "core/lang_strings.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/ports/player.h"
#include "forms/recall.h"

namespace cuewright {

/// Opens films and lets the player's events drive the buttons.
class PlayerBinding {
 public:
  PlayerBinding(MainWindow& window, SubWindow& sub, DocumentState& document, const LangStrings& strings, Files& files,
                Messages& messages, Player& player, Preview& preview, TimingCapture& capture, Recall& recall);

  /// Opens a film; a missing file is told and changes nothing.
  void LoadVideoFile(TextView path);
  /// Nothing is open any more: the logo stands in the picture's place.
  void Empty();

  /// Set by the window's owner.
  std::function<void()> resetControls;
  std::function<void()> closeReport;
  std::function<void()> closeWave;

 private:
  void OnState(int state);
  void OnSeek();

  MainWindow& window_;
  SubWindow& sub_;
  DocumentState& document_;
  const LangStrings& strings_;
  Files& files_;
  Messages& messages_;
  Player& player_;
  Preview& preview_;
  TimingCapture& capture_;
  Recall& recall_;
  std::vector<Connection> connections_;  // the player outlives this
};

}  // namespace cuewright

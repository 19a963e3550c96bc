#pragma once

#include <vector>

#include "capture/preview.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "forms/document_session.h"
#include "forms/ports.h"
#include "forms/recall.h"

namespace cuewright {

/// Opens films and lets the player's events drive the buttons.
class PlayerBinding {
 public:
  PlayerBinding(Workbench bench, DocumentSession& session, Preview& preview, TimingCapture& capture, Recall& recall,
                Ports ports);

  /// Asks for a film and opens it.
  void OpenVideo();
  /// Opens a film; a missing file is told and changes nothing.
  void LoadVideoFile(TextView path);

  Signal<PlayerBinding> FilmChanges;  ///< another film is about to open: the wave on show isn't its sound

 private:
  void OnState(int state);
  void OnSeek();

  Workbench bench_;
  DocumentSession& session_;
  Preview& preview_;
  TimingCapture& capture_;
  Recall& recall_;
  Ports ports_;
  std::vector<Connection> connections_;  // the player outlives this
};

}  // namespace cuewright

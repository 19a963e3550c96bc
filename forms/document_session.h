#pragma once

#include "capture/caption_panel.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/edit_history.h"
#include "forms/control_states.h"
#include "forms/open_forms.h"

namespace cuewright {

/// The document that is open, from its beginning to its end: nothing else begins, replaces or ends one. Whoever keeps
/// something of a document hears of it here.
class DocumentSession {
 public:
  DocumentSession(Workbench bench, CaptionPanel& panel, TimingCapture& capture, const EditHistory& history,
                  ControlStates& states, OpenForms& openForms);

  /// Another document takes the place of the open one: it has this path, no capture runs, and nothing that was told of
  /// the old one holds. Its captions are still to come.
  void Replace(const Text& path);
  /// The preview mode of the old document gives way to press and hold.
  void LeavePreview() {
    if (bench_.window.optPreview.Value()) capture_.SelectMode(CaptionMode::PressAndHold);
  }
  /// The list is emptied to one blank caption.
  void EmptyList() { panel_.ResetGrid(CaptionPanel::Showing::BlankCaption); }
  /// The captions of the new document are there; `baseline` tells which of them are in a file.
  void Begin(DocumentBaseline baseline) { Began(baseline); }
  /// The document goes; the film stays.
  void End();
  /// Ends subtitle, film and sound together.
  void CloseDocuments();

  /// There are captions that would be lost with the document.
  bool HasUnsaved() const;
  /// The user leaves the document; `thrownAway` tells that its changes may be lost.
  void Leave(bool thrownAway) { Leaving(thrownAway); }

  /// What was told of the document's file, or of what the rules found, holds no more.
  void ForgetTold() { Cleared(); }
  void ForgetRules() { RulesForgotten(); }

  /// The windows that work on the captions close.
  void CloseTools() { openForms_.CloseTools(); }
  void CloseReport() { openForms_.UnloadForm("frmReport"); }
  /// The main window shows what is open.
  void ResetControls() { states_.ResetControls(); }
  void RefreshFileLabels() { states_.RefreshFileLabels(); }

  Signal<DocumentSession, bool> Leaving;            ///< true when the user said that its changes may go
  Signal<DocumentSession> Cleared;                  ///< what was told of the document holds no more
  Signal<DocumentSession> RulesForgotten;           ///< so does what the rules found
  Signal<DocumentSession, DocumentBaseline> Began;  ///< its captions are there; no rule has run on them
  Signal<DocumentSession> Ended;
  Signal<DocumentSession> FilmEnds;    ///< all files are about to go
  Signal<DocumentSession> FilesEnded;  ///< nothing is open any more

 private:
  Workbench bench_;
  CaptionPanel& panel_;
  TimingCapture& capture_;
  const EditHistory& history_;
  ControlStates& states_;
  OpenForms& openForms_;
};

}  // namespace cuewright

#include "forms/document_session.h"

#include "core/finish_first.h"

namespace cuewright {

DocumentSession::DocumentSession(Workbench bench, CaptionPanel& panel, TimingCapture& capture,
                                 const EditHistory& history, ControlStates& states, OpenForms& openForms)
    : bench_(bench), panel_(panel), capture_(capture), history_(history), states_(states), openForms_(openForms) {}

void DocumentSession::Replace(const Text& path) {
  bench_.document.SubtitlePath = path;
  bench_.document.ImportCancelled = false;
  capture_.Reset();
  Cleared();
  RulesForgotten();
}

void DocumentSession::End() {
  bench_.document.SubtitlePath.clear();
  // Whatever fails here, nobody is left with the document that is gone.
  FinishFirst step;
  step([&] { ResetControls(); });
  step([&] { Cleared(); });
  step([&] { RulesForgotten(); });
  step([&] { Ended(); });
  step.Rethrow();
}

void DocumentSession::CloseDocuments() {
  FilmEnds();
  bench_.window.tmrTime.SetEnabled(false);
  bench_.document.VideoPath.clear();
  bench_.document.WavePath.clear();
  End();
  CloseTools();
  FilesEnded();
}

bool DocumentSession::HasUnsaved() const {
  if (bench_.options.manner.AsksWhenCaptionsDiffer()) return history_.Differs();
  return bench_.list.Rows() >= 3 && bench_.document.DocModified;
}

}  // namespace cuewright

#include "forms/recovery.h"

#include <algorithm>

#include "forms/journal_restore.h"

namespace cuewright {

Recovery::Recovery(Workbench bench, DocumentFormats formats, DocumentSession& session, ControlStates& states,
                   JournalKeeper& journal, Ports ports)
    : bench_(bench), formats_(formats), session_(session), states_(states), journal_(journal), ports_(ports) {}

bool Recovery::Offer() {
  if (ports_.journal == nullptr) return false;
  const auto restored = OfferLeftDocuments(*ports_.journal, ports_.messages, bench_.strings);
  if (!restored) return false;
  RestoreDocument(restored->document);
  journal_.Adopt(restored->journal, restored->bytes);
  return true;
}

void Recovery::RestoreDocument(const JournalDocument& restored) {
  session_.CloseTools();
  session_.Replace(restored.path);
  SeparatorRestored(restored.separator);
  session_.EmptyList();
  formats_.importer.RestoreSource(restored.source);
  bench_.list.Replace(1, bench_.list.Count(), restored.captions);
  FormatState& state = formats_.state;
  state.CurrentFormatIndex = std::max(formats_.catalogue.IndexOf(restored.format), 0);
  state.CurrentFps = restored.fps;
  state.Encoding = {restored.codePage, restored.mark};
  // The captions are newer than those in its file, if it has one.
  session_.Begin(DocumentBaseline::None);
  bench_.document.DocModified = true;
  states_.ResetControls();
  bench_.list.SetRow(restored.selected, true);
}

}  // namespace cuewright

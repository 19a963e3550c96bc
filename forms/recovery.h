#pragma once

#include "capture/workbench.h"
#include "core/signal.h"
#include "forms/control_states.h"
#include "forms/document_files.h"
#include "forms/document_session.h"
#include "forms/journal_keeper.h"
#include "forms/ports.h"

namespace cuewright {

/// Brings back a document that a program which ended had not saved.
class Recovery {
 public:
  Recovery(Workbench bench, DocumentFormats formats, DocumentSession& session, ControlStates& states,
           JournalKeeper& journal, Ports ports);

  /// Offers what was left behind; true when a document of it is open now.
  [[nodiscard]] bool Offer();

  Signal<Recovery, const Text&> SeparatorRestored;  ///< the document has a line separator of its own

 private:
  void RestoreDocument(const JournalDocument& restored);

  Workbench bench_;
  DocumentFormats formats_;
  DocumentSession& session_;
  ControlStates& states_;
  JournalKeeper& journal_;
  Ports ports_;
};

}  // namespace cuewright

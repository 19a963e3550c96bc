#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "capture/workbench.h"
#include "core/folders.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "forms/house_check.h"
#include "forms/proposals_dialog.h"
#include "tools/cleaning.h"

namespace cuewright {

/// The commands that propose changes before they make them: line breaks and cleaning. Others offer theirs here as well.
class ProposalTools {
 public:
  ProposalTools(Workbench bench, const HouseCheck& check, const Folders& folders, const Files& files,
                Messages& messages);

  ProposalsDialog dialog;

  /// Shows proposals and makes those that are taken, as one command; how many.
  int Offer(const Text& title, EditKind kind, std::vector<Proposal> proposals);
  /// The same of what is proposed for rows, all or the selected ones as the user chooses in the window.
  int OfferOf(const Text& title, EditKind kind,
              const std::function<std::vector<Proposal>(const std::vector<Row>&)>& propose);
  /// Makes changes and shows the selected caption anew; how many.
  int Make(EditKind kind, const std::vector<Proposal>& proposals);

  /// The rows that are selected.
  std::vector<Row> SelectedRows() const;

 private:
  void BreakLines();
  void Clean();
  void ProposeCleaning();
  std::vector<Row> WantedRows() const;
  ProposalsContent CleaningContent();
  /// Opens the dialog over what `propose` gives, now and each time that something else is wanted, and makes what is
  /// taken.
  template <class Propose>
  int Run(const ProposalsContent& content, EditKind kind, Propose propose);

  Workbench bench_;
  const HouseCheck& check_;
  const Folders& folders_;
  const Files& files_;
  Messages& messages_;
  std::vector<Text> languages_;  ///< of the cleaning, the empty one first
  CleaningChoice kinds_{};       ///< as they were chosen last
};

}  // namespace cuewright

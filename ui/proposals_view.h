#pragma once

#include "forms/proposals_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The window `frmProposals` on the toolkit.
class ProposalsView final : public DialogView {
 public:
  ProposalsView(ProposalsDialog& form, QWidget* owner);

 private:
  QWidget* MakeWishes();

  ProposalsDialog& form_;
};

}  // namespace cuewright

#pragma once

#include "forms/shots_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmShots` on the toolkit.
class ShotsView final : public DialogView {
 public:
  ShotsView(ShotsDialog& form, QWidget* owner);
};

}  // namespace cuewright

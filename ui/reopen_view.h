#pragma once

#include "forms/reopen_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmReopen` on the toolkit.
class ReopenView final : public DialogView {
 public:
  ReopenView(ReopenDialog& form, QWidget* owner);
};

}  // namespace cuewright

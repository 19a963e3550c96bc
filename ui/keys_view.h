#pragma once

#include "forms/keys_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmKeys` on the toolkit.
class KeysView final : public DialogView {
 public:
  KeysView(KeysDialog& form, QWidget* owner);
};

}  // namespace cuewright

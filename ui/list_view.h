#pragma once

#include "forms/list_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// A list dialog on the toolkit.
class ListDialogView final : public DialogView {
 public:
  ListDialogView(ListDialog& form, QWidget* owner);
};

}  // namespace cuewright

#pragma once

#include "forms/update_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmUpdate` on the toolkit.
class UpdateView final : public DialogView {
 public:
  UpdateView(UpdateDialog& form, QWidget* owner);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  UpdateDialog& form_;
};

}  // namespace cuewright

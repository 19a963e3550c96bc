#pragma once

#include "forms/delay_dialog.h"
#include "ui/dialog_view.h"

class QGridLayout;

namespace cuewright {

/// The dialog `frmDelay` on the toolkit.
class DelayView final : public DialogView {
 public:
  DelayView(DelayDialog& form, QWidget* owner);

 private:
  void AddBar(QGridLayout& grid, int row, Slider& bar, Label& label);
};

}  // namespace cuewright

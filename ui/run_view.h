#pragma once

#include "forms/run_window.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The window `frmRun` on the toolkit.
class RunView final : public DialogView {
 public:
  RunView(RunWindow& form, QWidget* owner);
};

}  // namespace cuewright

#pragma once

#include "forms/check_window.h"
#include "ui/tool_view.h"

namespace cuewright {

/// The window `frmCheck` on the toolkit.
class CheckView final : public ToolView {
 public:
  CheckView(CheckWindow& form, QWidget* owner);

 private:
  QWidget* MakeHead();
  QWidget* MakeFix();
  QWidget* MakeFoot();

  CheckWindow& form_;
};

}  // namespace cuewright

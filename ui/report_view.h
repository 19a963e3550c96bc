#pragma once

#include "forms/report_window.h"
#include "ui/tool_view.h"

namespace cuewright {

/// The window `frmReport` on the toolkit.
class ReportView final : public ToolView {
 public:
  ReportView(ReportWindow& form, QWidget* owner);

 private:
  QWidget* MakeHead();
  QWidget* MakeFoot();

  ReportWindow& form_;
};

}  // namespace cuewright

#pragma once

#include "forms/retime_window.h"
#include "forms/sync_page.h"
#include "ui/tool_view.h"

class QGridLayout;

namespace cuewright {

/// The window `frmRetime` on the toolkit.
class RetimeView final : public ToolView {
 public:
  RetimeView(RetimeWindow& form, QWidget* owner);

 private:
  QWidget* MakeWays();
  /// The controls of the four ways, each in the place of the others.
  QWidget* MakePages();
  void FillShift(QWidget* page);
  void FillRatio(QWidget* page);
  void FillRates(QWidget* page);
  void FillPoints(QWidget* page);
  void FillSync(QWidget* page);
  QWidget* MakeScope();

  RetimeWindow& form_;
};

}  // namespace cuewright

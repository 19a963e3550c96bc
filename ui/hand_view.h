#pragma once

#include "forms/hand_window.h"
#include "ui/tool_view.h"

class QGridLayout;

namespace cuewright {

/// The window `frmHand` on the toolkit.
class HandView final : public ToolView {
 public:
  HandView(HandWindow& form, QWidget* owner);

 private:
  QWidget* MakeTimes();

  HandWindow& form_;
};

}  // namespace cuewright

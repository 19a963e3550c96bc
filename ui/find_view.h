#pragma once

#include "forms/find_windows.h"
#include "ui/tool_view.h"

namespace cuewright {

/// The window `frmFind` or `frmReplace` on the toolkit.
class FindView final : public ToolView {
 public:
  FindView(FindWindow& form, QWidget* owner);
  FindView(ReplaceWindow& form, QWidget* owner);

 private:
  /// `replacing` is the same window, where it replaces.
  FindView(SearchWindow& form, ReplaceWindow* replacing, QWidget* owner);
  QWidget* MakeFields(SearchWindow& form, ReplaceWindow* replacing);
  QWidget* MakeButtons(SearchWindow& form, ReplaceWindow* replacing);
  QWidget* MakeResult(SearchWindow& form);
};

}  // namespace cuewright

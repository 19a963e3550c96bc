#pragma once

#include "forms/find_windows.h"
#include "ui/binder.h"
#include "ui/tool_view.h"

namespace cuewright {

/// The window `frmFind` or `frmReplace` on the toolkit.
class FindView final : public ToolView {
 public:
  FindView(FindWindow& form, QWidget* owner);
  FindView(ReplaceWindow& form, QWidget* owner);

 private:
  FindView(SearchWindow& form, QWidget* owner, bool replaces);
  QWidget* MakeFields(bool replaces);
  QWidget* MakeButtons(bool replaces);
  QWidget* MakeResult();

  Binder binder_;
};

}  // namespace cuewright

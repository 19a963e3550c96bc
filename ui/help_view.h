#pragma once

#include "forms/help_window.h"
#include "ui/tool_view.h"

class QTextBrowser;

namespace cuewright {

/// The window `frmHelp`. It stands over the dialog that holds the program up, if there is one, so that help can be read
/// beside it.
class HelpView final : public ToolView {
 public:
  HelpView(HelpWindow& form, QWidget* owner);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget* MakeBar();
  QWidget* MakeContents();
  QWidget* MakePage();
  void StandOver();
  void ShowPage();
  void MarkFound();
  /// No picture is wider than the page.
  void FitPictures();

  HelpWindow& form_;
  QWidget* owner_;
  QTextBrowser* page_ = nullptr;
};

}  // namespace cuewright

#pragma once

#include "forms/wizard.h"
#include "ui/dialog_view.h"

class QGridLayout;
class QLineEdit;
class QVBoxLayout;

namespace cuewright {

/// What the two wizards' windows have in common: the pages stand in one place, each as large as the largest.
class WizardView : public DialogView {
 public:
  WizardView(Wizard& form, QWidget* owner) : DialogView(form, owner), wizard_(form) {}

 protected:
  /// A page in `stack`; its layout is a column.
  QVBoxLayout* MakePage(Picture& page, QGridLayout& stack);
  /// The headings, behind a drawing.
  QWidget* MakeHead(QWidget* drawing);
  /// A drawing of 32 by 32 pixels, or of `size`.
  QWidget* MakeIcon(Picture& icon, const QString& file, QWidget* parent, int size = 32);
  /// A box for a path and the button that looks for one, in a row.
  QLineEdit* AddPathRow(QVBoxLayout& column, TextBox& box, Button& button);
  /// The three buttons at the foot.
  QBoxLayout* MakeWizardButtons();

 private:
  Wizard& wizard_;
};

}  // namespace cuewright

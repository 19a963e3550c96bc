#pragma once

#include "ui/dialog_view.h"

class QGridLayout;
class QVBoxLayout;

namespace cuewright {

/// What the two wizards' windows have in common: the pages stand in one place, each as large as the largest.
class WizardView : public DialogView {
 public:
  WizardView(Dialog& form, QWidget* owner) : DialogView(form, owner) {}

 protected:
  /// A page "picStep(index)" in `stack`; its layout is a column.
  QVBoxLayout* MakePage(QGridLayout& stack, std::size_t index);
  /// A drawing of 32 by 32 pixels, or of `size`.
  QWidget* MakeIcon(const QString& file, const char* name, QWidget* parent, int size = 32);
  /// A label that is a link.
  QWidget* MakeLink(const char* name, QWidget* parent);
  /// A box for a path and the button that looks for one, in a row.
  void AddPathRow(QVBoxLayout& column, const char* box, const char* button);
  /// The three buttons at the foot.
  QBoxLayout* MakeWizardButtons();
};

}  // namespace cuewright

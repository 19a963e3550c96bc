#pragma once

#include "forms/spell_dialog.h"
#include "ui/dialog_view.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace cuewright {

/// The dialog `frmSpell` on the toolkit.
class SpellView final : public DialogView {
 public:
  SpellView(SpellDialog& form, QWidget* owner);

 private:
  QWidget* MakeWords();
  QWidget* MakeButtonColumn();
  /// Marks the misspelt word in its caption.
  void ShowWord();
  /// Enter replaces where it can, and passes on where there is nothing to replace with.
  void ChooseDefault();

  SpellDialog& form_;
  QPlainTextEdit* caption_;
  QLineEdit* word_;
  QPushButton* replace_;
  QPushButton* ignore_;
};

}  // namespace cuewright

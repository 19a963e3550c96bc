#pragma once

#include <vector>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/command_keys.h"

namespace cuewright {

/// The dialog `frmPalette`: finds any command of the menus by words of its name, in any order, and runs it.
class Palette final : public Dialog {
 public:
  Palette(const CommandKeys& keys, const LangStrings& strings);

  Label lblWords{*this, "lblWords"};
  TextBox txtWords{*this, "txtWords"};
  ListBox lstCommands{*this, "lstCommands"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  void Open(bool rightToLeft);
  /// Moves the selection of the list while the words have the keyboard.
  void MoveSelection(int by);

 private:
  void ShowFound();
  void Run();

  const CommandKeys& keys_;
  const LangStrings& strings_;
  std::vector<MenuItem*> found_;
};

}  // namespace cuewright

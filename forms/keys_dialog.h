#pragma once

#include <string>
#include <vector>

#include "core/app_options.h"
#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/command_keys.h"

namespace cuewright {

/// The dialog `frmKeys`: the keys of all commands, one of several sets, each to be changed. What is changed holds at
/// once.
class KeysDialog final : public Dialog {
 public:
  KeysDialog(CommandKeys& keys, const AppOptions& options, const LangStrings& strings);

  Label lblSet{*this, "lblSet"};
  ComboBox cboSet{*this, "cboSet"};
  ListBox lstCommands{*this, "lstCommands"};
  Label lblKey{*this, "lblKey"};
  /// The key that was pressed last, as "Ctrl+S".
  TextBox txtKey{*this, "txtKey"};
  Label lblConflict{*this, "lblConflict"};
  Button cmdAssign{*this, "cmdAssign"};
  Button cmdRemove{*this, "cmdRemove"};
  Button cmdClose{*this, "cmdClose"};

  void Open(bool rightToLeft);

 private:
  void ShowCommands();
  void ShowConflict();
  /// Why a key can't be a command's; empty when it can.
  Text Objection(const std::string& key) const;
  MenuItem* Selected() const;

  CommandKeys& keys_;
  const AppOptions& options_;
  const LangStrings& strings_;
  std::vector<MenuItem*> commands_;
};

}  // namespace cuewright

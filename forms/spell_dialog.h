#pragma once

#include <functional>

#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "external/spell_session.h"
#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// The dialog `frmSpell`: one misspelt word after another, shown in its caption. It closes by itself behind the last.
class SpellDialog final : public Dialog {
 public:
  SpellDialog(const LangStrings& strings, Desktop& desktop);

  Label lblLine{*this, "lblLine"};
  TextBox txtCaption{*this, "txtCaption"};
  Label lblNotFound{*this, "lblNotFound"};
  Label lblWord{*this, "lblWord"};
  Label lblReplace{*this, "lblReplace"};
  TextBox txtReplace{*this, "txtReplace"};
  Label lblSuggestions{*this, "lblSuggestions"};
  ListBox lstSuggestions{*this, "lstSuggestions"};
  Label lblLanguage{*this, "lblLanguage"};
  ComboBox cboLanguage{*this, "cboLanguage"};
  Button cmdReplace{*this, "cmdReplace"};
  Button cmdReplaceAll{*this, "cmdReplaceAll"};
  Button cmdIgnore{*this, "cmdIgnore"};
  Button cmdIgnoreAll{*this, "cmdIgnoreAll"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdUndo{*this, "cmdUndo"};
  Button cmdCancel{*this, "cmdCancel"};

  /// What the dialog works on. A session that stands at a misspelt word is expected.
  struct Task {
    SpellSession& session;
    SpellDecisions& decisions;
    std::function<std::vector<Text>(TextView word)> suggest;
    std::function<bool(TextView word)> addWord;     ///< to the user's words; false when that failed, and was told
    std::function<void(TextView word)> removeWord;  ///< takes that back
    std::function<bool(int language)> useLanguage;  ///< false when that failed, and was told
    std::vector<Text> languages;                    ///< as they are shown
    int language = 0;
    int firstLine = 1;  ///< the row of the session's first caption
    bool rightToLeft = false;
  };
  void Open(Task task);

 protected:
  void OnClose() override;

 private:
  void ApplyLanguage();
  void NameButtons();
  void Advance();
  void Show();
  /// Shows the next word, or, with the dialog left open, that there is none.
  void ShowNext();
  void ShowSuggestion();
  void StepSuggestion(KeyEvent& key);
  void AllowReplace();
  void ChooseLanguage();
  void Undo();

  const LangStrings& strings_;
  Desktop& desktop_;
  std::optional<Task> task_;
};

}  // namespace cuewright

#pragma once

#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "form/controls.h"
#include "forms/proposal_tools.h"
#include "forms/tool_form.h"
#include "settings/languages.h"
#include "tools/replace_text.h"

namespace cuewright {

/// What the two windows that search the captions have in common.
class SearchWindow : public ToolForm {
 public:
  Frame fraFind{*this, "fraFind"};
  TextBox txtFind{*this, "txtFind"};
  CheckBox chkEntire{*this, "chkEntire"};
  CheckBox chkCase{*this, "chkCase"};
  CheckBox chkRegex{*this, "chkRegex"};
  Button cmdFind{*this, "cmdFind"};
  Button cmdClose{*this, "cmdClose"};
  Picture imgInfo{*this, "imgInfo"};
  Label lblInfo{*this, "lblInfo"};

  void OnActivated() override { RequestFocus(txtFind); }
  void ApplyLanguage(bool rightToLeft) override;

 protected:
  SearchWindow(std::string name, Message title, CaptionList& list, const LangStrings& strings,
               const Languages& languages, OpenForms& openForms);

  void Load() override;
  /// The text looked for has changed: what can be done with it follows.
  virtual void FollowText();
  /// Searches, and replaces when asked to; gives the number of rows found.
  enum class Pass { Find, Replace, ReplaceAll };
  int Search(Pass pass, TextView replacement = {});
  /// Tells where the text was found, or that it wasn't.
  void TellFound(int count);
  void Tell(TextView text);

  /// What the controls ask for, as patterns are looked for.
  ReplaceOrder Order(TextView replacement) const;
  TextReplacer MakeReplacer(TextView replacement) const;
  /// Tells what is wrong with the pattern; false when nothing is.
  bool TellFault(const TextReplacer& replacer);

  const LangStrings& strings_;
  CaptionList& list_;

 private:
  int SearchPattern(Pass pass, TextView replacement);
  int FindPattern(TextReplacer& replacer);
  int ReplacePattern(TextReplacer& replacer, bool all);

  const Message title_;
  const Languages& languages_;
};

/// The window `frmFind`.
class FindWindow final : public SearchWindow {
 public:
  FindWindow(CaptionList& list, const LangStrings& strings, const Languages& languages, OpenForms& openForms)
      : SearchWindow("frmFind", Message::Find, list, strings, languages, openForms) {}
};

/// The window `frmReplace`.
class ReplaceWindow final : public SearchWindow {
 public:
  ReplaceWindow(CaptionList& list, const LangStrings& strings, const Languages& languages, OpenForms& openForms,
                ProposalTools& proposals);

  Frame fraReplace{*this, "fraReplace"};
  TextBox txtReplace{*this, "txtReplace"};
  Button cmdReplace{*this, "cmdReplace"};
  Button cmdReplaceAll{*this, "cmdReplaceAll"};
  CheckBox chkSelected{*this, "chkSelected"};
  Button cmdList{*this, "cmdList"};

  void ApplyLanguage(bool rightToLeft) override;

 private:
  void Load() override;
  void FollowText() override;
  void ReplaceAll();
  void ListHits();
  /// What is replaced in all captions that are meant.
  std::optional<std::vector<Proposal>> Hits();

  ProposalTools& proposals_;
};

}  // namespace cuewright

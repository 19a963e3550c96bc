#pragma once

#include <span>

#include "form/control_array.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/control_texts.h"
#include "forms/wizard_parts.h"

namespace cuewright {

/// What the two wizards have in common: a row of steps that the user goes through and back, the folder of the tool, and
/// the file that the tool is to write.
class Wizard : public Dialog {
 public:
  Label lblTop{*this, "lblTop"};
  Label lblTop2{*this, "lblTop2"};
  Label lblVirtualdub{*this, "lblVirtualdub"};
  TextBox txtVirtualdub{*this, "txtVirtualdub"};
  Button cmdBrowseVD{*this, "cmdBrowseVD"};
  Label lblDownload{*this, "lblDownload"};
  Label lblSave{*this, "lblSave"};
  TextBox txtSave{*this, "txtSave"};
  Button cmdSave{*this, "cmdSave"};
  Button cmdBack{*this, "cmdBack"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdCancel{*this, "cmdCancel"};

  /// The page on show, 0 for the first.
  int Step() const { return step_; }

 protected:
  /// What a wizard is called, the name of its script, and how the file that it writes is asked for.
  struct Kind {
    Message title;
    TextView script;
    Message target;
    TextView ending;
  };

  enum class Target { Refused, Taken, ToReplace };

  Wizard(std::string name, const WizardParts& parts, const Kind& kind);

  /// A fresh start at the first of the pages, with the stored folder of the tool.
  void Begin();
  /// The window is filled.
  void TellOpened();
  void OnClose() override;

  /// False when the step can't be left, which is told.
  virtual bool MayLeave() = 0;
  /// The step that the user has come to, forward.
  virtual void EnterStep() = 0;
  /// Back at a step.
  virtual void ReturnToStep() {}
  /// Next was pressed at the last step.
  virtual void Finish() = 0;
  /// False when the tool in a folder that was chosen can't do the work, which is told.
  virtual bool ToolServes(TextView /*folder*/) { return true; }
  /// The entry of the file dialog for the file to be written.
  virtual Text TargetFilter() const = 0;
  virtual std::span<Picture> Pages() = 0;

  bool AtLastStep() { return step_ + 1 == std::ssize(Pages()); }
  /// The texts that both wizards show, and `rows`.
  void ApplyTexts(std::span<const ControlText> rows);
  /// Takes the name in the box for the target. It is refused, which is told, when it is the film or when the user
  /// doesn't want to replace what is there.
  [[nodiscard]] Target TakeTarget();
  /// What was agreed for the target holds no more.
  void AskAgain() { agreed_.clear(); }

  WizardParts p_;
  WizardTool tool_;
  Text script_;
  Text target_;

 private:
  void Next();
  void Back();
  void ShowStep();
  void BrowseTool();
  void BrowseTarget();

  Kind kind_;
  int step_ = 0;
  Text agreed_;           // the target that the user has agreed to replace
  bool leaving_ = false;  // a page is being left, which may take a while
};

}  // namespace cuewright

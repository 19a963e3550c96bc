#pragma once

#include <array>
#include <cstdint>

#include "form/controls.h"
#include "form/dialog.h"
#include "forms/wizard_parts.h"

namespace cuewright {

/// The lights of the wizard's tasks.
enum class TaskLight { Grey, Red, Yellow, Green };

/// The wizard `frmAudioWizard`, which takes the sound out of the film: it writes the script "aext.vcf", runs the tool
/// on it, waits for its end and checks the file.
class AudioWizard final : public Dialog {
 public:
  explicit AudioWizard(WizardParts parts);

  Label lblTop{*this, "lblTop"};
  Label lblTop2{*this, "lblTop2"};
  std::array<Picture, 5> picStep{Picture{*this, "picStep(0)"}, Picture{*this, "picStep(1)"},
                                 Picture{*this, "picStep(2)"}, Picture{*this, "picStep(3)"},
                                 Picture{*this, "picStep(4)"}};

  Label lblStep1{*this, "lblStep1"};
  OptionButton optWAV{*this, "optWAV"};
  OptionButton optOriginal{*this, "optOriginal"};
  CheckBox chkAudioBar{*this, "chkAudioBar"};
  Label lblStep1b{*this, "lblStep1b"};

  Label lblStep2{*this, "lblStep2"};
  Label lblSampleRate{*this, "lblSampleRate"};
  ComboBox cmbSampleRate{*this, "cmbSampleRate"};
  Label lblStep2b{*this, "lblStep2b"};

  Label lblStep3{*this, "lblStep3"};
  Label lblVirtualdub{*this, "lblVirtualdub"};
  TextBox txtVirtualdub{*this, "txtVirtualdub"};
  Button cmdBrowseVD{*this, "cmdBrowseVD"};
  Label lblStep3b{*this, "lblStep3b"};
  Picture imgGetVirtualDub{*this, "imgGetVirtualDub"};
  Label lblDownload{*this, "lblDownload"};

  Label lblStep4{*this, "lblStep4"};
  Label lblSave{*this, "lblSave"};
  TextBox txtSave{*this, "txtSave"};
  Button cmdSave{*this, "cmdSave"};
  Label lblStep4b{*this, "lblStep4b"};

  Label lblStep5{*this, "lblStep5"};
  std::array<Picture, 3> picTask{Picture{*this, "picTask(0)"}, Picture{*this, "picTask(1)"},
                                 Picture{*this, "picTask(2)"}};
  std::array<Label, 3> lblTask{Label{*this, "lblTask(0)"}, Label{*this, "lblTask(1)"}, Label{*this, "lblTask(2)"}};
  CheckBox chkClose{*this, "chkClose"};
  Label lblStep5b{*this, "lblStep5b"};

  Button cmdBack{*this, "cmdBack"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdCancel{*this, "cmdCancel"};

  /// True when the open film's sound can be taken out; else the reason was told.
  bool CheckFilm();

  /// Fills the controls for the film that is open.
  void Open();

  std::int16_t AudioStep() const { return step_; }
  /// The file for the Audio bar; empty for none.
  const Text& PendingAudioFile() const { return pending_; }

  /// Shows a task's light by its colour, 0x00BBGGRR: 255 red, 65280 green, 65535 yellow, any other grey.
  void SetTaskLight(std::size_t task, std::int32_t color);
  TaskLight LightOf(std::size_t task) const { return lights_[task]; }
  Signal<> LightsChanged;

 protected:
  void OnClose() override;

 private:
  void Wire();
  void ApplyTexts();
  void ChooseFormat(bool wave);
  void BrowseTool();
  void BrowseTarget();
  void Next();
  bool MayLeave();
  bool MayOverwrite();
  void Back();
  void ShowStep();
  void EnterStep();
  void Run();
  void WriteScript();
  void BeginTask(std::size_t task);
  void EndTask(std::size_t task);
  bool RunAndWait();
  void CheckResult();
  void FinishExtraction(bool failed, std::size_t task, TextView text);

  WizardParts p_;
  WizardTool tool_;
  std::int16_t step_ = 0;
  Text script_;           // ExtractScript
  Text target_;           // ExtractTarget
  Text pending_;          // PendingAudioFile
  Text agreed_;           // the target that the user has agreed to replace
  bool leaving_ = false;  // a page is being left, which may take a while
  bool closing_ = false;  // ExtractClosing
  std::array<TaskLight, 3> lights_{};
};

}  // namespace cuewright

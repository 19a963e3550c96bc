#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "form/controls.h"
#include "form/dialog.h"
#include "forms/wizard_parts.h"

namespace cuewright {

/// The wizard `frmEmbed`, which burns the subtitle into the film: it asks for what is needed, writes the script
/// "embedsub.vcf", closes the document and starts the tool on it.
class EmbedWizard final : public Dialog {
 public:
  explicit EmbedWizard(WizardParts parts);

  Label lblTop{*this, "lblTop"};
  Label lblTop2{*this, "lblTop2"};
  Picture imgDrag{*this, "imgDrag"};
  std::array<Picture, 4> picStep{Picture{*this, "picStep(0)"}, Picture{*this, "picStep(1)"},
                                 Picture{*this, "picStep(2)"}, Picture{*this, "picStep(3)"}};

  // What is written.
  Picture imgFormat{*this, "imgFormat"};
  Label lblFormat{*this, "lblFormat"};
  ComboBox cmbFormat{*this, "cmbFormat"};
  Button cmdConfigure{*this, "cmdConfigure"};
  Label imgConfigure{*this, "imgConfigure"};
  Picture imgRes{*this, "imgRes"};
  Label lblRes{*this, "lblRes"};
  ComboBox cmbResolution{*this, "cmbResolution"};
  Label lblSize{*this, "lblSize"};
  TextBox txtWidth{*this, "txtWidth"};
  Label lblX{*this, "lblX"};
  TextBox txtHeight{*this, "txtHeight"};
  Picture imgMode{*this, "imgMode"};
  Label lblMode{*this, "lblMode"};
  ComboBox cmbMode{*this, "cmbMode"};
  Picture imgPreview{*this, "imgPreview"};
  CheckBox chkPreview{*this, "chkPreview"};
  Slider sldPreview{*this, "sldPreview"};
  Label lblPreview{*this, "lblPreview"};

  // The tool.
  Picture imgVD{*this, "imgVD"};
  Label lblVirtualdub{*this, "lblVirtualdub"};
  TextBox txtVirtualdub{*this, "txtVirtualdub"};
  Button cmdBrowseVD{*this, "cmdBrowseVD"};
  Label lblStep2{*this, "lblStep2"};
  Label lblDownload{*this, "lblDownload"};

  // The file.
  Picture imgSave{*this, "imgSave"};
  Label lblSave{*this, "lblSave"};
  TextBox txtSave{*this, "txtSave"};
  Button cmdSave{*this, "cmdSave"};

  // What is about to happen.
  Label lblStep4{*this, "lblStep4"};
  TextBox txtTFileName{*this, "txtTFileName"};
  TextBox txtVFileName{*this, "txtVFileName"};
  Picture imgNotice{*this, "imgNotice"};
  Label lblNotice{*this, "lblNotice"};
  Label lblNote1{*this, "lblNote1"};
  Label lblNote2{*this, "lblNote2"};
  Label lblConvert{*this, "lblConvert"};

  Label lblDetailsTitle{*this, "lblDetailsTitle"};
  Frame fraDetails{*this, "fraDetails"};
  Label lblDetails{*this, "lblDetails"};
  Button cmdBack{*this, "cmdBack"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdCancel{*this, "cmdCancel"};

  /// True when subtitle and film can be put together; else the reason was told.
  bool CheckEmbedDocument();

  /// Fills the controls for the files that are open.
  void Open();

  /// All that the hint panel may come to show.
  std::vector<Text> Hints() const;
  /// The text of the hint panel; the empty one hides it.
  void ShowEmbedDetails(TextView text);

  std::int16_t EmbedStep() const { return step_; }

  /// Closes the document and the film, so that nothing holds their files. Set by the owner of the windows.
  std::function<void()> closeDocuments;
  Signal<EmbedWizard> DragRequested;  ///< the pointer is about to move the window

 protected:
  void OnClose() override;

 private:
  void Wire();
  void WireHints();
  void ApplyTexts();
  void FillControls();
  void ShowButtons();
  void ChooseResolution();
  void TakeSize(TextBox& box);
  void TogglePreview();
  void ShowPreview();
  bool XvidPresent();
  bool OfferXvid();
  void Configure();
  void AskQuantizer();
  void BrowseTool();
  void BrowseTarget();
  void Next();
  bool MayLeave();
  bool MayOverwrite();
  void Back();
  void ShowStep();
  void ShowStepHint();
  Text StepHint(std::int16_t step) const;
  void WriteScript();
  void FillScript();
  void SetWorking(bool working);
  void Run();
  void StartTool();
  std::int64_t MediaSeconds() const;

  WizardParts p_;
  WizardTool tool_;
  std::int16_t step_ = 0;
  Text script_;           // EmbedScript
  Text target_;           // EmbedTarget
  Text agreed_;           // the target that the user has agreed to replace
  bool leaving_ = false;  // a page is being left, which may take a while
};

}  // namespace cuewright

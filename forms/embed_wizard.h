#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "forms/details_area.h"
#include "forms/wizard.h"

namespace cuewright {

/// The wizard `frmEmbed`, which burns the subtitle into the film: it asks for what is needed, writes the script
/// "embedsub.vcf", closes the document and starts the tool on it.
class EmbedWizard final : public Wizard {
 public:
  explicit EmbedWizard(WizardParts parts);

  Picture imgDrag{*this, "imgDrag"};
  ControlArray<Picture, 4> picStep{*this, "picStep"};

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
  Label lblStep2{*this, "lblStep2"};

  // The file.
  Picture imgSave{*this, "imgSave"};

  // What is about to happen.
  Label lblStep4{*this, "lblStep4"};
  TextBox txtTFileName{*this, "txtTFileName"};
  TextBox txtVFileName{*this, "txtVFileName"};
  Picture imgNotice{*this, "imgNotice"};
  Label lblNotice{*this, "lblNotice"};
  Label lblNote1{*this, "lblNote1"};
  Label lblNote2{*this, "lblNote2"};
  Label lblConvert{*this, "lblConvert"};

  DetailsArea details{*this, p_.strings};

  /// True when subtitle and film can be put together; else the reason was told.
  [[nodiscard]] bool CheckEmbedDocument();

  /// Fills the controls for the files that are open.
  void Open();

  /// All that the hint panel may come to show.
  std::vector<Text> Hints() const { return details.Texts(); }
  /// The text of the hint panel; the empty one hides it.
  void ShowEmbedDetails(TextView text) { details.Show(text); }

  Signal<EmbedWizard> FilesNeeded;    ///< document and film are to close, so that nothing holds their files
  Signal<EmbedWizard> DragRequested;  ///< the pointer is about to move the window

 protected:
  bool MayLeave() override;
  void EnterStep() override;
  void ReturnToStep() override;
  void Finish() override;
  bool ToolServes(TextView folder) override;
  Text TargetFilter() const override { return p_.strings[Message::AviFiles] + u"|*.avi"; }
  std::span<Picture> Pages() override { return picStep; }

 private:
  void Wire();
  void WireHints();
  void ApplyTexts();
  void FillControls();
  void ChooseResolution();
  void TakeSize(TextBox& box);
  void TogglePreview();
  void ShowPreview();
  [[nodiscard]] bool XvidPresent();
  [[nodiscard]] bool OfferXvid();
  void Configure();
  void AskQuantizer();
  void ShowStepHint();
  void ShowNotice(bool shown);
  void WriteScript();
  void FillScript();
  void SetWorking(bool working);
  void StartTool();
  std::int64_t MediaSeconds() const;
};

}  // namespace cuewright

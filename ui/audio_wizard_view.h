#pragma once

#include <array>

#include "forms/audio_wizard.h"
#include "ui/wizard_view.h"

namespace cuewright {

class SvgPicture;

/// The wizard `frmAudioWizard` on the toolkit.
class AudioWizardView final : public WizardView {
 public:
  AudioWizardView(AudioWizard& form, QWidget* owner);

 private:
  void MakeFormatPage(QGridLayout& stack);
  void MakeRatePage(QGridLayout& stack);
  void MakeToolPage(QGridLayout& stack);
  void MakeFilePage(QGridLayout& stack);
  void MakeTasksPage(QGridLayout& stack);
  void ShowLights();

  AudioWizard& form_;
  std::array<SvgPicture*, 3> lights_{};
};

}  // namespace cuewright

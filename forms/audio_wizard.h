#pragma once

#include <array>
#include <cstdint>

#include "forms/wizard.h"

namespace cuewright {

/// The lights of the wizard's tasks.
enum class TaskLight { Grey, Red, Yellow, Green };

/// The wizard `frmAudioWizard`, which takes the sound out of the film: it writes the script "aext.vcf", runs the tool
/// on it, waits for its end and checks the file.
class AudioWizard final : public Wizard {
 public:
  explicit AudioWizard(WizardParts parts);

  ControlArray<Picture, 5> picStep{*this, "picStep"};

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
  Label lblStep3b{*this, "lblStep3b"};
  Picture imgGetVirtualDub{*this, "imgGetVirtualDub"};

  Label lblStep4{*this, "lblStep4"};
  Label lblStep4b{*this, "lblStep4b"};

  Label lblStep5{*this, "lblStep5"};
  ControlArray<Picture, 3> picTask{*this, "picTask"};
  ControlArray<Label, 3> lblTask{*this, "lblTask"};
  CheckBox chkClose{*this, "chkClose"};
  Label lblStep5b{*this, "lblStep5b"};

  /// True when the open film's sound can be taken out; else the reason was told.
  [[nodiscard]] bool CheckFilm();

  /// Fills the controls for the film that is open.
  void Open();

  /// The file for the Audio bar; empty for none.
  const Text& PendingAudioFile() const { return pending_; }

  /// Shows a task's light by its colour, 0x00BBGGRR: 255 red, 65280 green, 65535 yellow, any other grey.
  void SetTaskLight(std::size_t task, std::int32_t color);
  TaskLight LightOf(std::size_t task) const { return lights_[task]; }
  Signal<AudioWizard> LightsChanged;

 protected:
  void OnClose() override;
  bool MayLeave() override;
  void EnterStep() override;
  void Finish() override { Close(); }
  Text TargetFilter() const override { return u"WAVE audio (wav)|*.wav"; }
  std::span<Picture> Pages() override { return picStep; }

 private:
  void ApplyTexts();
  enum class SoundFormat { Wave, Original };

  void ChooseFormat(SoundFormat format);
  void Run();
  void WriteScript();
  void BeginTask(std::size_t task);
  void EndTask(std::size_t task);
  bool RunAndWait();
  void CheckResult();
  void FinishExtraction(bool failed, std::size_t task, TextView text);

  Text pending_;
  bool closing_ = false;  // the window was closed while the run waits
  std::array<TaskLight, 3> lights_{};
};

}  // namespace cuewright

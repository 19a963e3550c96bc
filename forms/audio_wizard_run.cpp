#include "core/file_helpers.h"
#include "core/runtime_error.h"
#include "external/embed_script.h"
#include "forms/audio_wizard.h"

namespace cuewright {
namespace {

constexpr std::int32_t kRed = 255;
constexpr std::int32_t kGreen = 65280;
constexpr std::int32_t kYellow = 65535;
constexpr std::int32_t kDarkRed = 192;
constexpr int kScriptWaitMs = 2000;
constexpr int kRunWaitMs = 500;
constexpr int kCheckWaitMs = 3000;

}  // namespace

void AudioWizard::SetTaskLight(std::size_t task, std::int32_t color) {
  lights_[task] = color == kRed      ? TaskLight::Red
                  : color == kGreen  ? TaskLight::Green
                  : color == kYellow ? TaskLight::Yellow
                                     : TaskLight::Grey;
  LightsChanged();
}

void AudioWizard::BeginTask(std::size_t task) {
  SetTaskLight(task, kYellow);
  lblTask[task].SetBold(true);
}

void AudioWizard::EndTask(std::size_t task) {
  SetTaskLight(task, kGreen);
  lblTask[task].SetBold(false);
}

void AudioWizard::Run() {
  chkClose.SetEnabled(true);
  BeginTask(0);
  // Where it can't be written there is nothing that the tool could run, which its result tells.
  CarryOn step;
  step([&] { WriteScript(); });
  p_.ports.events.WaitMs(kScriptWaitMs);
  if (closing_) return;
  EndTask(0);
  BeginTask(1);
  if (!RunAndWait()) {
    return FinishExtraction(true, 0, p_.strings[Message::StartFailed] + Text(kLineEnd) + tool_.Get().path);
  }
  if (closing_) return;
  EndTask(1);
  BeginTask(2);
  p_.ports.events.WaitMs(kCheckWaitMs);
  if (!closing_) CheckResult();
}

void AudioWizard::WriteScript() {
  Files& files = p_.ports.files;
  const VideoTool& tool = tool_.Get();
  files.Remove(script_);
  ExtractValues values;
  values.source = QuotedSlashed(tool, ShortPathOf(files, p_.document.VideoPath, p_.folders.TempFolder));
  values.target = QuotedSlashed(tool, ShortTarget(files, target_, p_.folders.TempFolder));
  values.wave = optWAV.Value();
  values.sampleRate = cmbSampleRate.GetText();
  files.WritePrivate(script_, ExtractScriptBytes(values));
}

bool AudioWizard::RunAndWait() {
  const std::unique_ptr<ChildProcess> child = tool_.Start(script_, {}, true);
  if (child == nullptr) return false;
  // A tool that failed keeps the wizard waiting until the user closes it, and with it sees what the tool has to tell.
  while (child->Ended() != 0 && !closing_) p_.ports.events.WaitMs(kRunWaitMs);
  return true;
}

void AudioWizard::CheckResult() {
  if (!p_.ports.files.Exists(target_)) return FinishExtraction(true, 2, p_.strings[Message::CouldNotExtract]);
  EndTask(2);
  lblStep5.SetText(p_.strings[Message::ExtractionComplete]);
  lblStep5.SetBold(true);
  lblStep5b.SetText(p_.strings[Message::ProcessCompleted] + Text(kLineEnd) + Text(kLineEnd) + target_);
  pending_ = optWAV.Value() && chkAudioBar.Value() ? target_ : Text();
  FinishExtraction(false, 0, {});
  if (chkClose.Value()) {
    Close();
  } else {
    chkClose.SetEnabled(false);
  }
}

void AudioWizard::FinishExtraction(bool failed, std::size_t task, TextView text) {
  cmdNext.SetText(p_.strings[Message::Finish]);
  cmdNext.SetEnabled(true);
  if (!failed) return;
  SetTaskLight(task, kRed);
  chkClose.SetEnabled(false);
  lblTask[task].SetBold(false);
  lblTask[task].SetColor(kDarkRed);
  lblStep5.SetText(p_.strings[Message::ExtractionFailed]);
  lblStep5b.SetText(text);
}

}  // namespace cuewright

#include "forms/audio_wizard.h"

#include "core/file_helpers.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "external/embed_script.h"

namespace cuewright {
namespace {

constexpr int kRateStep = 1;
constexpr int kToolStep = 2;
constexpr int kTargetStep = 3;
constexpr std::int32_t kRed = 255;
constexpr std::int32_t kGreen = 65280;
constexpr std::int32_t kYellow = 65535;
constexpr std::int32_t kDarkRed = 192;
constexpr int kScriptWaitMs = 2000;
constexpr int kRunWaitMs = 500;
constexpr int kCheckWaitMs = 3000;

}  // namespace

AudioWizard::AudioWizard(WizardParts parts)
    : Wizard("frmAudioWizard", parts, {Message::ExtractionWizard, u"aext.vcf", Message::SaveAudioAs, u".wav"}) {
  cmbSampleRate.SetEditable(true);
  optWAV.Clicked.Connect([this] { ChooseFormat(SoundFormat::Wave); });
  optOriginal.Clicked.Connect([this] { ChooseFormat(SoundFormat::Original); });
  imgGetVirtualDub.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) tool_.OpenDownload(Download::Tool);
  });
}

bool AudioWizard::CheckFilm() {
  const auto refuse = [&](Message message, BoxIcon icon) {
    p_.ports.messages.Show({p_.strings[message], icon, BoxButtons::Ok, p_.strings[Message::ExtractionWizard]});
    return false;
  };
  const Text video = ToLower(p_.document.VideoPath);
  if (video.empty()) return refuse(Message::ExtractionNeedsVideo, BoxIcon::Warning);
  if (video.ends_with(u"mpg") || video.ends_with(u"avi") || video.ends_with(u"peg")) return true;
  return refuse(Message::EmbedNeedsAviOrMpeg, BoxIcon::Error);
}

void AudioWizard::Open() {
  pending_.clear();
  closing_ = false;
  ApplyTexts();
  Begin();
  txtSave.SetText(StripExtension(p_.document.VideoPath) + u".wav");
  cmbSampleRate.SetIndex(0);
  chkAudioBar.SetValue(true);
  chkClose.SetValue(false);
  chkClose.SetEnabled(true);
  ChooseFormat(SoundFormat::Wave);
  for (std::size_t task = 0; task < lights_.size(); ++task) {
    SetTaskLight(task, 0);
    lblTask[task].SetBold(false);
    lblTask[task].SetColor({});
  }
  lblStep5.SetBold(false);
  TellOpened();
}

void AudioWizard::ApplyTexts() {
  const LangStrings& s = p_.strings;
  const ControlText rows[] = {
      {lblTop2, Message::ExtractionIntro},        {lblStep1, Message::SelectAudioFormat},
      {optWAV, Message::WavUncompressed},         {optOriginal, Message::KeepSourceFormat},
      {chkAudioBar, Message::LoadOnAudioBar},     {lblStep1b, Message::LoadNeedsWav},
      {lblStep2, Message::ChooseAudioSettings},   {lblSampleRate, Message::SampleRate},
      {lblStep2b, Message::SampleRateNote},       {lblStep3, Message::ExtractionNeedsVirtualDub},
      {lblStep3b, Message::DownloadPrograms},     {lblStep4, Message::SelectAudioLocation},
      {lblStep4b, Message::NextStartsExtraction}, {lblStep5, Message::TasksAreExecuted},
      {lblTask[0], Message::GeneratingScript},    {lblTask[1], Message::ExtractingStream},
      {lblTask[2], Message::CheckingAudio},       {chkClose, Message::CloseWhenDone},
      {lblStep5b, Message::CloseToCancel}};
  Wizard::ApplyTexts(rows);
  cmbSampleRate.SetItems({s[Message::UseOriginal], u"8000", u"11025", u"16000", u"22050", u"44100", u"48000"});
  cmbSampleRate.SetSpokenName(s[Message::SampleRate]);
  imgGetVirtualDub.SetSpokenName(s[Message::DownloadLink]);
}

void AudioWizard::ChooseFormat(SoundFormat format) {
  const bool wave = format == SoundFormat::Wave;
  optWAV.SetValue(wave);
  optOriginal.SetValue(!wave);
  chkAudioBar.SetEnabled(wave);
}

bool AudioWizard::MayLeave() {
  if (Step() == kToolStep) return tool_.Check(txtVirtualdub.GetText());
  if (Step() != kTargetStep) return true;
  const Target target = TakeTarget();
  // The runner replaces it once the new one is whole; another tool is judged by what is there when it has ended.
  if (target == Target::ToReplace && tool_.Get().kind == VideoTool::Kind::Wine) p_.ports.files.Remove(target_);
  return target != Target::Refused;
}

void AudioWizard::EnterStep() {
  if (AtLastStep()) {
    for (Button* button : {&cmdBack, &cmdNext, &cmdCancel}) button->SetEnabled(false);
    return Run();
  }
  if (Step() != kRateStep) return;
  const bool wave = optWAV.Value();
  cmbSampleRate.SetEnabled(wave);
  lblSampleRate.SetEnabled(wave);
  lblStep2b.SetVisible(wave);
  AskAgain();
}

void AudioWizard::OnClose() {
  closing_ = true;
  Wizard::OnClose();
}

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
  // Without a script the tool fails, which is told when its result is looked for.
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

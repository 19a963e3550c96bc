#include "forms/audio_wizard.h"

#include <algorithm>

#include "core/file_helpers.h"
#include "core/paths.h"
#include "external/common_dialogs.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr std::int16_t kLastStep = 4;

}  // namespace

AudioWizard::AudioWizard(WizardParts parts) : Dialog("frmAudioWizard"), p_(parts), tool_(parts) {
  cmbSampleRate.SetEditable(true);
  Wire();
}

void AudioWizard::Wire() {
  cmdNext.Clicked.Connect([this] { Next(); });
  cmdBack.Clicked.Connect([this] { Back(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  cmdBrowseVD.Clicked.Connect([this] { BrowseTool(); });
  cmdSave.Clicked.Connect([this] { BrowseTarget(); });
  optWAV.Clicked.Connect([this] { ChooseFormat(true); });
  optOriginal.Clicked.Connect([this] { ChooseFormat(false); });
  lblDownload.Clicked.Connect([this] { tool_.OpenDownload(u"14"); });
  imgGetVirtualDub.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) tool_.OpenDownload(u"14");
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
  step_ = 0;
  pending_.clear();
  closing_ = false;
  agreed_.clear();
  script_ = p_.folders.TempFolder + u"aext.vcf";
  ApplyTexts();
  txtVirtualdub.SetText(tool_.TakeStored());
  txtSave.SetText(StripExtension(p_.document.VideoPath) + u".wav");
  cmbSampleRate.SetIndex(0);
  chkAudioBar.SetValue(true);
  chkClose.SetValue(false);
  chkClose.SetEnabled(true);
  ChooseFormat(true);
  for (std::size_t task = 0; task < lights_.size(); ++task) {
    SetTaskLight(task, 0);
    lblTask[task].SetBold(false);
    lblTask[task].SetColor({});
  }
  lblStep5.SetBold(false);
  cmdBack.SetEnabled(false);
  cmdNext.SetEnabled(true);
  cmdCancel.SetEnabled(true);
  ShowStep();
  p_.openForms.Opened(Name(), [this] { Close(); });
  NoteOpened();
}

void AudioWizard::ApplyTexts() {
  const LangStrings& s = p_.strings;
  SetTitle(s[Message::ExtractionWizard]);
  SetRightToLeft(p_.languages.IsRightToLeft());
  const std::pair<Control&, Message> rows[] = {{lblTop, Message::ExtractionWizard},
                                               {lblTop2, Message::ExtractionIntro},
                                               {lblStep1, Message::SelectAudioFormat},
                                               {optWAV, Message::WavUncompressed},
                                               {optOriginal, Message::KeepSourceFormat},
                                               {chkAudioBar, Message::LoadOnAudioBar},
                                               {lblStep1b, Message::LoadNeedsWav},
                                               {lblStep2, Message::ChooseAudioSettings},
                                               {lblSampleRate, Message::SampleRate},
                                               {lblStep2b, Message::SampleRateNote},
                                               {lblStep3, Message::ExtractionNeedsVirtualDub},
                                               {lblVirtualdub, Message::VirtualDubFolder},
                                               {cmdBrowseVD, Message::Browse},
                                               {lblStep3b, Message::DownloadPrograms},
                                               {lblDownload, Message::DownloadLink},
                                               {lblStep4, Message::SelectAudioLocation},
                                               {lblSave, Message::SaveAudioAs},
                                               {cmdSave, Message::SaveAs},
                                               {lblStep4b, Message::NextStartsExtraction},
                                               {lblStep5, Message::TasksAreExecuted},
                                               {lblTask[0], Message::GeneratingScript},
                                               {lblTask[1], Message::ExtractingStream},
                                               {lblTask[2], Message::CheckingAudio},
                                               {chkClose, Message::CloseWhenDone},
                                               {lblStep5b, Message::CloseToCancel},
                                               {cmdCancel, Message::Cancel}};
  for (const auto& [control, message] : rows) control.SetText(s[message]);
  for (Control* control : Controls()) control->SetRightToLeft(RightToLeft());
  cmbSampleRate.SetItems({s[Message::UseOriginal], u"8000", u"11025", u"16000", u"22050", u"44100", u"48000"});
  cmbSampleRate.SetSpokenName(s[Message::SampleRate]);
  txtVirtualdub.SetSpokenName(s[Message::VirtualDubFolder]);
  txtSave.SetSpokenName(s[Message::SaveAudioAs]);
  imgGetVirtualDub.SetSpokenName(s[Message::DownloadLink]);
  cmdBack.SetText(u"< " + s[Message::Back]);
  cmdNext.SetText(s[Message::Next] + u" >");
}

void AudioWizard::ChooseFormat(bool wave) {
  optWAV.SetValue(wave);
  optOriginal.SetValue(!wave);
  chkAudioBar.SetEnabled(wave);
}

void AudioWizard::BrowseTool() {
  const Text folder = tool_.AskFolder();
  if (folder.empty()) return;
  txtVirtualdub.SetText(folder);
  tool_.Store(folder);
}

void AudioWizard::BrowseTarget() {
  const Text path = ShowSaveDialog(p_.ports.fileDialogs, u"WAVE audio (wav)|*.wav", WithoutDots(cmdSave.GetText()),
                                   p_.recall.LastFolder(), txtSave.GetText());
  if (IsBlank(path)) return;
  txtSave.SetText(StripExtension(path) + u".wav");
  // The dialog has asked, about the name that was chosen there.
  if (txtSave.GetText() == path) agreed_ = path;
}

void AudioWizard::ShowStep() {
  for (Picture& page : picStep) page.SetVisible(false);
  picStep[static_cast<std::size_t>(step_)].SetVisible(true);
}

void AudioWizard::Next() {
  // The run is over.
  if (!cmdCancel.Enabled()) return Close();
  // What is asked here handles events, so that a second press comes in between.
  if (leaving_) return;
  leaving_ = true;
  const bool may = MayLeave();
  leaving_ = false;
  if (!may || !IsOpen()) return;
  ++step_;
  ShowStep();
  EnterStep();
}

bool AudioWizard::MayLeave() {
  if (step_ == 2) return tool_.Check(txtVirtualdub.GetText());
  if (step_ != 3) return true;
  target_ = txtSave.GetText();
  return MayOverwrite();
}

bool AudioWizard::MayOverwrite() {
  if (target_ == p_.document.VideoPath || p_.ports.files.SameFile(target_, p_.document.VideoPath)) {
    p_.ports.messages.Show({p_.strings[Message::FilmIsNoTarget], BoxIcon::Warning, BoxButtons::Ok,
                            WithoutDots(p_.strings[Message::SaveAs])});
    return false;
  }
  if (target_ == agreed_ || !p_.ports.files.Exists(target_)) return true;
  const MessageBox box{Fill(p_.strings[Message::ReplaceExisting], target_), BoxIcon::Warning, BoxButtons::YesNo,
                       WithoutDots(p_.strings[Message::SaveAs])};
  if (p_.ports.messages.Show(box) != BoxAnswer::Yes) return false;
  // The runner replaces it once the new one is whole; another tool is judged by what is there when it has ended.
  if (tool_.Get().kind == VideoTool::Kind::Wine) p_.ports.files.Remove(target_);
  return true;
}

void AudioWizard::Back() {
  if (step_ == 0 || leaving_) return;
  --step_;
  ShowStep();
  if (step_ == 0) cmdBack.SetEnabled(false);
}

void AudioWizard::EnterStep() {
  const bool last = step_ == kLastStep;
  cmdBack.SetEnabled(!last);
  if (last) {
    cmdNext.SetEnabled(false);
    cmdCancel.SetEnabled(false);
    return Run();
  }
  if (step_ != 1) return;
  const bool wave = optWAV.Value();
  cmbSampleRate.SetEnabled(wave);
  lblSampleRate.SetEnabled(wave);
  lblStep2b.SetVisible(wave);
  agreed_.clear();
}

void AudioWizard::OnClose() {
  closing_ = true;
  p_.openForms.Closed(Name());
}

}  // namespace cuewright

#include <array>

#include "core/file_helpers.h"
#include "core/paths.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "external/embed_script.h"
#include "forms/embed_wizard.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr std::int16_t kLastStep = 3;
constexpr int kWaitMs = 1000;
constexpr std::int64_t kSecondMs = 1000;
constexpr std::int64_t kMinuteMs = 60000;
constexpr std::array<Message, 4> kStepHints = {Message::EmbedHint, Message::VirtualDubFolderHint,
                                               Message::OutputFileNameHint, Message::FilesWillBeClosed};

}  // namespace

void EmbedWizard::ShowEmbedDetails(TextView text) {
  lblDetails.SetText(text);
  lblDetailsTitle.SetVisible(!text.empty());
  fraDetails.SetVisible(!text.empty());
  lblDetails.SetVisible(!text.empty());
}

Text EmbedWizard::StepHint(std::int16_t step) const {
  const Text& hint = p_.strings[kStepHints[static_cast<std::size_t>(step)]];
  return step == kLastStep ? hint + Text(kLineEnd) + Text(kLineEnd) + p_.strings[Message::OkBeginsProcess] : hint;
}

void EmbedWizard::ShowStepHint() { ShowEmbedDetails(StepHint(step_)); }

std::vector<Text> EmbedWizard::Hints() const {
  std::vector<Text> hints;
  for (const Message message :
       {Message::OutputFormatHint, Message::ConfigureCodecHint, Message::VirtualDubFolderHint,
        Message::OutputResolutionHint, Message::FilterModeHint, Message::OutputWidthHint, Message::OutputHeightHint,
        Message::OutputFileNameHint, Message::EmbedPreviewHint, Message::CloseDialogHint}) {
    hints.push_back(p_.strings[message]);
  }
  for (std::int16_t step = 0; step <= kLastStep; ++step) hints.push_back(StepHint(step));
  return hints;
}

void EmbedWizard::ShowStep() {
  for (Picture& page : picStep) page.SetVisible(false);
  picStep[static_cast<std::size_t>(step_)].SetVisible(true);
}

void EmbedWizard::Next() {
  // What is asked here handles events, so that a second press comes in between.
  if (leaving_) return;
  leaving_ = true;
  const std::int16_t step = step_;
  const bool may = CheckEmbedDocument() && MayLeave();
  leaving_ = false;
  if (!may || !IsOpen() || step != step_) return;
  if (step_ == kLastStep) return Run();
  ++step_;
  ShowStep();
  cmdBack.SetEnabled(true);
  ShowStepHint();
  if (step_ == kLastStep) WriteScript();
}

bool EmbedWizard::MayLeave() {
  switch (step_) {
    case 0:
      // A press of Enter takes the focus from no box.
      if (txtWidth.Enabled()) {
        TakeSize(txtWidth);
        TakeSize(txtHeight);
      }
      return OfferXvid();
    case 1:
      if (!tool_.Check(txtVirtualdub.GetText())) return false;
      agreed_.clear();
      return true;
    case 2:
      target_ = txtSave.GetText();
      return MayOverwrite();
    default:
      return true;
  }
}

bool EmbedWizard::MayOverwrite() {
  if (target_ == p_.document.VideoPath || p_.ports.files.SameFile(target_, p_.document.VideoPath)) {
    p_.ports.messages.Show({p_.strings[Message::FilmIsNoTarget], BoxIcon::Warning, BoxButtons::Ok,
                            WithoutDots(p_.strings[Message::SaveAs])});
    return false;
  }
  if (target_ == agreed_ || !p_.ports.files.Exists(target_)) return true;
  const MessageBox box{Fill(p_.strings[Message::ReplaceExisting], target_), BoxIcon::Warning, BoxButtons::YesNo,
                       WithoutDots(p_.strings[Message::SaveAs])};
  return p_.ports.messages.Show(box) == BoxAnswer::Yes;
}

void EmbedWizard::Back() {
  if (step_ == 0 || leaving_) return;
  --step_;
  ShowStep();
  if (step_ == 0) cmdBack.SetEnabled(false);
  cmdNext.SetEnabled(true);
  cmdNext.SetText(p_.strings[Message::Next] + u" >");
  ShowStepHint();
  lblTop2.SetText(p_.strings[step_ == kLastStep ? Message::ReadyToBegin : Message::OutputFileSettings]);
}

void EmbedWizard::SetWorking(bool working) {
  p_.ports.desktop.SetBusy(working);
  for (Button* button : {&cmdBack, &cmdNext, &cmdCancel}) button->SetEnabled(!working);
}

void EmbedWizard::WriteScript() {
  SetWorking(true);
  txtTFileName.SetText(p_.document.SubtitlePath);
  txtVFileName.SetText(p_.document.VideoPath);
  // A script that can't be written is told when the run starts, which looks whether the file exists.
  CarryOn step;
  step([&] { FillScript(); });
  cmdNext.SetText(p_.strings[Message::Ok]);
  lblTop2.SetText(p_.strings[Message::ReadyToBegin]);
  p_.ports.events.WaitMs(kWaitMs);
  SetWorking(false);
  RequestFocus(cmdNext);
  // The focus went on to a button with a hint of its own meanwhile.
  ShowStepHint();
  const bool avi = ToLower(p_.document.VideoPath).ends_with(u"avi");
  for (Control* control : std::initializer_list<Control*>{&imgNotice, &lblNotice, &lblNote1, &lblNote2, &lblConvert}) {
    control->SetVisible(avi);
  }
}

void EmbedWizard::FillScript() {
  Files& files = p_.ports.files;
  const VideoTool& tool = tool_.Get();
  const auto held = [&](TextView path) { return ShortPathOf(files, path, p_.folders.TempFolder); };
  files.Remove(script_);
  EmbedValues values;
  values.source = QuotedDoubled(tool, held(p_.document.VideoPath));
  values.subtitle = QuotedSlashed(tool, held(p_.document.SubtitlePath));
  values.target = QuotedDoubled(tool, ShortTarget(files, target_, p_.folders.TempFolder));
  if (chkPreview.Value()) values.leftOut = MediaSeconds() * kSecondMs - sldPreview.Value() * kMinuteMs;
  if (cmbMode.Enabled()) values.size = EmbedValues::Size{txtWidth.GetText(), txtHeight.GetText(), cmbMode.Index()};
  files.WritePrivate(script_, EmbedScriptBytes(values));
}

void EmbedWizard::Run() {
  if (!p_.ports.files.Exists(script_)) {
    const Text end(kLineEnd);
    p_.ports.messages.Show(
        {u"Failed to create script file:" + end + end + script_, BoxIcon::Error, BoxButtons::Ok, Text(kProductName)});
    return;
  }
  SetWorking(true);
  for (const char* name : {"frmFind", "frmReport"}) p_.openForms.UnloadForm(name);
  closeDocuments();
  p_.ports.events.WaitMs(kWaitMs);
  StartTool();
  p_.ports.desktop.SetBusy(false);
  Close();
}

void EmbedWizard::StartTool() {
  if (tool_.Start(script_, txtVirtualdub.GetText(), false) != nullptr) {
    p_.ports.events.WaitMs(kWaitMs);
    return;
  }
  p_.ports.desktop.SetBusy(false);
  const Text end(kLineEnd);
  p_.ports.messages.Show({p_.strings[Message::StartFailed] + end + end + tool_.Get().path, BoxIcon::Error,
                          BoxButtons::Ok, Text(kProductName)});
}

void EmbedWizard::OnClose() { p_.openForms.Closed(Name()); }

}  // namespace cuewright

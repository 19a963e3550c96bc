#include "forms/wizard.h"

#include "core/counting.h"
#include "core/file_helpers.h"
#include "core/paths.h"
#include "external/common_dialogs.h"
#include "text/labels.h"

namespace cuewright {
Wizard::Wizard(std::string name, const WizardParts& parts, const Kind& kind)
    : Dialog(std::move(name)), p_(parts), tool_(parts), kind_(kind) {
  cmdNext.Clicked.Connect([this] { Next(); });
  cmdBack.Clicked.Connect([this] { Back(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  cmdBrowseVD.Clicked.Connect([this] { BrowseTool(); });
  cmdSave.Clicked.Connect([this] { BrowseTarget(); });
  lblDownload.Clicked.Connect([this] { tool_.OpenDownload(Download::Tool); });
}

void Wizard::Begin() {
  step_ = 0;
  agreed_.clear();
  script_ = p_.folders.TempFolder + Text(kind_.script);
  txtVirtualdub.SetText(tool_.TakeStored());
  cmdBack.SetEnabled(false);
  cmdNext.SetEnabled(true);
  cmdCancel.SetEnabled(true);
  ShowStep();
}

void Wizard::TellOpened() {
  p_.openForms.Opened(Name(), [this] { Close(); });
  NoteOpened();
}

void Wizard::OnClose() { p_.openForms.Closed(Name()); }

void Wizard::ApplyTexts(std::span<const ControlText> rows) {
  const LangStrings& s = p_.strings;
  SetTitle(s[kind_.title]);
  SetAllRightToLeft(p_.languages.IsRightToLeft());
  ShowTexts(rows, s);
  const ControlText common[] = {{lblTop, kind_.title},          {lblVirtualdub, Message::VirtualDubFolder},
                                {cmdBrowseVD, Message::Browse}, {lblDownload, Message::DownloadLink},
                                {lblSave, kind_.target},        {cmdSave, Message::SaveAs},
                                {cmdCancel, Message::Cancel}};
  ShowTexts(common, s);
  const ControlText spoken[] = {{txtVirtualdub, Message::VirtualDubFolder}, {txtSave, kind_.target}};
  SpeakTexts(spoken, s);
  cmdBack.SetText(u"< " + s[Message::Back]);
  cmdNext.SetText(s[Message::Next] + u" >");
}

void Wizard::ShowStep() {
  const std::span<Picture> pages = Pages();
  for (Picture& page : pages) page.SetVisible(false);
  ItemAt(pages, step_).SetVisible(true);
}

void Wizard::Next() {
  // The question handles events, so a second press of the button may arrive within it.
  if (leaving_) return;
  leaving_ = true;
  const int step = step_;
  const bool may = MayLeave();
  leaving_ = false;
  // The window may have been closed meanwhile, and opened again at its first step.
  if (!may || !IsOpen() || step != step_) return;
  if (AtLastStep()) return Finish();
  ++step_;
  ShowStep();
  cmdBack.SetEnabled(true);
  EnterStep();
}

void Wizard::Back() {
  if (step_ == 0 || leaving_) return;
  --step_;
  ShowStep();
  if (step_ == 0) cmdBack.SetEnabled(false);
  ReturnToStep();
}

void Wizard::BrowseTool() {
  const Text folder = tool_.AskFolder();
  if (folder.empty() || !ToolServes(folder)) return;
  txtVirtualdub.SetText(folder);
  tool_.Store(folder);
}

void Wizard::BrowseTarget() {
  const Text path = ShowSaveDialog(p_.ports.fileDialogs, TargetFilter(), WithoutDots(cmdSave.GetText()),
                                   p_.recall.LastFolder(), txtSave.GetText());
  if (IsBlank(path)) return;
  txtSave.SetText(StripExtension(path) + Text(kind_.ending));
  // The file dialog has asked whether to replace the file that was chosen there; another name is asked about later.
  if (txtSave.GetText() == path) agreed_ = path;
}

Wizard::Target Wizard::TakeTarget() {
  target_ = txtSave.GetText();
  const Text title = WithoutDots(p_.strings[Message::SaveAs]);
  if (target_ == p_.document.VideoPath || p_.ports.files.SameFile(target_, p_.document.VideoPath)) {
    p_.ports.messages.Show({p_.strings[Message::FilmIsNoTarget], BoxIcon::Warning, BoxButtons::Ok, title});
    return Target::Refused;
  }
  if (target_ == agreed_ || !p_.ports.files.Exists(target_)) return Target::Taken;
  const MessageBox box{Fill(p_.strings[Message::ReplaceExisting], target_), BoxIcon::Warning, BoxButtons::YesNo, title};
  return p_.ports.messages.Show(box) == BoxAnswer::Yes ? Target::ToReplace : Target::Refused;
}

}  // namespace cuewright

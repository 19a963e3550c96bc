#include "forms/find_windows.h"

#include <utility>

#include "tools/find_replace.h"

namespace cuewright {

SearchWindow::SearchWindow(std::string name, Message title, CaptionList& list, const LangStrings& strings,
                           const Languages& languages, OpenForms& openForms)
    : ToolForm(std::move(name), openForms), strings_(strings), title_(title), list_(list), languages_(languages) {
  txtFind.Edited.Connect([this] { FollowText(); });
  cmdFind.Clicked.Connect([this] { TellFound(Search(Pass::Find)); });
  cmdClose.Clicked.Connect([this] { Close(); });
}

void SearchWindow::Load() {
  txtFind.SetText({});
  lblInfo.SetText({});
  imgInfo.SetVisible(false);
  chkEntire.SetValue(false);
  chkCase.SetValue(false);
  FollowText();
  ApplyLanguage(languages_.IsRightToLeft());
}

void SearchWindow::ApplyLanguage(bool rightToLeft) {
  SetTitle(strings_[title_]);
  SetRightToLeft(rightToLeft);
  for (Control* control : Controls()) control->SetRightToLeft(rightToLeft);
  fraFind.SetText(strings_[Message::SearchForText]);
  txtFind.SetSpokenName(strings_[Message::SearchForText]);
  chkEntire.SetText(strings_[Message::SingleWordOnly]);
  chkCase.SetText(strings_[Message::MatchCase]);
  cmdFind.SetText(strings_[Message::FindNext]);
  cmdClose.SetText(strings_[Message::Close]);
}

void SearchWindow::FollowText() { cmdFind.SetEnabled(!txtFind.GetText().empty()); }

int SearchWindow::Search(Pass pass, TextView replacement) {
  return FindInCaptions(list_, {txtFind.GetText(), chkEntire.Value(), chkCase.Value()}, pass != Pass::Find, replacement,
                        pass == Pass::ReplaceAll);
}

void SearchWindow::TellFound(int count) {
  Tell(count > 0 ? Fill(strings_[Message::FoundOnLine], Decimal(list_.Selected())) : strings_[Message::StringNotFound]);
}

void SearchWindow::Tell(TextView text) {
  lblInfo.SetText(text);
  imgInfo.SetVisible(true);
}

ReplaceWindow::ReplaceWindow(CaptionList& list, const LangStrings& strings, const Languages& languages,
                             OpenForms& openForms)
    : SearchWindow("frmReplace", Message::Replace, list, strings, languages, openForms) {
  cmdReplace.Clicked.Connect([this] { TellFound(Search(Pass::Replace, txtReplace.GetText())); });
  cmdReplaceAll.Clicked.Connect([this] {
    Tell(Fill(strings_[Message::ReplacementsMade], Decimal(Search(Pass::ReplaceAll, txtReplace.GetText()))));
  });
}

void ReplaceWindow::Load() {
  txtReplace.SetText({});
  SearchWindow::Load();
}

void ReplaceWindow::ApplyLanguage(bool rightToLeft) {
  SearchWindow::ApplyLanguage(rightToLeft);
  fraReplace.SetText(strings_[Message::ReplaceWith]);
  txtReplace.SetSpokenName(strings_[Message::ReplaceWith]);
  cmdReplace.SetText(strings_[Message::Replace]);
  cmdReplaceAll.SetText(strings_[Message::ReplaceAll]);
}

void ReplaceWindow::FollowText() {
  SearchWindow::FollowText();
  cmdReplace.SetEnabled(cmdFind.Enabled());
  cmdReplaceAll.SetEnabled(cmdFind.Enabled());
}

}  // namespace cuewright

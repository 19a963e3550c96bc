#include "forms/spell_dialog.h"

#include <utility>

#include "core/counting.h"
#include "forms/access_keys.h"

namespace cuewright {

SpellDialog::SpellDialog(const LangStrings& strings, Desktop& desktop)
    : Dialog("frmSpell"), strings_(strings), desktop_(desktop) {
  const auto steps = [this](Button& button, auto step) {
    button.Clicked.Connect([this, step] {
      if (!task_) return;
      step(task_->session);
      Advance();
    });
  };
  steps(cmdReplace, [this](SpellSession& session) { session.Replace(txtReplace.GetText()); });
  steps(cmdReplaceAll, [this](SpellSession& session) { session.ReplaceAllOf(txtReplace.GetText()); });
  steps(cmdIgnore, [](SpellSession& session) { session.Ignore(); });
  steps(cmdIgnoreAll, [](SpellSession& session) { session.IgnoreAll(); });
  cmdAdd.Clicked.Connect([this] {
    if (!task_ || !task_->addWord(task_->session.Word())) return;
    task_->session.NoteAdded();
    Advance();
  });
  cmdUndo.Clicked.Connect([this] { Undo(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  lstSuggestions.Chosen.Connect([this] { ShowSuggestion(); });
  txtReplace.Edited.Connect([this] { AllowReplace(); });
  txtReplace.KeyDown.Connect([this](KeyEvent& key) { StepSuggestion(key); });
  cboLanguage.Chosen.Connect([this] { ChooseLanguage(); });
}

void SpellDialog::Open(Task task) {
  task_.emplace(std::move(task));
  ApplyLanguage();
  cboLanguage.SetItems(task_->languages);
  cboLanguage.SetIndex(task_->language);
  Show();
  NoteOpened();
}

void SpellDialog::ApplyLanguage() {
  SetTitle(strings_[Message::SpellCheck]);
  SetRightToLeft(task_->rightToLeft);
  lblNotFound.SetText(strings_[Message::NotInDictionary]);
  lblReplace.SetText(strings_[Message::ReplaceWith]);
  lblSuggestions.SetText(strings_[Message::Suggestions]);
  lblLanguage.SetText(strings_[Message::DvdLanguage]);
  txtCaption.SetSpokenName(strings_[Message::SpokenCaptionText]);
  txtReplace.SetSpokenName(strings_[Message::ReplaceWith]);
  lstSuggestions.SetSpokenName(strings_[Message::Suggestions]);
  cboLanguage.SetSpokenName(strings_[Message::DvdLanguage]);
}

void SpellDialog::NameButtons() {
  // What was changed stays when the dialog closes.
  const Message close = task_->session.Changed() ? Message::Close : Message::Cancel;
  const std::pair<Button*, Message> buttons[] = {{&cmdCancel, close},
                                                 {&cmdIgnore, Message::Ignore},
                                                 {&cmdReplace, Message::Replace},
                                                 {&cmdReplaceAll, Message::ReplaceAll},
                                                 {&cmdIgnoreAll, Message::IgnoreAll},
                                                 {&cmdAdd, Message::AddToDictionary},
                                                 {&cmdUndo, Message::Undo}};
  AccessKeys keys;
  for (const auto& [button, message] : buttons) button->SetText(keys.Give(strings_[message]));
}

void SpellDialog::Advance() {
  desktop_.SetBusy(true);
  const bool more = task_->session.Next();
  desktop_.SetBusy(false);
  if (more) {
    Show();
  } else {
    Close();
  }
}

void SpellDialog::Show() {
  const SpellSession::Shown shown = task_->session.Caption();
  lblLine.SetText(strings_[Message::LineHeading] + Decimal(task_->firstLine + shown.caption - 1));
  txtCaption.SetText(shown.text);
  txtCaption.Select(static_cast<int>(shown.word.start), static_cast<int>(shown.word.length));
  const Text word(task_->session.Word());
  lblWord.SetText(word);
  desktop_.SetBusy(true);
  std::vector<Text> suggestions = task_->suggest(word);
  desktop_.SetBusy(false);
  lstSuggestions.SetItems(std::move(suggestions));
  txtReplace.SetText(word);
  lstSuggestions.SetIndex(lstSuggestions.Items().empty() ? -1 : 0);
  ShowSuggestion();
  for (Control* control :
       std::initializer_list<Control*>{&txtReplace, &lstSuggestions, &cmdIgnore, &cmdIgnoreAll, &cmdAdd}) {
    control->SetEnabled(true);
  }
  cmdUndo.SetEnabled(task_->session.CanUndo());
  NameButtons();
}

void SpellDialog::ShowNext() {
  if (task_->session.Next()) return Show();
  lblLine.SetText(strings_[Message::SpellCheckCompleted]);
  txtCaption.SetText({});
  lblWord.SetText({});
  txtReplace.SetText({});
  lstSuggestions.SetItems({});
  for (Control* control : std::initializer_list<Control*>{&txtReplace, &lstSuggestions, &cmdReplace, &cmdReplaceAll,
                                                          &cmdIgnore, &cmdIgnoreAll, &cmdAdd}) {
    control->SetEnabled(false);
  }
  NameButtons();
}

void SpellDialog::ShowSuggestion() {
  const int index = lstSuggestions.Index();
  if (index >= 0) {
    txtReplace.SetText(ItemAt(lstSuggestions.Items(), index));
    txtReplace.Select(0, CountOf(txtReplace.GetText()));
  }
  AllowReplace();
}

void SpellDialog::StepSuggestion(KeyEvent& key) {
  if (key.code != kKeyUp && key.code != kKeyDown) return;
  const int last = CountOf(lstSuggestions.Items()) - 1;
  const int wanted = lstSuggestions.Index() + (key.code == kKeyUp ? -1 : 1);
  if (wanted >= 0 && wanted <= last) lstSuggestions.Choose(wanted);
  key.handled = true;
}

void SpellDialog::AllowReplace() {
  const bool may = task_ && task_->session.MayReplace(txtReplace.GetText());
  cmdReplace.SetEnabled(may);
  cmdReplaceAll.SetEnabled(may);
}

void SpellDialog::ChooseLanguage() {
  if (!task_ || cboLanguage.Index() == task_->language) return;
  desktop_.SetBusy(true);
  const bool taken = task_->useLanguage(cboLanguage.Index());
  desktop_.SetBusy(false);
  if (!taken) return cboLanguage.SetIndex(task_->language);
  task_->language = cboLanguage.Index();
  // In another language no word may be misspelt. The dialog stays open, so that the user can still choose another one.
  ShowNext();
}

void SpellDialog::Undo() {
  if (!task_ || !task_->session.CanUndo()) return;
  if (const Text added = task_->session.Undo(); !added.empty()) task_->removeWord(added);
  // The word may be one that another language knows.
  ShowNext();
}

void SpellDialog::OnClose() {
  if (!task_->session.Word().empty()) task_->decisions.stopped = true;
  task_.reset();
}

}  // namespace cuewright

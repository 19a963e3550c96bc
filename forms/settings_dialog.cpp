#include "forms/settings_dialog.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr std::size_t kKeysPage = 1;
constexpr std::size_t kLanguagePage = 4;
/// What Reset takes back on each page. The design has the player's page and the preview's reset each other.
constexpr std::array<OptionPlace, SettingsDialog::kPages> kResets = {
    OptionPlace::Rules, OptionPlace::Keys, OptionPlace::Preview, OptionPlace::Player, OptionPlace::Language};

}  // namespace

SettingsDialog::SettingsDialog(const SettingsParts& parts)
    : Dialog("frmSettings"),
      details(*this, parts.strings),
      rules(PagePlace(parts), parts.capture),
      keys(PagePlace(parts), parts.ports.messages),
      player(PagePlace(parts), parts.ports.player, parts.filter),
      preview(PagePlace(parts), parts.document, parts.preview, parts.ports.pickers),
      language(PagePlace(parts), parts.languages, parts.ports.desktop, parts.ports.messages),
      parts_(parts),
      strings_(parts_.strings) {
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdReset.Clicked.Connect([this] { Reset(); });
  details.Explain(cmdOK, Message::SaveSettingsHint);
  details.Explain(cmdReset, Message::ResetSectionHint);
  language.LanguageChosen.Connect([this](std::size_t row) { ChangeLanguage(row); });
  WireMenu();
}

void SettingsDialog::WireMenu() {
  for (std::size_t i = 0; i < kPages; ++i) {
    lblMenu[i].Hovered.Connect([this, i] { PointAtMenu(i); });
    lblMenu[i].Clicked.Connect([this, i] { ShowSettingsPage(i); });
    imgMenu[i].Hovered.Connect([this, i] { PointAtMenu(i); });
    imgMenu[i].MouseDown.Connect([this, i](const MouseEvent& mouse) {
      if (mouse.button == MouseButton::Left) ShowSettingsPage(i);
    });
    picOptions[i].Hovered.Connect([this, i] {
      details.Show(pages_[i]->GetHeading().overPage);
      rules.ClosePanels();
      LeaveMenu();
    });
  }
  picMenu.Hovered.Connect([this] {
    ShowSettingsDetails({});
    LeaveMenu();
  });
  Hovered.Connect([this] {
    rules.ClosePanels();
    LeaveMenu();
  });
}

void SettingsDialog::PointAtMenu(std::size_t entry) {
  details.Show(pages_[entry]->GetHeading().overEntry);
  for (std::size_t i = 0; i < kPages; ++i) lblMenu[i].SetUnderlined(i == entry);
}

void SettingsDialog::LeaveMenu() {
  for (Label& label : lblMenu) label.SetUnderlined(false);
}

void SettingsDialog::Open() {
  for (Picture& page : picOptions) page.SetVisible(false);
  rules.ClosePanels();
  LeaveMenu();
  ShowSettingsDetails({});
  language.ListLanguages();
  keys.ShowLetters(ReadHotkeyLetters(parts_.store));
  ApplySettingsDialogLanguage();
  FillSettingsControls();
  ShowSettingsPage(parts_.languages.FirstRun() ? kLanguagePage : 0);
  NoteOpened();
}

void SettingsDialog::ShowSettingsPage(std::size_t index) {
  page_ = std::min(index, kPages - 1);
  ShowTitle();
  rules.ClosePanels();
  for (std::size_t i = 0; i < kPages; ++i) picOptions[i].SetVisible(i == page_);
  PageChanged();
}

void SettingsDialog::ShowTitle() {
  const Text& title = strings_[pages_[page_]->GetHeading().title];
  lblTop.SetText(title);
  picTop.SetSpokenName(title);
}

void SettingsDialog::FillSettingsControls() {
  for (SettingsPage* page : pages_) page->Fill();
}

void SettingsDialog::ApplySettingsDialogLanguage() {
  language.LoadStrings();
  SetRightToLeft(parts_.languages.IsRightToLeft());
  SetTitle(strings_[Message::GeneralSettings]);
  picMenu.SetSpokenName(WithoutAccessKey(strings_[Message::GeneralSettings]));
  for (std::size_t i = 0; i < kPages; ++i) {
    const Text& title = strings_[pages_[i]->GetHeading().title];
    lblMenu[i].SetText(title);
    imgMenu[i].SetSpokenName(title);
    picOptions[i].SetSpokenName(WithoutAccessKey(title));
  }
  ShowTitle();
  details.lblDetailsTitle.SetText(strings_[Message::Details]);
  cmdOK.SetText(strings_[Message::Ok]);
  cmdReset.SetText(strings_[Message::Reset]);
  for (SettingsPage* page : pages_) page->ApplyLanguage();
  LanguageApplied();
}

std::vector<Text> SettingsDialog::DetailTexts() const {
  std::vector<Text> texts = details.Texts();
  texts.push_back(language.CompletionHint());
  return texts;
}

void SettingsDialog::ChangeLanguage(std::size_t row) {
  LanguageChosen(row);
  ApplySettingsDialogLanguage();
  // Details that are on show stay so, in the new language.
  if (details.lblDetails.Visible()) details.Show(pages_[page_]->GetHeading().overPage);
}

void SettingsDialog::TakeOpenFields() {
  for (SettingsPage* page : pages_) page->TakeOpenFields();
}

void SettingsDialog::Accept() {
  TakeOpenFields();
  player.TakeUiMode();
  SaveDialogSettings(parts_.store, parts_.options, keys.Letters());
  Close();
}

void SettingsDialog::OnClose() {
  TakeOpenFields();
  parts_.store.SaveSetting(kMainSection, u"Language", parts_.options.language);
}

void SettingsDialog::Reset() {
  ResetOptions(parts_.options, kResets[page_]);
  if (page_ == kKeysPage) keys.ShowLetters(DefaultHotkeyLetters());
  if (page_ == kLanguagePage) ResetLanguage();
  for (SettingsPage* page : pages_) page->DropOpenFields();
  FillSettingsControls();
  player.ApplyToPlayer();
  parts_.preview.PlacePreview();
  parts_.capture.ShowModeTexts();
}

void SettingsDialog::ResetLanguage() {
  parts_.languages.DetectLanguage(u"ENGLISH");
  parts_.languages.ReadUserCharset();
  ChangeLanguage(parts_.options.languageRow);
}

}  // namespace cuewright

#include "forms/settings_dialog.h"

#include <algorithm>

#include "core/numbers.h"
#include "forms/web.h"

namespace cuewright {
namespace {

constexpr std::size_t kLanguagePage = 4;
constexpr std::array<Message, SettingsWindow::kPages> kTitles = {Message::TimingManagement, Message::KeyboardShortcuts,
                                                                 Message::PlayerSettings, Message::SubtitlePreview,
                                                                 Message::LanguageAndEncoding};
constexpr std::array<Message, 10> kHotkeyNames = {Message::Play,
                                                  Message::Pause,
                                                  Message::Stop,
                                                  Message::Start,
                                                  Message::Next,
                                                  Message::End,
                                                  Message::ReturnToPreviousSubtitle,
                                                  Message::JumpToNextSubtitle,
                                                  Message::Rewind,
                                                  Message::ForwardKey};
constexpr std::array<Message, 2> kPositionNames = {Message::Rewind, Message::ForwardKey};
constexpr std::array<Message, 3> kLengthClasses = {Message::ShortCaptions, Message::MediumCaptions,
                                                   Message::LongCaptions};

}  // namespace

SettingsDialog::SettingsDialog(const SettingsParts& parts)
    : parts_(parts), options_(parts_.options), strings_(parts_.strings) {
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdReset.Clicked.Connect([this] { Reset(); });
  WireHover();
  WirePageHover();
  WireRules();
  WirePanels();
  WireKeys();
  WirePlayer();
  WirePreview();
  WireLanguage();
}

void SettingsDialog::Open() {
  for (Picture& page : picOptions) page.SetVisible(false);
  ClosePanels();
  LeaveMenu();
  ShowSettingsDetails({});
  std::vector<Text> names;
  for (const LanguageRow& row : parts_.languages.LanguageTable()) names.push_back(row.displayName);
  cboLanguage.SetItems(std::move(names));
  letters_ = ReadHotkeyLetters(parts_.store);
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetText(letters_[k]);
  ApplySettingsDialogLanguage();
  FillSettingsControls();
  ShowSettingsPage(parts_.languages.FirstRun() ? kLanguagePage : 0);
  NoteOpened();
}

void SettingsDialog::ShowSettingsPage(std::size_t index) {
  page_ = std::min(index, kPages - 1);
  lblTop.SetText(strings_[kTitles[page_]]);
  picTop.SetSpokenName(strings_[kTitles[page_]]);
  ClosePanels();
  for (std::size_t i = 0; i < kPages; ++i) picOptions[i].SetVisible(i == page_);
  PageChanged();
}

void SettingsDialog::FillSettingsControls() {
  const AppOptions& o = options_;
  chkAutoSplit.SetValue(o.autoSplit != 0);
  chkCollision.SetValue(o.avoidCollision != 0);
  chkAutoJoin.SetValue(o.autoJoin != 0);
  sldAutoJoin.SetValue(o.nearMs / 10);
  chkDuration.SetValue(o.limitDuration != 0);
  for (std::size_t k = 0; k < 3; ++k) {
    sldDuration[k].SetValue(o.durationPerCharacter[k] / 10);
    sldTolerance[k].SetValue(o.durationTolerance[k] / 10);
  }
  chkCredits.SetValue(o.removeCredits != 0);
  txtCredits.SetText(o.creditWords);
  cmbApply.SetIndex(std::min<int>(o.applyWhen, 2));
  chkRulesOnLoad.SetValue(o.changeOnLoad);
  ShowRuleLabels();
  EnableRuleControls();

  chkKeys.SetValue(o.hotkeysOn != 0);
  txtPosition[0].SetText(Decimal(o.rewindSeconds));
  txtPosition[1].SetText(Decimal(o.forwardSeconds));
  EnableKeyControls();

  chkStretch.SetValue(o.stretchVideo != 0);
  cmbUImode.SetIndex(o.playerControls == u"none" ? 0 : o.playerControls == u"mini" ? 1 : 2);
  FillFilterControls();

  optOpaque.SetValue(o.previewOpaque);
  optShadow.SetValue(!o.previewOpaque);
  chkClassic.SetValue(o.manner.Classic());

  sldShadow.SetValue(o.previewShadowDepth);
  sldHeight.SetValue(o.previewHeight);
  chkFollow.SetValue(o.followCaptions);
  ShowPreviewLabels();
  DrawSample();
}

void SettingsDialog::ShowSettingsDetails(TextView text) {
  lblDetails.SetText(text);
  lblDetailsTitle.SetVisible(!text.empty());
  fraDetails.SetVisible(!text.empty());
  lblDetails.SetVisible(!text.empty());
}

void SettingsDialog::ApplySettingsDialogLanguage() {
  percent_ = parts_.languages.LoadLanguageStrings(false);
  lblComplete.SetVisible(percent_ != 100);
  SetRightToLeft(parts_.languages.IsRightToLeft());
  SetTitle(strings_[Message::GeneralSettings]);
  for (std::size_t i = 0; i < kPages; ++i) {
    lblMenu[i].SetText(strings_[kTitles[i]]);
    imgMenu[i].SetSpokenName(strings_[kTitles[i]]);
  }
  lblTop.SetText(strings_[kTitles[page_]]);
  picTop.SetSpokenName(strings_[kTitles[page_]]);
  ApplyPageTexts();
  ApplyNames();
  ShowRuleLabels();
  ShowPreviewLabels();
  ApplyLanguagePage();
  DrawSample();
  LanguageApplied();
}

void SettingsDialog::ApplyPageTexts() {
  struct Labelled {
    Control& control;
    Message message;
  };
  const Labelled rows[] = {{lblDetailsTitle, Message::Details},
                           {cmdOK, Message::Ok},
                           {cmdReset, Message::Reset},
                           {chkAutoSplit, Message::AutosplitLines},
                           {chkCollision, Message::AvoidCollision},
                           {chkAutoJoin, Message::ImmediateChange},
                           {chkDuration, Message::AutomaticLimit},
                           {lblShort, Message::ShortCaptions},
                           {lblMedium, Message::MediumCaptions},
                           {lblLong, Message::LongCaptions},
                           {chkCredits, Message::RemoveCredits},
                           {lblCredits, Message::RemoveLinesWith},
                           {lblApply, Message::WhenToApplyRules},
                           {chkKeys, Message::EnableShortcuts},
                           {fraKeys, Message::AvailableShortcuts},
                           {lblPlayback, Message::Playback},
                           {lblCaptioning, Message::Captioning},
                           {chkStretch, Message::AutofitVideo},
                           {lblUImode, Message::PlayerControls},
                           {lblVSFilter, Message::VsFilterManagement},
                           {optVSDisable, Message::VsFilterDisable},
                           {optVSHide, Message::VsFilterHide},
                           {lblVSNotice, Message::VsFilterRestored},
                           {cmdVSFilter, Message::Configure},
                           {lblFormat, Message::PreviewTextHint},
                           {cmdFont, Message::FontButton},
                           {cmdColor, Message::ColorButton},
                           {optOpaque, Message::OpaqueBackground},
                           {optShadow, Message::TransparentBackground},
                           {lblSample, Message::Sample},
                           {chkFollow, Message::FollowSubtitles},
                           {lblLanguage, Message::InterfaceLanguage},
                           {lblTranslator, Message::TranslationBy},
                           {chkClassic, Message::ClassicManner},
                           {chkRulesOnLoad, Message::RulesOnLoad},
                           {fraCharset, Message::SubtitleCharset},
                           {lblCharset, Message::CharsetIsRegional},
                           {cmdRegionalSettings, Message::Configure},
                           {lblSampleShadow, Message::Sample}};
  for (const Labelled& row : rows) row.control.SetText(strings_[row.message]);
  for (std::size_t k = 0; k < lblHotkey.size(); ++k) lblHotkey[k].SetText(strings_[kHotkeyNames[k]]);
  for (Label& label : lblSeconds) label.SetText(strings_[Message::SecondsOfRewind]);
  const int apply = cmbApply.Index();
  cmbApply.SetItems(
      {strings_[Message::OnLoadOnly], strings_[Message::DuringSubtitlingOnly], strings_[Message::OnLoadAndSubtitling]});
  cmbApply.SetIndex(apply);
  const int mode = cmbUImode.Index();
  cmbUImode.SetItems(
      {strings_[Message::HideControls], strings_[Message::BasicControls], strings_[Message::AllControls]});
  cmbUImode.SetIndex(mode);
  lblComplete.SetText(u"Complete this translation...");
}

void SettingsDialog::ApplyNames() {
  const auto plain = [this](Message message) { return WithoutAccessKey(strings_[message]); };
  cmbApply.SetSpokenName(plain(Message::WhenToApplyRules));
  sldAutoJoin.SetSpokenName(plain(Message::NearbyFactor));
  txtCredits.SetSpokenName(plain(Message::RemoveLinesWith));
  cmbUImode.SetSpokenName(plain(Message::PlayerControls));
  cboLanguage.SetSpokenName(plain(Message::InterfaceLanguage));
  txtCharset.SetSpokenName(plain(Message::SubtitleCharset));
  cmdRegionalSettings.SetSpokenName(plain(Message::Configure) + u" " + plain(Message::SubtitleCharset));
  cmdVSFilter.SetSpokenName(plain(Message::Configure) + u" " + plain(Message::VsFilterManagement));
  picSample.SetSpokenName(plain(Message::Sample));
  picMenu.SetSpokenName(plain(Message::GeneralSettings));
  for (Picture* image : {&imgAutoJoin, &imgDuration, &imgCredits}) image->SetSpokenName(plain(Message::Options));
  imgVSHelp.SetSpokenName(plain(Message::WhatsThis));
  picAutoJoin.SetSpokenName(plain(Message::ImmediateChange));
  picDuration.SetSpokenName(plain(Message::AutomaticLimit));
  picCredits.SetSpokenName(plain(Message::RemoveCredits));
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetSpokenName(plain(kHotkeyNames[k]));
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    txtPosition[i].SetSpokenName(plain(kPositionNames[i]) + u", " + plain(Message::SecondsOfRewind));
  }
  for (std::size_t i = 0; i < kPages; ++i) picOptions[i].SetSpokenName(plain(kTitles[i]));
}

void SettingsDialog::ApplyLanguagePage() {
  const Languages& languages = parts_.languages;
  const auto row = static_cast<std::size_t>(options_.languageRow);
  cboLanguage.SetIndex(languages.FindLanguageInList(row, cboLanguage.Items()));
  picFlag.SetSpokenName(languages.LanguageTable()[row].displayName);
  txtCharset.SetText(languages.CharsetText());
  const Languages::NoticeTexts notice = languages.Notice();
  lblWarning.SetText(notice.lblWarning);
  lblCurrLang.SetText(notice.lblCurrLang);
  lblReqLang.SetText(notice.lblReqLang);
  fraNotice.SetVisible(languages.NeedsNotice());
  fraNotice.SetSpokenName(notice.lblWarning);
}

void SettingsDialog::ShowRuleLabels() {
  lblAutoJoin.SetText(strings_[Message::NearbyFactor] + u" " + Decimal(options_.nearMs) + u" " +
                      strings_[Message::Milliseconds]);
  for (std::size_t k = 0; k < 3; ++k) {
    lblDuration[k].SetText(Fill(strings_[Message::DurationPerCharacter], Decimal(options_.durationPerCharacter[k])));
    lblTolerance[k].SetText(Fill(strings_[Message::Tolerance], Decimal(options_.durationTolerance[k])));
    const Text length = strings_[kLengthClasses[k]] + u", ";
    sldDuration[k].SetSpokenName(length + lblDuration[k].GetText());
    sldTolerance[k].SetSpokenName(length + lblTolerance[k].GetText());
  }
}

void SettingsDialog::ShowPreviewLabels() {
  lblShadow.SetText(Fill(strings_[Message::ShadowDepth], Decimal(options_.previewShadowDepth)));
  lblHeight.SetText(Fill(strings_[Message::PreviewPlacement], Decimal(options_.previewHeight)));
  sldShadow.SetSpokenName(lblShadow.GetText());
  sldHeight.SetSpokenName(lblHeight.GetText());
}

void SettingsDialog::WireLanguage() {
  cboLanguage.Chosen.Connect([this] { ChooseLanguage(); });
  lblComplete.Clicked.Connect([this] { CompleteTranslation(); });
  chkClassic.Clicked.Connect([this] { options_.manner.SetClassic(chkClassic.Value()); });
  cmdRegionalSettings.Clicked.Connect(
      [this] { ShowRegionalSettings(parts_.ports.desktop, parts_.ports.messages, strings_); });
}

void SettingsDialog::ChooseLanguage() {
  if (changeLanguage) changeLanguage(parts_.languages.RowOfDisplayName(cboLanguage.GetText()));
  ApplySettingsDialogLanguage();
  RenewDetails();
}

void SettingsDialog::CompleteTranslation() {
  if (!lblComplete.Enabled()) return;
  lblComplete.SetEnabled(false);
  parts_.ports.desktop.SetBusy(true);
  percent_ = parts_.languages.LoadLanguageStrings(true);
  parts_.ports.messages.Show({parts_.languages.TranslationFileMessage(), BoxIcon::Information});
  parts_.ports.desktop.ShellOpen(parts_.languages.TranslationFilePath());
  lblComplete.SetEnabled(true);
  parts_.ports.desktop.SetBusy(false);
}

void SettingsDialog::TakeOpenFields() {
  // The access key of a button doesn't take the focus out of a field.
  if (creditsOpen_) TakeCredits();
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    if (positionOpen_[i]) TakePosition(i);
  }
}

void SettingsDialog::Accept() {
  TakeOpenFields();
  TakeUiMode();
  SaveDialogSettings(parts_.store, options_, letters_);
  Close();
}

void SettingsDialog::OnClose() {
  TakeOpenFields();
  parts_.store.SaveSetting(kMainSection, u"Language", options_.language);
}

void SettingsDialog::Reset() {
  switch (page_) {
    case 0:
      ResetOptions(options_, OptionPlace::Rules);
      break;
    case 1:
      ResetOptions(options_, OptionPlace::Keys);
      letters_ = DefaultHotkeyLetters();
      for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetText(letters_[k]);
      break;
    // These two are crossed.
    case 2:
      ResetOptions(options_, OptionPlace::Preview);
      break;
    case 3:
      ResetOptions(options_, OptionPlace::Player);
      break;
    default:
      ResetOptions(options_, OptionPlace::Language);
      parts_.languages.DetectLanguage(u"ENGLISH");
      parts_.languages.ReadUserCharset();
      if (changeLanguage) changeLanguage(static_cast<std::size_t>(options_.languageRow));
      ApplySettingsDialogLanguage();
      RenewDetails();
  }
  creditsOpen_ = false;
  positionOpen_ = {};
  FillSettingsControls();
  ApplyPlayerSettings();
  parts_.preview.PlacePreview();
  parts_.capture.ShowModeTexts();
}

}  // namespace cuewright

#include "forms/settings_dialog.h"

#include <algorithm>

#include "core/numbers.h"
#include "forms/web.h"

namespace cuewright {
namespace {

constexpr std::size_t kLanguagePage = 4;
constexpr std::size_t kClassic = 1000;
constexpr std::size_t kRulesOnLoad = 1036;
constexpr std::array<std::size_t, SettingsWindow::kPages> kTitles = {189, 121, 309, 15, 16};
constexpr std::array<std::size_t, 10> kHotkeyNames = {126, 127, 128, 40, 41, 42, 166, 181, 167, 168};
constexpr std::array<std::size_t, 2> kPositionNames = {167, 168};
constexpr std::array<std::size_t, 3> kLengthClasses = {201, 202, 203};

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
  NoteOpened();
  ShowSettingsPage(parts_.languages.FirstRun() ? kLanguagePage : 0);
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
  chkAutoSplit.SetValue(o.AutoSplit != 0);
  chkCollision.SetValue(o.Collision != 0);
  chkAutoJoin.SetValue(o.AutoJoin != 0);
  sldAutoJoin.SetValue(o.Near / 10);
  chkDuration.SetValue(o.DurationOn != 0);
  for (std::size_t k = 0; k < 3; ++k) {
    sldDuration[k].SetValue(o.Duration[k] / 10);
    sldTolerance[k].SetValue(o.Tolerance[k] / 10);
  }
  chkCredits.SetValue(o.T_CREDITS != 0);
  txtCredits.SetText(o.T_CREDITSTEXT);
  cmbApply.SetIndex(std::min<int>(o.ApplyWhen, 2));
  chkRulesOnLoad.SetValue(o.RulesOnLoad);
  ShowRuleLabels();
  EnableRuleControls();

  chkKeys.SetValue(o.HotKeys != 0);
  txtPosition[0].SetText(Decimal(o.kRewindSecs));
  txtPosition[1].SetText(Decimal(o.kForwardSecs));
  EnableKeyControls();

  chkStretch.SetValue(o.P_STRETCH != 0);
  cmbUImode.SetIndex(o.P_UIMODE == u"none" ? 0 : o.P_UIMODE == u"mini" ? 1 : 2);
  FillFilterControls();

  optOpaque.SetValue(o.F_OPAQUE);
  optShadow.SetValue(!o.F_OPAQUE);
  chkClassic.SetValue(o.manner.Classic());

  sldShadow.SetValue(o.F_SHADOWVAL);
  sldHeight.SetValue(o.F_SUBHEIGHT);
  chkFollow.SetValue(o.F_FOLLOW);
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
  SetTitle(strings_[193]);
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
    std::size_t message;
  };
  const Labelled rows[] = {{lblDetailsTitle, 190},
                           {cmdOK, 66},
                           {cmdReset, 71},
                           {chkAutoSplit, 272},
                           {chkCollision, 196},
                           {chkAutoJoin, 82},
                           {chkDuration, 198},
                           {lblShort, 201},
                           {lblMedium, 202},
                           {lblLong, 203},
                           {chkCredits, 429},
                           {lblCredits, 431},
                           {lblApply, 211},
                           {chkKeys, 195},
                           {fraKeys, 123},
                           {lblPlayback, 124},
                           {lblCaptioning, 125},
                           {chkStretch, 311},
                           {lblUImode, 313},
                           {lblVSFilter, 420},
                           {optVSDisable, 422},
                           {optVSHide, 424},
                           {lblVSNotice, 426},
                           {cmdVSFilter, 370},
                           {lblFormat, 215},
                           {cmdFont, 216},
                           {cmdColor, 264},
                           {optOpaque, 217},
                           {optShadow, 218},
                           {lblSample, 221},
                           {chkFollow, 252},
                           {lblLanguage, 62},
                           {lblTranslator, 84},
                           {chkClassic, kClassic},
                           {chkRulesOnLoad, kRulesOnLoad},
                           {fraCharset, 63},
                           {lblCharset, 91},
                           {cmdRegionalSettings, 370},
                           {lblSampleShadow, 221}};
  for (const Labelled& row : rows) row.control.SetText(strings_[row.message]);
  for (std::size_t k = 0; k < lblHotkey.size(); ++k) lblHotkey[k].SetText(strings_[kHotkeyNames[k]]);
  for (Label& label : lblSeconds) label.SetText(strings_[169]);
  const int apply = cmbApply.Index();
  cmbApply.SetItems({strings_[212], strings_[213], strings_[214]});
  cmbApply.SetIndex(apply);
  const int mode = cmbUImode.Index();
  cmbUImode.SetItems({strings_[315], strings_[316], strings_[317]});
  cmbUImode.SetIndex(mode);
  lblComplete.SetText(u"Complete this translation...");
}

void SettingsDialog::ApplyNames() {
  const auto plain = [this](std::size_t message) { return WithoutAccessKey(strings_[message]); };
  cmbApply.SetSpokenName(plain(211));
  sldAutoJoin.SetSpokenName(plain(103));
  txtCredits.SetSpokenName(plain(431));
  cmbUImode.SetSpokenName(plain(313));
  cboLanguage.SetSpokenName(plain(62));
  txtCharset.SetSpokenName(plain(63));
  cmdRegionalSettings.SetSpokenName(plain(370) + u" " + plain(63));
  cmdVSFilter.SetSpokenName(plain(370) + u" " + plain(420));
  picSample.SetSpokenName(plain(221));
  picMenu.SetSpokenName(plain(193));
  for (Picture* image : {&imgAutoJoin, &imgDuration, &imgCredits}) image->SetSpokenName(plain(26));
  imgVSHelp.SetSpokenName(plain(8));
  picAutoJoin.SetSpokenName(plain(82));
  picDuration.SetSpokenName(plain(198));
  picCredits.SetSpokenName(plain(429));
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetSpokenName(plain(kHotkeyNames[k]));
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    txtPosition[i].SetSpokenName(plain(kPositionNames[i]) + u", " + plain(169));
  }
  for (std::size_t i = 0; i < kPages; ++i) picOptions[i].SetSpokenName(plain(kTitles[i]));
}

void SettingsDialog::ApplyLanguagePage() {
  const Languages& languages = parts_.languages;
  const auto row = static_cast<std::size_t>(options_.LanguageIndex);
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
  lblAutoJoin.SetText(strings_[103] + u" " + Decimal(options_.Near) + u" " + strings_[176]);
  for (std::size_t k = 0; k < 3; ++k) {
    lblDuration[k].SetText(Fill(strings_[207], Decimal(options_.Duration[k])));
    lblTolerance[k].SetText(Fill(strings_[208], Decimal(options_.Tolerance[k])));
    const Text length = strings_[kLengthClasses[k]] + u", ";
    sldDuration[k].SetSpokenName(length + lblDuration[k].GetText());
    sldTolerance[k].SetSpokenName(length + lblTolerance[k].GetText());
  }
}

void SettingsDialog::ShowPreviewLabels() {
  lblShadow.SetText(Fill(strings_[220], Decimal(options_.F_SHADOWVAL)));
  lblHeight.SetText(Fill(strings_[223], Decimal(options_.F_SUBHEIGHT)));
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
  parts_.store.SaveSetting(kMainSection, u"Language", options_.Language);
}

void SettingsDialog::Reset() {
  switch (page_) {
    case 0:
      ResetRuleSettings(options_);
      break;
    case 1:
      ResetKeySettings(options_);
      letters_ = DefaultHotkeyLetters();
      for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetText(letters_[k]);
      break;
    // These two are crossed.
    case 2:
      ResetPreviewSettings(options_);
      break;
    case 3:
      ResetPlayerSettings(options_);
      break;
    default:
      options_.manner = Manner();
      parts_.languages.DetectLanguage(u"ENGLISH");
      parts_.languages.ReadUserCharset();
      if (changeLanguage) changeLanguage(static_cast<std::size_t>(options_.LanguageIndex));
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

#include "forms/settings_dialog.h"

// What the details area tells while the pointer moves, and the panels that it opens.

namespace cuewright {
namespace {

constexpr std::array<Message, SettingsWindow::kPages> kOverMenu = {
    Message::RulesPageHint, Message::KeyboardShortcutsHint, Message::PlayerPageHint, Message::PreviewPageHint,
    Message::LanguagePageHint};
constexpr std::array<Message, SettingsWindow::kPages> kOverPage = {
    Message::RulesPageHint, Message::KeyboardShortcutsHint, Message::PlayerPageHint, Message::SampleDuringPlayback,
    Message::LanguagePageHint};
/// The most characters of a short and of a medium caption.
constexpr TextView kShortLength = u"5";
constexpr TextView kMediumLength = u"15";

Text Paragraphs(TextView first, TextView second) {
  return Text(first).append(kLineEnd).append(kLineEnd).append(second);
}

}  // namespace

void SettingsDialog::Tells(Control& control, Message message) {
  control.Hovered.Connect([this, message] { ShowSettingsDetails(strings_[message]); });
}

void SettingsDialog::WireHover() {
  const std::pair<Control&, Message> rows[] = {{lblAutoJoin, Message::ImmediateChangeHint},
                                               {lblUImode, Message::PlayerControlsHint},
                                               {cmbUImode, Message::PlayerControlsHint},
                                               {chkKeys, Message::EnableShortcutsHint},
                                               {chkStretch, Message::AutofitVideoHint},
                                               {lblVSFilter, Message::VsFilterFound},
                                               {optVSDisable, Message::VsFilterDisableHint},
                                               {optVSHide, Message::VsFilterHideHint},
                                               {cmdVSFilter, Message::VsFilterConfigureHint},
                                               {imgVSHelp, Message::VsFilterHint},
                                               {chkFollow, Message::FollowSubtitlesHint},
                                               {chkClassic, Message::ClassicMannerHint},
                                               {chkRulesOnLoad, Message::RulesOnLoadHint},
                                               {cmdOK, Message::SaveSettingsHint},
                                               {cmdReset, Message::ResetSectionHint},
                                               // These two are crossed.
                                               {optOpaque, Message::PreviewShadowHint},
                                               {optShadow, Message::OpaqueBoxHint}};
  for (const auto& [control, message] : rows) Tells(control, message);
  for (Label& label : lblDuration) Tells(label, Message::DurationPerCharacterHint);
  for (Label& label : lblTolerance) Tells(label, Message::ToleranceHint);
  lblShort.Hovered.Connect([this] { ShowSettingsDetails(Fill(strings_[Message::ShortCaptionsHint], kShortLength)); });
  lblMedium.Hovered.Connect(
      [this] { ShowSettingsDetails(Fill(strings_[Message::MediumCaptionsHint], kMediumLength)); });
  lblLong.Hovered.Connect([this] { ShowSettingsDetails(Fill(strings_[Message::LongCaptionsHint], kMediumLength)); });
  fraCharset.Hovered.Connect([this] {
    ShowSettingsDetails(Paragraphs(strings_[Message::EncodingHint], strings_[Message::ReloadAfterCharset]));
  });
  lblComplete.Hovered.Connect([this] { ShowSettingsDetails(parts_.languages.CompletionHint(percent_)); });
}

std::vector<Text> SettingsDialog::DetailTexts() const {
  std::vector<Text> texts = {Paragraphs(strings_[Message::ImmediateChangeHint], strings_[Message::RuleNotInReport]),
                             Paragraphs(strings_[Message::EncodingHint], strings_[Message::ReloadAfterCharset]),
                             parts_.languages.CompletionHint(percent_)};
  for (const Message message : {Message::RulesPageHint,
                                Message::KeyboardShortcutsHint,
                                Message::PlayerPageHint,
                                Message::PreviewPageHint,
                                Message::LanguagePageHint,
                                Message::SampleDuringPlayback,
                                Message::AutosplitLinesHint,
                                Message::AvoidCollisionHint,
                                Message::AutomaticLimitHint,
                                Message::RemoveCreditsHint,
                                Message::DurationPerCharacterHint,
                                Message::ToleranceHint,
                                Message::ShortCaptionsHint,
                                Message::MediumCaptionsHint,
                                Message::LongCaptionsHint,
                                Message::EnableShortcutsHint,
                                Message::AutofitVideoHint,
                                Message::PlayerControlsHint,
                                Message::VsFilterFound,
                                Message::VsFilterDisableHint,
                                Message::VsFilterHideHint,
                                Message::VsFilterConfigureHint,
                                Message::VsFilterHint,
                                Message::FollowSubtitlesHint,
                                Message::SaveSettingsHint,
                                Message::ResetSectionHint,
                                Message::OpaqueBoxHint,
                                Message::PreviewShadowHint,
                                Message::ClassicMannerHint,
                                Message::RulesOnLoadHint}) {
    texts.push_back(strings_[message]);
  }
  return texts;
}

void SettingsDialog::WirePageHover() {
  for (std::size_t i = 0; i < kPages; ++i) {
    lblMenu[i].Hovered.Connect([this, i] { PointAtMenu(i); });
    lblMenu[i].Clicked.Connect([this, i] { ShowSettingsPage(i); });
    imgMenu[i].Hovered.Connect([this, i] { PointAtMenu(i); });
    imgMenu[i].MouseDown.Connect([this, i](const MouseEvent& mouse) {
      if (mouse.button == MouseButton::Left) ShowSettingsPage(i);
    });
    picOptions[i].Hovered.Connect([this, i] {
      ShowSettingsDetails(strings_[kOverPage[i]]);
      ClosePanels();
      LeaveMenu();
    });
  }
  picMenu.Hovered.Connect([this] {
    ShowSettingsDetails({});
    LeaveMenu();
  });
  Hovered.Connect([this] {
    ClosePanels();
    LeaveMenu();
  });
}

void SettingsDialog::PointAtMenu(std::size_t entry) {
  ShowSettingsDetails(strings_[kOverMenu[entry]]);
  for (std::size_t i = 0; i < kPages; ++i) lblMenu[i].SetUnderlined(i == entry);
}

void SettingsDialog::RenewDetails() {
  if (lblDetails.Visible()) ShowSettingsDetails(strings_[kOverPage[page_]]);
}

void SettingsDialog::LeaveMenu() {
  for (Label& label : lblMenu) label.SetUnderlined(false);
}

std::array<SettingsDialog::Panel, 3> SettingsDialog::Panels() {
  return {{{chkAutoJoin, imgAutoJoin, picAutoJoin, 50},
           {chkDuration, imgDuration, picDuration, 142},
           {chkCredits, imgCredits, picCredits, 70}}};
}

void SettingsDialog::WirePanels() {
  chkAutoSplit.Hovered.Connect([this] {
    ShowSettingsDetails(strings_[Message::AutosplitLinesHint]);
    ClosePanels();
  });
  chkCollision.Hovered.Connect([this] {
    ShowSettingsDetails(strings_[Message::AvoidCollisionHint]);
    ClosePanels();
  });
  // The focus comes here by the keyboard without crossing the page.
  cmbApply.Hovered.Connect([this] {
    ShowSettingsDetails(strings_[kOverPage[0]]);
    ClosePanels();
  });
  const std::array<std::function<Text()>, 3> texts = {
      [this] { return Paragraphs(strings_[Message::ImmediateChangeHint], strings_[Message::RuleNotInReport]); },
      [this] { return strings_[Message::AutomaticLimitHint]; },
      [this] { return strings_[Message::RemoveCreditsHint]; }};
  const std::array<Panel, 3> panels = Panels();
  for (std::size_t i = 0; i < panels.size(); ++i) {
    const auto rest = [this, i, text = texts[i]] {
      ShowSettingsDetails(text());
      OpenPanel(i);
    };
    panels[i].check.Hovered.Connect(rest);
    panels[i].image.MouseDown.Connect([rest](const MouseEvent&) { rest(); });
    // The pointer in a panel leaves all as it is.
    panels[i].area.Hovered.Connect([] {});
    panels[i].image.Hovered.Connect([] {});
  }
}

void SettingsDialog::OpenPanel(std::size_t panel) {
  const std::array<Panel, 3> panels = Panels();
  for (std::size_t i = 0; i < panels.size(); ++i) {
    if (i == panel) continue;
    panels[i].area.SetVisible(false);
    panels[i].check.SetHighlighted(false);
  }
  panels[panel].area.SetHeight(panels[panel].height);
  panels[panel].area.SetVisible(true);
  panels[panel].check.SetHighlighted(true);
}

void SettingsDialog::ClosePanels() {
  for (const Panel& panel : Panels()) {
    panel.area.SetVisible(false);
    panel.check.SetHighlighted(false);
  }
}

}  // namespace cuewright

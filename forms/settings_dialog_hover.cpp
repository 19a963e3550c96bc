#include "forms/settings_dialog.h"

// What the details area tells while the pointer moves, and the panels that it opens.

namespace cuewright {
namespace {

constexpr std::array<std::size_t, SettingsWindow::kPages> kOverMenu = {192, 122, 310, 194, 191};
constexpr std::array<std::size_t, SettingsWindow::kPages> kOverPage = {192, 122, 310, 222, 191};
constexpr std::size_t kClassicDetails = 1001;
constexpr std::size_t kRulesOnLoadDetails = 1037;
/// The most characters of a short and of a medium caption.
constexpr TextView kShortLength = u"5";
constexpr TextView kMediumLength = u"15";

Text Paragraphs(TextView first, TextView second) {
  return Text(first).append(kLineEnd).append(kLineEnd).append(second);
}

}  // namespace

void SettingsDialog::Tells(Control& control, std::size_t message) {
  control.Hovered.Connect([this, message] { ShowSettingsDetails(strings_[message]); });
}

void SettingsDialog::WireHover() {
  const std::pair<Control&, std::size_t> rows[] = {{lblAutoJoin, 83},
                                                   {lblUImode, 314},
                                                   {cmbUImode, 314},
                                                   {chkKeys, 200},
                                                   {chkStretch, 312},
                                                   {lblVSFilter, 421},
                                                   {optVSDisable, 423},
                                                   {optVSHide, 425},
                                                   {cmdVSFilter, 427},
                                                   {imgVSHelp, 428},
                                                   {chkFollow, 253},
                                                   {chkClassic, kClassicDetails},
                                                   {chkRulesOnLoad, kRulesOnLoadDetails},
                                                   {cmdOK, 251},
                                                   {cmdReset, 250},
                                                   // These two are crossed.
                                                   {optOpaque, 256},
                                                   {optShadow, 255}};
  for (const auto& [control, message] : rows) Tells(control, message);
  for (Label& label : lblDuration) Tells(label, 209);
  for (Label& label : lblTolerance) Tells(label, 210);
  lblShort.Hovered.Connect([this] { ShowSettingsDetails(Fill(strings_[204], kShortLength)); });
  lblMedium.Hovered.Connect([this] { ShowSettingsDetails(Fill(strings_[205], kMediumLength)); });
  lblLong.Hovered.Connect([this] { ShowSettingsDetails(Fill(strings_[206], kMediumLength)); });
  fraCharset.Hovered.Connect([this] { ShowSettingsDetails(Paragraphs(strings_[78], strings_[79])); });
  lblComplete.Hovered.Connect([this] { ShowSettingsDetails(parts_.languages.CompletionHint(percent_)); });
}

std::vector<Text> SettingsDialog::DetailTexts() const {
  std::vector<Text> texts = {Paragraphs(strings_[83], strings_[248]), Paragraphs(strings_[78], strings_[79]),
                             parts_.languages.CompletionHint(percent_)};
  for (const std::size_t message : {192, 122, 310, 194, 191, 222, 273, 197, 199, 430, 209, 210, 204, 205,  206,
                                    200, 312, 314, 421, 423, 425, 427, 428, 253, 251, 250, 255, 256, 1001, 1037}) {
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
    ShowSettingsDetails(strings_[273]);
    ClosePanels();
  });
  chkCollision.Hovered.Connect([this] {
    ShowSettingsDetails(strings_[197]);
    ClosePanels();
  });
  // The focus comes here by the keyboard without crossing the page.
  cmbApply.Hovered.Connect([this] {
    ShowSettingsDetails(strings_[kOverPage[0]]);
    ClosePanels();
  });
  const std::array<std::function<Text()>, 3> texts = {[this] { return Paragraphs(strings_[83], strings_[248]); },
                                                      [this] { return strings_[199]; },
                                                      [this] { return strings_[430]; }};
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

#include "forms/rules_page.h"

#include <algorithm>

#include "core/numbers.h"

namespace cuewright {
namespace {

/// The most characters of a short and of a medium caption.
constexpr TextView kShortLength = u"5";
constexpr TextView kMediumLength = u"15";
constexpr std::array<Message, 3> kLengthClasses = {Message::ShortCaptions, Message::MediumCaptions,
                                                   Message::LongCaptions};
constexpr int kLastApplyWhen = 2;

}  // namespace

RulesPage::RulesPage(const Place& place, TimingCapture& capture)
    : SettingsPage(place, {Message::TimingManagement, Message::RulesPageHint, Message::RulesPageHint}),
      capture_(capture),
      panels_{{{chkAutoJoin, imgAutoJoin, picAutoJoin, 50, {Message::ImmediateChangeHint, Message::RuleNotInReport}},
               {chkDuration, imgDuration, picDuration, 142, Message::AutomaticLimitHint},
               {chkCredits, imgCredits, picCredits, 70, Message::RemoveCreditsHint}}} {
  Shows(chkAutoSplit, Message::AutosplitLines, Message::AutosplitLinesHint);
  Shows(chkCollision, Message::AvoidCollision, Message::AvoidCollisionHint);
  Shows(chkAutoJoin, Message::ImmediateChange);
  Shows(chkDuration, Message::AutomaticLimit);
  Shows(lblShort, Message::ShortCaptions, Hint{Message::ShortCaptionsHint, kShortLength});
  Shows(lblMedium, Message::MediumCaptions, Hint{Message::MediumCaptionsHint, kMediumLength});
  Shows(lblLong, Message::LongCaptions, Hint{Message::LongCaptionsHint, kMediumLength});
  Shows(chkCredits, Message::RemoveCredits);
  Shows(lblCredits, Message::RemoveLinesWith);
  Shows(lblApply, Message::WhenToApplyRules);
  Shows(chkRulesOnLoad, Message::RulesOnLoad, Message::RulesOnLoadHint);
  details_.Explain(lblAutoJoin, Message::ImmediateChangeHint);
  for (Label& label : lblDuration) details_.Explain(label, Message::DurationPerCharacterHint);
  for (Label& label : lblTolerance) details_.Explain(label, Message::ToleranceHint);
  Speaks(cmbApply, Message::WhenToApplyRules);
  Speaks(sldAutoJoin, Message::NearbyFactor);
  Speaks(txtCredits, Message::RemoveLinesWith);
  Speaks(picAutoJoin, Message::ImmediateChange);
  Speaks(picDuration, Message::AutomaticLimit);
  Speaks(picCredits, Message::RemoveCredits);
  WireRules();
  WireCredits();
  WirePanels();
}

void RulesPage::WireRules() {
  for (CheckBox* check : {&chkAutoJoin, &chkDuration, &chkCredits}) {
    check->Clicked.Connect([this] { EnableControls(); });
  }
  chkDuration.Clicked.Connect([this] { capture_.ShowModeTexts(); });
  Follows(sldAutoJoin);
  for (Slider& slider : sldDuration) Follows(slider);
  for (Slider& slider : sldTolerance) Follows(slider);
  sldAutoJoin.Scrolled.Connect([this] { ShowValues(); });
  for (auto* sliders : {&sldDuration, &sldTolerance}) {
    for (Slider& slider : *sliders) slider.Scrolled.Connect([this] { ShowValues(); });
  }
  cmbApply.Chosen.Connect([this] {
    options_.applyWhen = Checked8(std::max(cmbApply.Index(), 0));
    capture_.ShowModeTexts();
  });
}

void RulesPage::WireCredits() {
  txtCredits.Edited.Connect([this] {
    options_.creditWords = TrimBlanks(txtCredits.GetText());
    creditsOpen_ = true;
  });
  txtCredits.LostFocus.Connect([this] { TakeCredits(); });
}

void RulesPage::WirePanels() {
  for (CheckBox* check : {&chkAutoSplit, &chkCollision}) {
    check->Hovered.Connect([this] { ClosePanels(); });
  }
  // By the keyboard the focus comes here without the page being told that the pointer left the panels.
  cmbApply.Hovered.Connect([this] {
    details_.Show(GetHeading().overPage);
    ClosePanels();
  });
  for (const Panel& panel : panels_) {
    details_.Explain(panel.check, panel.hint);
    panel.check.Hovered.Connect([this, &panel] { OpenPanel(panel); });
    panel.image.MouseDown.Connect([this, &panel](const MouseEvent&) {
      details_.Show(panel.hint);
      OpenPanel(panel);
    });
    // The empty slots matter: a control with a listener takes the motion, and the page, which would close the panel,
    // isn't told.
    panel.area.Hovered.Connect([] {});
    panel.image.Hovered.Connect([] {});
    Speaks(panel.image, Message::Options);
  }
}

void RulesPage::OpenPanel(const Panel& panel) {
  for (const Panel& other : panels_) {
    if (&other == &panel) continue;
    other.area.SetVisible(false);
    other.check.SetHighlighted(false);
  }
  panel.area.SetHeight(panel.height);
  panel.area.SetVisible(true);
  panel.check.SetHighlighted(true);
}

void RulesPage::ClosePanels() {
  for (const Panel& panel : panels_) {
    panel.area.SetVisible(false);
    panel.check.SetHighlighted(false);
  }
}

void RulesPage::Fill() {
  SettingsPage::Fill();
  txtCredits.SetText(options_.creditWords);
  cmbApply.SetIndex(std::min<int>(options_.applyWhen, kLastApplyWhen));
  ShowValues();
  EnableControls();
}

void RulesPage::ApplyLanguage() {
  SettingsPage::ApplyLanguage();
  ShowItems(cmbApply, {Message::OnLoadOnly, Message::DuringSubtitlingOnly, Message::OnLoadAndSubtitling});
  ShowValues();
}

void RulesPage::ShowValues() {
  lblAutoJoin.SetText(strings_[Message::NearbyFactor] + u" " + Decimal(options_.nearMs) + u" " +
                      strings_[Message::Milliseconds]);
  for (std::size_t k = 0; k < kLengthClasses.size(); ++k) {
    lblDuration[k].SetText(
        cuewright::Fill(strings_[Message::DurationPerCharacter], Decimal(options_.durationPerCharacter[k])));
    lblTolerance[k].SetText(cuewright::Fill(strings_[Message::Tolerance], Decimal(options_.durationTolerance[k])));
    const Text length = strings_[kLengthClasses[k]] + u", ";
    sldDuration[k].SetSpokenName(length + lblDuration[k].GetText());
    sldTolerance[k].SetSpokenName(length + lblTolerance[k].GetText());
  }
}

void RulesPage::EnableControls() {
  const auto enable = [](bool on, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->SetEnabled(on);
  };
  enable(chkAutoJoin.Value(), {&lblAutoJoin, &sldAutoJoin});
  enable(chkDuration.Value(), {&lblShort, &lblMedium, &lblLong});
  for (std::size_t k = 0; k < kLengthClasses.size(); ++k) {
    enable(chkDuration.Value(), {&lblDuration[k], &sldDuration[k], &lblTolerance[k], &sldTolerance[k]});
  }
  enable(chkCredits.Value(), {&lblCredits, &txtCredits});
}

void RulesPage::TakeOpenFields() {
  if (creditsOpen_) TakeCredits();
}

void RulesPage::TakeCredits() {
  creditsOpen_ = false;
  Text credits(TrimBlanks(ReplaceAll(txtCredits.GetText(), u",,", u",")));
  if (credits.starts_with(u',')) credits.erase(0, 1);
  if (credits.ends_with(u',')) credits.pop_back();
  txtCredits.SetText(credits);
  options_.creditWords = credits;
}

}  // namespace cuewright

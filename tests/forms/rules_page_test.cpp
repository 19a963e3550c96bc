#include "forms/rules_page.h"

#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

using SettingsPanels = testing::SettingsRig;
using SettingsRules = testing::SettingsRig;

TEST_F(SettingsPanels, OpenUnderTheirCheckOneAtATime) {
  SettingsDialog& d = Dialog();
  const std::tuple<CheckBox&, Picture&, int> rows[] = {{d.rules.chkAutoJoin, d.rules.picAutoJoin, 50},
                                                       {d.rules.chkDuration, d.rules.picDuration, 142},
                                                       {d.rules.chkCredits, d.rules.picCredits, 70}};
  for (const auto& [check, panel, height] : rows) {
    Hover(check);
    EXPECT_EQ(panel.Height(), height);
    for (const auto& [otherCheck, otherPanel, unused] : rows) {
      EXPECT_EQ(otherPanel.Visible(), &otherPanel == &panel);
      EXPECT_EQ(otherCheck.Highlighted(), &otherCheck == &check);
    }
  }
}

TEST_F(SettingsPanels, AClickOnTheImageOpensTheSamePanel) {
  Dialog().rules.imgDuration.PressMouse({MouseButton::Left, 0, 0});
  EXPECT_TRUE(Dialog().rules.picDuration.Visible());
  EXPECT_EQ(Dialog().details.lblDetails.GetText(), program->strings[Message::AutomaticLimitHint]);
}

TEST_F(SettingsPanels, ThePageAndTheOtherChecksCloseThem) {
  SettingsDialog& d = Dialog();
  const std::function<void()> ways[] = {[&] { Hover(d.picOptions[0]); }, [&] { Hover(d.rules.chkAutoSplit); },
                                        [&] { Hover(d.rules.chkCollision); }, [&] { d.Hover(); },
                                        [&] { Hover(d.rules.cmbApply); }};
  for (const auto& way : ways) {
    Hover(d.rules.chkDuration);
    ASSERT_TRUE(d.rules.picDuration.Visible());
    way();
    EXPECT_FALSE(d.rules.picDuration.Visible());
    EXPECT_FALSE(d.rules.chkDuration.Highlighted());
  }
}

TEST_F(SettingsPanels, ThePointerInAPanelLeavesItOpen) {
  Hover(Dialog().rules.chkDuration);
  Hover(Dialog().rules.picDuration);
  Hover(Dialog().rules.lblDuration[1]);
  EXPECT_TRUE(Dialog().rules.picDuration.Visible());
}

TEST_F(SettingsRules, ChecksWriteTheirFieldsAtOnce) {
  const std::pair<CheckBox&, std::uint8_t AppOptions::*> rows[] = {
      {Dialog().rules.chkAutoSplit, &AppOptions::autoSplit},
      {Dialog().rules.chkCollision, &AppOptions::avoidCollision},
      {Dialog().rules.chkAutoJoin, &AppOptions::autoJoin},
      {Dialog().rules.chkDuration, &AppOptions::limitDuration},
      {Dialog().rules.chkCredits, &AppOptions::removeCredits}};
  for (const auto& [check, field] : rows) {
    ASSERT_EQ(Options().*field, 1);
    check.Click();
    EXPECT_EQ(Options().*field, 0) << check.Name();
    check.Click();
    EXPECT_EQ(Options().*field, 1) << check.Name();
  }
}

TEST_F(SettingsRules, AClearedCheckDisablesItsPanel) {
  SettingsDialog& d = Dialog();
  d.rules.chkAutoJoin.Click();
  d.rules.chkDuration.Click();
  d.rules.chkCredits.Click();
  const Control* controls[] = {&d.rules.lblAutoJoin,     &d.rules.sldAutoJoin,    &d.rules.lblShort,
                               &d.rules.lblLong,         &d.rules.sldDuration[0], &d.rules.lblTolerance[2],
                               &d.rules.sldTolerance[2], &d.rules.lblCredits,     &d.rules.txtCredits};
  for (const Control* control : controls) EXPECT_FALSE(control->Enabled()) << control->Name();
  d.rules.chkAutoJoin.Click();
  d.rules.chkDuration.Click();
  d.rules.chkCredits.Click();
  for (const Control* control : controls) EXPECT_TRUE(control->Enabled()) << control->Name();
}

TEST_F(SettingsRules, BarsWriteTenTimesTheirValue) {
  Move(Dialog().rules.sldAutoJoin, 40);
  Move(Dialog().rules.sldDuration[1], 1);
  Move(Dialog().rules.sldTolerance[0], 30);
  EXPECT_EQ(Options().nearMs, 400);
  EXPECT_EQ(Dialog().rules.lblAutoJoin.GetText(), u"Nearby factor: 400 milliseconds");
  EXPECT_EQ(Options().durationPerCharacter[1], 10);
  EXPECT_EQ(Dialog().rules.lblDuration[1].GetText(), u"Duration per character: 10 ms");
  EXPECT_EQ(Options().durationTolerance[0], 300);
  EXPECT_EQ(Dialog().rules.sldAutoJoin.Min(), 1);
  EXPECT_EQ(Dialog().rules.sldDuration[0].Max(), 35);
}

TEST_F(SettingsRules, TheModeTellsTheLimitWhileTheDialogIsOpen) {
  EXPECT_EQ(Window().optPress.GetText(), u"Press and hold (recommended)");
  Dialog().rules.cmbApply.Choose(1);
  EXPECT_EQ(Options().applyWhen, 1);
  EXPECT_EQ(Window().optPress.GetText(), u"Press and hold (recommended) [auto]");
  Dialog().rules.chkDuration.Click();
  EXPECT_EQ(Window().optPress.GetText(), u"Press and hold (recommended)");
}

TEST_F(SettingsRules, ACreditsListLosesDoubledAndOuterCommasOnLeavingTheField) {
  Type(Dialog().rules.txtCredits, u" ,,@,,www ");
  EXPECT_EQ(Options().creditWords, u",,@,,www");
  Dialog().rules.txtCredits.LoseFocus();
  EXPECT_EQ(Dialog().rules.txtCredits.GetText(), u"@,www");
  EXPECT_EQ(Options().creditWords, u"@,www");
}

TEST_F(SettingsRules, DoubledCommasGoOnceOnly) {
  Type(Dialog().rules.txtCredits, u"a,,,,b,");
  Dialog().rules.txtCredits.LoseFocus();
  EXPECT_EQ(Options().creditWords, u"a,,b");
}

TEST_F(SettingsRules, AnEmptiedCreditsListIsSavedAsEmptyAndTheNextStartTurnsTheRuleOff) {
  Type(Dialog().rules.txtCredits, u"");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"T_CREDITSTEXT"), u"");
  EXPECT_EQ(Stored(u"T_CREDITS"), u"1");
  EXPECT_EQ(Options().removeCredits, 1);
  Reopen();
  EXPECT_EQ(Options().removeCredits, 0);
  EXPECT_FALSE(Dialog().rules.chkCredits.Value());
}

}  // namespace
}  // namespace cuewright

#include "forms/settings_dialog.h"

#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

using SettingsPages = testing::SettingsRig;
using SettingsHover = testing::SettingsRig;
using SettingsTest = testing::SettingsRig;

TEST_F(SettingsPages, OpenAtTheFirst) {
  EXPECT_EQ(Dialog().Page(), 0u);
  EXPECT_EQ(Dialog().Title(), u"General Settings");
  EXPECT_EQ(Dialog().lblTop.GetText(), u"Timing Management");
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(Dialog().picOptions[i].Visible(), i == 0) << i;
  EXPECT_FALSE(Dialog().details.lblDetailsTitle.Visible());
}

TEST_F(SettingsPages, AClickOnTheMenuShowsOneAndTheHeadingFollows) {
  const TextView titles[] = {u"Timing Management", u"Keyboard Shortcuts", u"Player Settings", u"Subtitle Preview",
                             u"Language and Encoding"};
  for (std::size_t page = 0; page < 5; ++page) {
    EXPECT_EQ(Dialog().lblMenu[page].GetText(), titles[page]);
    Dialog().lblMenu[page].Click();
    EXPECT_EQ(Dialog().lblTop.GetText(), titles[page]);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(Dialog().picOptions[i].Visible(), i == page);
  }
  Dialog().ShowSettingsPage(0);
  Dialog().imgMenu[3].PressMouse({MouseButton::Right, 0, 0});
  EXPECT_EQ(Dialog().Page(), 0u);
  Dialog().imgMenu[3].PressMouse({MouseButton::Left, 0, 0});
  EXPECT_EQ(Dialog().Page(), 3u);
}

TEST_F(SettingsPages, ANumberBeyondTheLastShowsTheLast) {
  Dialog().ShowSettingsPage(9);
  EXPECT_EQ(Dialog().Page(), 4u);
}

TEST_F(SettingsPages, ShowAllValuesOfTheOptions) {
  AppOptions& o = Options();
  o.autoSplit = 0;
  o.nearMs = 140;
  o.durationPerCharacter = {100, 20, 350};
  o.durationTolerance = {10, 300, 90};
  o.applyWhen = 2;
  o.rewindSeconds = 7;
  o.playerControls = u"mini";
  o.previewOpaque = true;
  o.previewShadowDepth = 3;
  o.previewHeight = 40;
  o.followCaptions = false;
  Dialog().FillSettingsControls();
  EXPECT_FALSE(Dialog().rules.chkAutoSplit.Value());
  EXPECT_TRUE(Dialog().rules.chkCollision.Value());
  EXPECT_EQ(Dialog().rules.sldAutoJoin.Value(), 14);
  EXPECT_EQ(Dialog().rules.lblAutoJoin.GetText(), u"Nearby factor: 140 milliseconds");
  EXPECT_EQ(Dialog().rules.sldDuration[2].Value(), 35);
  EXPECT_EQ(Dialog().rules.lblDuration[2].GetText(), u"Duration per character: 350 ms");
  EXPECT_EQ(Dialog().rules.sldTolerance[1].Value(), 30);
  EXPECT_EQ(Dialog().rules.lblTolerance[1].GetText(), u"Tolerance: 300 ms");
  EXPECT_EQ(Dialog().rules.cmbApply.GetText(), u"On file loading and subtitling process");
  EXPECT_EQ(Dialog().keys.txtPosition[0].GetText(), u"7");
  EXPECT_EQ(Dialog().player.cmbUImode.GetText(), u"Show basic controls only");
  EXPECT_TRUE(Dialog().preview.optOpaque.Value());
  EXPECT_FALSE(Dialog().preview.optShadow.Value());
  EXPECT_FALSE(Dialog().preview.sldShadow.Enabled());
  EXPECT_EQ(Dialog().preview.lblShadow.GetText(), u"Shadow depth: 3");
  EXPECT_EQ(Dialog().preview.lblHeight.GetText(), u"Subtitle preview placement: 40%");
  EXPECT_EQ(Dialog().preview.sldHeight.Value(), 40);
  EXPECT_FALSE(Dialog().preview.chkFollow.Value());
}

TEST_F(SettingsPages, FillingTheControlsChangesNoOption) {
  Options().nearMs = 143;
  Options().applyWhen = 9;
  Dialog().FillSettingsControls();
  EXPECT_EQ(Options().nearMs, 143);
  EXPECT_EQ(Options().applyWhen, 9);
}

TEST_F(SettingsHover, EachControlTellsItsDetails) {
  SettingsDialog& d = Dialog();
  const std::pair<Control&, Message> rows[] = {{d.rules.chkAutoSplit, Message::AutosplitLinesHint},
                                               {d.rules.chkCollision, Message::AvoidCollisionHint},
                                               {d.rules.lblAutoJoin, Message::ImmediateChangeHint},
                                               {d.rules.chkDuration, Message::AutomaticLimitHint},
                                               {d.rules.chkCredits, Message::RemoveCreditsHint},
                                               {d.rules.lblDuration[0], Message::DurationPerCharacterHint},
                                               {d.rules.lblTolerance[2], Message::ToleranceHint},
                                               {d.keys.chkKeys, Message::EnableShortcutsHint},
                                               {d.player.chkStretch, Message::AutofitVideoHint},
                                               {d.player.cmbUImode, Message::PlayerControlsHint},
                                               {d.player.lblUImode, Message::PlayerControlsHint},
                                               {d.player.lblVSFilter, Message::VsFilterFound},
                                               {d.player.optVSDisable, Message::VsFilterDisableHint},
                                               {d.player.optVSHide, Message::VsFilterHideHint},
                                               {d.player.cmdVSFilter, Message::VsFilterConfigureHint},
                                               {d.player.imgVSHelp, Message::VsFilterHint},
                                               {d.preview.chkFollow, Message::FollowSubtitlesHint},
                                               {d.cmdOK, Message::SaveSettingsHint},
                                               {d.cmdReset, Message::ResetSectionHint}};
  for (const auto& [control, message] : rows) {
    control.Hover();
    EXPECT_EQ(d.details.lblDetails.GetText(), program->strings[message]) << control.Name();
    EXPECT_TRUE(d.details.lblDetailsTitle.Visible());
    EXPECT_TRUE(d.details.fraDetails.Visible());
  }
}

TEST_F(SettingsHover, TheBackgroundChoicesTellEachOthersDetails) {
  Hover(Dialog().preview.optOpaque);
  EXPECT_EQ(Details(), "Activates the preview font shadowing.");
  Hover(Dialog().preview.optShadow);
  EXPECT_EQ(Details(), "Activates the opaque box behind the subtitle preview for a more clear visualization.");
}

TEST_F(SettingsHover, TheJoiningCheckAddsTheNoteAboutTheReport) {
  Hover(Dialog().rules.chkAutoJoin);
  EXPECT_EQ(Details(),
            "This will make immediate the change of captions with an offset lower than the indicated.\r\n\r\n"
            "Note: The application of this rule is not added to the Report.");
  Hover(Dialog().language.fraCharset);
  EXPECT_TRUE(Details().starts_with("The character encoding is applied only"));
  EXPECT_TRUE(Details().ends_with(
      "\r\n\r\nAfter changing the character set you must reload the opened subtitle or text file."));
}

TEST_F(SettingsHover, TheLengthClassesTellTheirBounds) {
  Hover(Dialog().rules.lblShort);
  EXPECT_EQ(Details(), "Short captions have up to 5 characters.");
  Hover(Dialog().rules.lblMedium);
  EXPECT_EQ(Details(), "Medium captions have up to 15 characters.");
  Hover(Dialog().rules.lblLong);
  EXPECT_EQ(Details(), "Long captions have more than 15 characters.");
}

TEST_F(SettingsHover, MenuEntriesAndPagesHaveTheirOwnTexts) {
  const Message overMenu[] = {Message::RulesPageHint, Message::KeyboardShortcutsHint, Message::PlayerPageHint,
                              Message::PreviewPageHint, Message::LanguagePageHint};
  const Message overPage[] = {Message::RulesPageHint, Message::KeyboardShortcutsHint, Message::PlayerPageHint,
                              Message::SampleDuringPlayback, Message::LanguagePageHint};
  for (std::size_t i = 0; i < 5; ++i) {
    Hover(Dialog().lblMenu[i]);
    EXPECT_EQ(Dialog().details.lblDetails.GetText(), program->strings[overMenu[i]]);
    for (std::size_t k = 0; k < 5; ++k) EXPECT_EQ(Dialog().lblMenu[k].Underlined(), k == i);
    Hover(Dialog().picOptions[i]);
    EXPECT_EQ(Dialog().details.lblDetails.GetText(), program->strings[overPage[i]]);
    EXPECT_FALSE(Dialog().lblMenu[i].Underlined());
  }
}

TEST_F(SettingsHover, TheBareMenuColumnClearsDetailsAndUnderline) {
  Hover(Dialog().lblMenu[2]);
  Hover(Dialog().picMenu);
  EXPECT_EQ(Details(), "");
  EXPECT_FALSE(Dialog().details.lblDetailsTitle.Visible());
  EXPECT_FALSE(Dialog().details.fraDetails.Visible());
  EXPECT_FALSE(Dialog().details.lblDetails.Visible());
  EXPECT_FALSE(Dialog().lblMenu[2].Underlined());
}

TEST_F(SettingsPages, TheMenuOpensThemOnce) {
  Dialog().Close();
  int runs = 0;
  program->dialogs.settings.Opened.Connect([&] { ++runs; });
  Window().mnuGSettings.Click();
  Window().mnuGSettings.Click();
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(Dialog().IsOpen());
}

TEST_F(SettingsPages, TheirHelpIsThatOfThePageOnShow) {
  for (const auto& [page, file] : {std::pair{0u, u"settings_timing.html"}, std::pair{4u, u"settings_language.html"}}) {
    Dialog().ShowSettingsPage(page);
    program->help.OpenFor("frmSettings");
    EXPECT_TRUE(program->help.PagePath().ends_with(file)) << ToUtf8(program->help.PagePath());
  }
}

TEST_F(SettingsTest, TheClassicMannerIsTakenAtOnceAndStoredByOk) {
  Dialog().ShowSettingsPage(4);
  EXPECT_FALSE(Dialog().language.chkClassic.Value());
  Hover(Dialog().language.chkClassic);
  EXPECT_EQ(Details(), ToUtf8(program->strings[Message::ClassicMannerHint]));
  Dialog().language.chkClassic.Click();
  EXPECT_TRUE(Options().manner.Classic());
  EXPECT_EQ(Stored(u"Classic"), u"?");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"Classic"), u"1");
  Reopen();
  EXPECT_TRUE(Options().manner.Classic());
  EXPECT_TRUE(Dialog().language.chkClassic.Value());
  Dialog().ShowSettingsPage(4);
  Dialog().cmdReset.Click();
  EXPECT_FALSE(Options().manner.Classic());
  EXPECT_FALSE(Dialog().language.chkClassic.Value());
}

}  // namespace
}  // namespace cuewright

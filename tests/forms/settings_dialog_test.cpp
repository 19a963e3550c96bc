#include "forms/settings_dialog.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

constexpr std::size_t kSpanish = 1;
constexpr std::size_t kArabic = 14;
constexpr std::size_t kRussian = 23;

/// A system whose user works with code page 1252.
struct WesternLocale final : Locale {
  Text GetLocaleText(std::int32_t locale, std::int32_t item) const override {
    if (item == kAnsiCodePage) return locale == 1049 ? u"1251" : u"1252";
    if (item == kEnglishLanguageName) return locale == 1049 ? u"Russian" : language;
    return u"native";
  }
  Text language = u"English";
};

struct SettingsTest : testing::ProgramFixture {
  SettingsTest() { StartIn("ENGLISH"); }

  void StartIn(const std::string& language) {
    folder.Write("settings.ini", "[Brakemoor Works\\Cuewright]\nLanguage=" + language + "\n");
    Reopen();
  }
  void Reopen() {
    userLocale = &locale;
    Restart({});
    Options().nearMs = AppOptions().nearMs;
    Dialog().Open();
  }
  SettingsDialog& Dialog() { return program->dialogs.settings; }
  AppOptions& Options() { return program->options; }
  std::string Details() { return ToUtf8(Dialog().details.lblDetails.GetText()); }
  Text Stored(TextView key) { return program->store.GetSetting(u"Cuewright", key, u"?"); }
  template <class C>
  void Hover(C& control) {
    control.Hover();
  }
  static void Type(TextBox& box, const Text& text) {
    box.SetText(text);
    box.NoteEdited();
  }
  KeyEvent Press(TextBox& box, char16_t character) {
    KeyEvent key;
    key.character = character;
    key.code = character == 0 ? kKeyBackspace : character;
    box.TypeKey(key);
    return key;
  }
  static void Move(Slider& slider, int value) { slider.Move(value); }
  static void Choose(OptionButton& option) { option.Click(); }

  WesternLocale locale;
};

using SettingsPages = SettingsTest;
using SettingsHover = SettingsTest;
using SettingsPanels = SettingsTest;
using SettingsRules = SettingsTest;
using SettingsKeys = SettingsTest;
using SettingsPlayer = SettingsTest;
using SettingsPreview = SettingsTest;
using SettingsLanguage = SettingsTest;
using SettingsStoring = SettingsTest;
using SettingsReset = SettingsTest;

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

TEST_F(SettingsKeys, ALowerCaseLetterIsStoredAndShownInUpperCase) {
  TextBox& box = Dialog().keys.txtHotkey[0];
  EXPECT_EQ(box.GetText(), u"Z");
  EXPECT_TRUE(Press(box, u'a').handled);
  EXPECT_EQ(Options().playKey, 65);
  EXPECT_EQ(box.GetText(), u"A");
  EXPECT_EQ(box.SelLength(), 1);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SettingsKeys, ADigitShowsTheMessageAndChangesNothing) {
  TextBox& box = Dialog().keys.txtHotkey[3];
  EXPECT_TRUE(Press(box, u'1').handled);
  EXPECT_EQ(LastBox(), "Please enter a key from A to Z only.");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Information);
  EXPECT_EQ(boxes.shown.back().title, u"");
  EXPECT_EQ(Options().startKey, 66);
  EXPECT_EQ(box.GetText(), u"B");
  EXPECT_TRUE(Press(box, 0).handled);
  EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(SettingsKeys, EachFieldHasItsShortcut) {
  std::uint8_t AppOptions::*const fields[] = {&AppOptions::playKey,     &AppOptions::pauseKey, &AppOptions::stopKey,
                                              &AppOptions::startKey,    &AppOptions::nextKey,  &AppOptions::endKey,
                                              &AppOptions::previousKey, &AppOptions::jumpKey,  &AppOptions::rewindKey,
                                              &AppOptions::forwardKey};
  const TextView letters = u"ZXCBNMDFWE";
  for (std::size_t k = 0; k < 10; ++k) {
    EXPECT_EQ(Dialog().keys.txtHotkey[k].GetText(), letters.substr(k, 1));
    // The same letter may serve twice.
    Press(Dialog().keys.txtHotkey[k], u'Q');
    EXPECT_EQ(Options().*fields[k], u'Q');
  }
}

TEST_F(SettingsKeys, PastedTextCountsOnlyAsOneLetter) {
  TextBox& box = Dialog().keys.txtHotkey[1];
  Type(box, u"k");
  EXPECT_EQ(box.GetText(), u"K");
  EXPECT_EQ(Options().pauseKey, u'K');
  Type(box, u"7");
  EXPECT_EQ(box.GetText(), u"K");
  Type(box, u"");
  EXPECT_EQ(box.GetText(), u"K");
  EXPECT_EQ(Options().pauseKey, u'K');
}

TEST_F(SettingsKeys, TheFocusSelectsTheLetter) {
  TextBox& box = Dialog().keys.txtHotkey[1];
  box.Select(0, 0);
  box.TakeFocus();
  EXPECT_EQ(box.SelLength(), 1);
}

TEST_F(SettingsKeys, TheLettersShownAreThoseOfTheStore) {
  program->store.SaveSetting(u"Cuewright", u"kPlay", u"Y");
  Dialog().Close();
  Dialog().Open();
  EXPECT_EQ(Dialog().keys.txtHotkey[0].GetText(), u"Y");
  EXPECT_EQ(Options().playKey, 90);
}

TEST_F(SettingsKeys, SecondsStayBetween2And600OnLeavingTheField) {
  const std::pair<TextView, std::int16_t> rows[] = {
      {u"601", 600}, {u"1", 2}, {u"", 2}, {u"2", 2}, {u"600", 600}, {u"99999999999", 600}, {u"30", 30}};
  for (const auto& [typed, kept] : rows) {
    Type(Dialog().keys.txtPosition[0], Text(typed));
    Dialog().keys.txtPosition[0].LoseFocus();
    EXPECT_EQ(Options().rewindSeconds, kept) << ToUtf8(typed);
    EXPECT_EQ(Dialog().keys.txtPosition[0].GetText(), Decimal(kept));
  }
  EXPECT_EQ(Options().forwardSeconds, 5);
  Type(Dialog().keys.txtPosition[1], u"12");
  Dialog().keys.txtPosition[1].LoseFocus();
  EXPECT_EQ(Options().forwardSeconds, 12);
}

TEST_F(SettingsKeys, SecondsTakeDigitsOnly) {
  for (const char16_t c : Text(u"0123456789")) EXPECT_FALSE(Press(Dialog().keys.txtPosition[0], c).handled);
  for (const char16_t c : Text(u"a-. ")) EXPECT_TRUE(Press(Dialog().keys.txtPosition[1], c).handled);
  EXPECT_TRUE(Press(Dialog().keys.txtPosition[0], 0).handled);
}

TEST_F(SettingsKeys, AClearedCheckDisablesEverythingElseOnThePage) {
  SettingsDialog& d = Dialog();
  d.keys.chkKeys.Click();
  EXPECT_EQ(Options().hotkeysOn, 0);
  for (const Control* control : std::initializer_list<const Control*>{
           &d.keys.txtHotkey[0], &d.keys.txtHotkey[9], &d.keys.lblHotkey[4], &d.keys.txtPosition[0],
           &d.keys.txtPosition[1], &d.keys.lblSeconds[0], &d.keys.lblPlayback, &d.keys.lblCaptioning}) {
    EXPECT_FALSE(control->Enabled()) << control->Name();
  }
  EXPECT_TRUE(d.keys.chkKeys.Enabled());
}

TEST_F(SettingsPlayer, FittingAndControlsReachThePlayerAtOnce) {
  Dialog().player.chkStretch.Click();
  EXPECT_EQ(Options().stretchVideo, 0);
  EXPECT_FALSE(player.stretch);
  const TextView modes[] = {u"none", u"mini", u"full"};
  for (int i = 0; i < 3; ++i) {
    Dialog().player.cmbUImode.Choose(i);
    EXPECT_EQ(Options().playerControls, modes[i]);
    EXPECT_EQ(player.uiMode, modes[i]);
  }
}

TEST_F(SettingsPlayer, WithoutTheFilterItsControlsAreDisabled) {
  SettingsDialog& d = Dialog();
  for (const Control* control :
       std::initializer_list<const Control*>{&d.player.lblVSFilter, &d.player.lblVSNotice, &d.player.optVSDisable,
                                             &d.player.optVSHide, &d.player.cmdVSFilter}) {
    EXPECT_FALSE(control->Enabled()) << control->Name();
  }
  EXPECT_TRUE(d.player.imgVSHelp.Enabled());
}

struct InstalledFilter final : VideoFilter {
  bool Installed() const override { return true; }
  bool CanConfigure() const override { return canConfigure; }
  void Configure() override { ++opened; }
  bool canConfigure = false;
  int opened = 0;
};

TEST_F(SettingsPlayer, AnInstalledFilterCanBeManaged) {
  InstalledFilter filter;
  SettingsDialog d({program->options, program->strings, program->store, program->languages, program->document,
                    program->preview, program->capture, filter,
                    Ports{files, boxes, dialogs, events, desktop, player, pickers}});
  d.Open();
  EXPECT_TRUE(d.player.optVSDisable.Enabled());
  EXPECT_FALSE(d.player.cmdVSFilter.Enabled());
  EXPECT_TRUE(d.player.optVSDisable.Value());
  Choose(d.player.optVSHide);
  EXPECT_EQ(Options().filterMode, 1);
  EXPECT_FALSE(d.player.optVSDisable.Value());
  Choose(d.player.optVSDisable);
  EXPECT_EQ(Options().filterMode, 0);
  filter.canConfigure = true;
  d.FillSettingsControls();
  d.player.cmdVSFilter.Click();
  EXPECT_EQ(filter.opened, 1);
}

TEST_F(SettingsPreview, OpaqueAndShadowAreAPair) {
  SettingsDialog& d = Dialog();
  Choose(d.preview.optOpaque);
  EXPECT_TRUE(Options().previewOpaque);
  EXPECT_FALSE(Options().previewShadow);
  EXPECT_FALSE(d.preview.lblShadow.Enabled());
  EXPECT_FALSE(d.preview.sldShadow.Enabled());
  EXPECT_FALSE(d.preview.lblSampleShadow.Visible());
  EXPECT_EQ(d.preview.GetSample().background, 0);
  EXPECT_FALSE(d.preview.GetSample().windowBackground);
  Choose(d.preview.optShadow);
  EXPECT_FALSE(Options().previewOpaque);
  EXPECT_TRUE(Options().previewShadow);
  EXPECT_TRUE(d.preview.sldShadow.Enabled());
  EXPECT_TRUE(d.preview.lblSampleShadow.Visible());
  EXPECT_TRUE(d.preview.optShadow.Value());
  EXPECT_FALSE(d.preview.optOpaque.Value());
}

TEST_F(SettingsPreview, TheSampleHasTheFilmsDarkGroundWhileOneIsOpen) {
  EXPECT_TRUE(Dialog().preview.GetSample().windowBackground);
  Dialog().Close();
  Play(folder.Write("film.mkv", "x"));
  Dialog().Open();
  EXPECT_FALSE(Dialog().preview.GetSample().windowBackground);
  EXPECT_EQ(Dialog().preview.GetSample().background, 0x100010);
  EXPECT_EQ(Dialog().preview.lblSample.GetText(), u"Sample");
  EXPECT_EQ(Dialog().preview.lblSampleShadow.GetText(), u"Sample");
}

TEST_F(SettingsPreview, ARunningOverlayChangesAtOnce) {
  Play(folder.Write("film.mkv", "x"));
  int placed = 0;
  const Connection watch = program->preview.PlaceRequested.ConnectScoped([&] { ++placed; });
  Move(Dialog().preview.sldShadow, 4);
  EXPECT_EQ(program->sub.GetStyle().shadowShift, 4);
  EXPECT_EQ(Dialog().preview.GetSample().shadowShift, 4);
  Choose(Dialog().preview.optOpaque);
  EXPECT_TRUE(program->sub.GetStyle().opaque);
  EXPECT_EQ(placed, 0);
  Move(Dialog().preview.sldHeight, 10);
  EXPECT_EQ(Options().previewHeight, 10);
  EXPECT_EQ(placed, 1);
  EXPECT_EQ(Dialog().preview.lblHeight.GetText(), u"Subtitle preview placement: 10%");
}

TEST_F(SettingsPreview, FontAndColorComeFromThePickers) {
  pickers.fonts = {{u"Tahoma", 60, false, true, false, false, 400}};
  pickers.colors = {0x0000FF};
  Dialog().preview.cmdFont.Click();
  Dialog().preview.cmdColor.Click();
  EXPECT_EQ(pickers.fontsShown.at(0).Name, u"Arial");
  EXPECT_EQ(pickers.fontsShown.at(0).Size, 18);
  EXPECT_TRUE(pickers.fontsShown.at(0).Bold);
  EXPECT_EQ(Options().previewFontName, u"Tahoma");
  EXPECT_EQ(Options().previewFontSize, 48);
  EXPECT_FALSE(Options().previewFontBold);
  EXPECT_EQ(pickers.colorsShown.at(0), 0xFFFFFF);
  EXPECT_EQ(Options().previewColor, 0xFF);
  EXPECT_EQ(Dialog().preview.GetSample().fontName, u"Tahoma");
  EXPECT_EQ(Dialog().preview.GetSample().color, 0xFF);
  Dialog().preview.cmdFont.Click();
  Dialog().preview.cmdColor.Click();
  EXPECT_EQ(Options().previewFontName, u"Tahoma");
  EXPECT_EQ(Options().previewColor, 0xFF);
}

TEST_F(SettingsPreview, FollowingIsACheck) {
  Dialog().preview.chkFollow.Click();
  EXPECT_FALSE(Options().followCaptions);
}

TEST_F(SettingsLanguage, TheListHoldsTheDisplayNamesAndTheOneInForce) {
  EXPECT_EQ(Dialog().language.cboLanguage.Items().size(), 25u);
  EXPECT_EQ(Dialog().language.cboLanguage.GetText(), u"English");
  EXPECT_EQ(Dialog().language.lblTranslator.GetText(), u"Translation by: Tessaly");
  EXPECT_EQ(Dialog().language.txtCharset.GetText(), u"0 - WESTERN_EUROPEAN_LATIN");
}

TEST_F(SettingsLanguage, AChangeRelabelsTheDialogAndTheMainWindowAtOnce) {
  program->messageCatalogue.AddBlock("0\t&Archivo\n193\tAjustes\n189\tTiempos\n190\tDetalles\n",
                                     static_cast<int>(kSpanish));
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Options().language, u"SPANISH");
  EXPECT_EQ(Dialog().Title(), u"Ajustes");
  EXPECT_EQ(Dialog().lblMenu[0].GetText(), u"Tiempos");
  EXPECT_EQ(Dialog().lblTop.GetText(), u"Tiempos");
  EXPECT_EQ(Window().mnuFile.GetText(), u"&Archivo");
  EXPECT_EQ(Dialog().language.cboLanguage.Index(), static_cast<int>(kSpanish));
  EXPECT_EQ(Stored(u"Language"), u"ENGLISH");
}

TEST_F(SettingsLanguage, DetailsOnShowChangeWithIt) {
  program->messageCatalogue.AddBlock("191\tElija un idioma.\n", static_cast<int>(kSpanish));
  Dialog().ShowSettingsPage(4);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_FALSE(Dialog().details.lblDetails.Visible());
  Dialog().language.cboLanguage.Choose(0);
  Hover(Dialog().cmdReset);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Details(), "Elija un idioma.");
}

TEST_F(SettingsLanguage, TheChosenValuesOutliveAChange) {
  Dialog().rules.cmbApply.Choose(2);
  Dialog().player.cmbUImode.Choose(0);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Dialog().rules.cmbApply.Index(), 2);
  EXPECT_EQ(Dialog().player.cmbUImode.Index(), 0);
  EXPECT_EQ(Options().applyWhen, 2);
}

TEST_F(SettingsLanguage, ArabicMirrorsTheDialog) {
  Dialog().language.cboLanguage.Choose(kArabic);
  EXPECT_TRUE(Dialog().RightToLeft());
  EXPECT_TRUE(Window().RightToLeft());
  EXPECT_EQ(Dialog().FlagRow(), static_cast<int>(kArabic));
  Dialog().language.cboLanguage.Choose(0);
  EXPECT_FALSE(Dialog().RightToLeft());
}

TEST_F(SettingsLanguage, TheNoticeShowsForAnotherCodePageOnly) {
  EXPECT_FALSE(Dialog().language.fraNotice.Visible());
  Dialog().language.cboLanguage.Choose(kRussian);
  EXPECT_TRUE(Dialog().language.fraNotice.Visible());
  EXPECT_EQ(Dialog().language.lblWarning.GetText(), u"Warning");
  EXPECT_EQ(Dialog().language.lblCurrLang.GetText(), u"Current language for non-Unicode programs: English");
  EXPECT_EQ(Dialog().language.lblReqLang.GetText(), u"Required language: Russian (native)");
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_FALSE(Dialog().language.fraNotice.Visible());
}

TEST_F(SettingsLanguage, TheCompletionLinkShowsOnlyWhereTextsLack) {
  EXPECT_FALSE(Dialog().language.lblComplete.Visible());
  Dialog().language.cboLanguage.Choose(kRussian);
  EXPECT_TRUE(Dialog().language.lblComplete.Visible());
  EXPECT_EQ(Dialog().language.lblComplete.GetText(), u"Complete this translation...");
  Hover(Dialog().language.lblComplete);
  EXPECT_TRUE(Details().starts_with("This translation is 0% complete.\r\n\r\nTo complete the RUSSIAN translation"));
}

TEST_F(SettingsLanguage, ALanguageWithOneMissingTextShowsNoCompletionLink) {
  const auto block = [&](std::size_t missing) {
    std::string data;
    for (std::size_t id = 0; id < kMessageCount; ++id) {
      if (id >= 72 && id < 72 + missing) continue;
      const std::string text = ToUtf8(ReplaceAll(program->strings[NumberedMessage(id)], u"\n", u"\\n"));
      data += std::to_string(id) + (text.empty() ? "" : "\t" + text) + "\n";
    }
    return data;
  };
  program->messageCatalogue.AddBlock(block(1), static_cast<int>(kRussian));
  program->messageCatalogue.AddBlock(block(4), 22);
  Dialog().language.cboLanguage.Choose(static_cast<int>(kRussian));
  EXPECT_FALSE(Dialog().language.lblComplete.Visible());
  Dialog().language.cboLanguage.Choose(22);
  EXPECT_TRUE(Dialog().language.lblComplete.Visible());
}

TEST_F(SettingsLanguage, TheCompletionLinkWritesAndOpensTheTranslationFile) {
  std::filesystem::create_directory(folder.Path() / "run");
  Dialog().language.cboLanguage.Choose(kRussian);
  bool off = false;
  const Connection watch = Dialog().language.lblComplete.Changed.ConnectScoped([&] {
    if (!Dialog().language.lblComplete.Enabled()) off = true;
  });
  Dialog().language.lblComplete.Click();
  EXPECT_TRUE(off);
  EXPECT_TRUE(Dialog().language.lblComplete.Enabled());
  EXPECT_FALSE(desktop.busy);
  EXPECT_EQ(desktop.opened, std::vector<Text>{folder / "run/qxm_100_russian.txt"});
  EXPECT_TRUE(LastBox().starts_with("The language file has been created, and will be opened now."));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Information);
  EXPECT_NE(folder.Read("run/qxm_100_russian.txt").find("23017, \"New subtitle\"\r\n"), std::string::npos);
}

TEST_F(SettingsLanguage, TheRegionalSettingsOpenOrTheUserIsTold) {
  Dialog().language.cmdRegionalSettings.Click();
  EXPECT_EQ(desktop.regionalSettings, 1);
  EXPECT_TRUE(boxes.shown.empty());
  desktop.hasRegionalSettings = false;
  Dialog().language.cmdRegionalSettings.Click();
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(SettingsLanguage, AFirstRunOpensTheDialogAtTheLanguageOnce) {
  std::filesystem::remove(folder.Path() / "settings.ini");
  locale.language = u"German";
  userLocale = &locale;
  Restart({});
  int runs = 0;
  program->dialogs.settings.Opened.Connect([&] { ++runs; });
  EXPECT_EQ(Options().language, u"GERMAN");
  EXPECT_EQ(Options().languageRow, 21);
  program->OpenOnFirstRun();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(events.yields, 1);
  EXPECT_EQ(Dialog().Page(), 4u);
  EXPECT_FALSE(program->FirstRun());
  Dialog().Close();
  EXPECT_EQ(Stored(u"Language"), u"GERMAN");
  program->OpenOnFirstRun();
  EXPECT_EQ(runs, 1);
  Dialog().Open();
  EXPECT_EQ(Dialog().Page(), 0u);
}

TEST_F(SettingsLanguage, AStoreWithAnOldNameHoldsTheNewOneAfterTheDialogCloses) {
  Dialog().Close();
  StartIn("FARSI");
  EXPECT_EQ(Options().language, u"PERSIAN");
  EXPECT_EQ(Stored(u"Language"), u"FARSI");
  Dialog().Close();
  EXPECT_EQ(Stored(u"Language"), u"PERSIAN");
}

TEST_F(SettingsStoring, OkWritesEveryKeyInTheFormOfTheStore) {
  Dialog().rules.chkCollision.Click();
  Press(Dialog().keys.txtHotkey[9], u'v');
  Type(Dialog().keys.txtPosition[1], u"33");
  Choose(Dialog().preview.optOpaque);
  Dialog().player.cmbUImode.Choose(1);
  bool closed = false;
  const Connection watch = Dialog().Closed.ConnectScoped([&] { closed = true; });
  Dialog().cmdOK.Click();
  EXPECT_TRUE(closed);
  const std::pair<TextView, TextView> rows[] = {{u"AutoSplit", u"1"},
                                                {u"Collision", u"0"},
                                                {u"AutoJoin", u"1"},
                                                {u"Near", u"200"},
                                                {u"Duration", u"1"},
                                                {u"Duration0", u"250"},
                                                {u"Duration1", u"120"},
                                                {u"Duration2", u"50"},
                                                {u"Tolerance0", u"200"},
                                                {u"Tolerance1", u"200"},
                                                {u"Tolerance2", u"200"},
                                                {u"ApplyWhen", u"0"},
                                                {u"T_CREDITS", u"1"},
                                                {u"T_CREDITSTEXT", u"@,http,www"},
                                                {u"HotKeys", u"1"},
                                                {u"kRewindSecs", u"5"},
                                                {u"kForwardSecs", u"33"},
                                                {u"hkPlay", u"90"},
                                                {u"kPlay", u"Z"},
                                                {u"hkForward", u"86"},
                                                {u"kForward", u"V"},
                                                {u"F_FONTNAME", u"Arial"},
                                                {u"F_FONTSIZE", u"18"},
                                                {u"F_FONTBOLD", u"255"},
                                                {u"F_FONTCOLOR", u"16777215"},
                                                {u"F_OPAQUE", u"255"},
                                                {u"F_SHADOW", u"0"},
                                                {u"F_SHADOWVAL", u"1"},
                                                {u"F_SUBHEIGHT", u"90"},
                                                {u"F_FOLLOW", u"255"},
                                                {u"P_STRETCH", u"1"},
                                                {u"P_UIMODE", u"mini"},
                                                {u"P_VSFILTERMODE", u"0"},
                                                {u"Language", u"ENGLISH"}};
  for (const auto& [key, value] : rows) EXPECT_EQ(Stored(key), value) << ToUtf8(key);
}

TEST_F(SettingsStoring, ClosingByTheFrameKeepsChangesForTheRunAndStoresTheLanguageAlone) {
  Dialog().rules.chkCollision.Click();
  Dialog().language.cboLanguage.Choose(kSpanish);
  Dialog().Close();
  EXPECT_EQ(Options().avoidCollision, 0);
  EXPECT_EQ(Stored(u"Collision"), u"?");
  EXPECT_EQ(Stored(u"Language"), u"SPANISH");
  Reopen();
  EXPECT_EQ(Options().avoidCollision, 1);
  EXPECT_EQ(Options().language, u"SPANISH");
}

TEST_F(SettingsStoring, AFieldThatWasntLeftCountsAtOk) {
  Type(Dialog().keys.txtPosition[0], u"900");
  Type(Dialog().rules.txtCredits, u"x,,y,");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"kRewindSecs"), u"600");
  EXPECT_EQ(Stored(u"T_CREDITSTEXT"), u"x,y");
}

TEST_F(SettingsStoring, ABlankCreditsListRunsWithTheRuleOffAndTheStoreSaysSoAtTheNextOk) {
  program->store.SaveSettings(u"Cuewright", {{u"T_CREDITS", u"1"}, {u"T_CREDITSTEXT", u"   "}});
  Reopen();
  EXPECT_EQ(Options().removeCredits, 0);
  EXPECT_FALSE(Dialog().rules.chkCredits.Value());
  EXPECT_EQ(Stored(u"T_CREDITS"), u"1");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"T_CREDITS"), u"0");
}

TEST_F(SettingsStoring, AFieldThatWasntTouchedStaysAsItIs) {
  Options().creditWords = u",a,,b";
  Options().rewindSeconds = 1;
  Dialog().FillSettingsControls();
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"T_CREDITSTEXT"), u",a,,b");
  EXPECT_EQ(Stored(u"kRewindSecs"), u"1");
}

TEST_F(SettingsReset, TheFirstPageGoesBackToItsDefaultsWithCreditsOff) {
  AppOptions& o = Options();
  o.autoSplit = o.avoidCollision = o.autoJoin = o.limitDuration = 0;
  o.nearMs = 10;
  o.durationPerCharacter = {10, 10, 10};
  o.durationTolerance = {10, 10, 10};
  o.applyWhen = 2;
  o.creditWords = u"x";
  o.hotkeysOn = 0;
  Dialog().cmdReset.Click();
  EXPECT_EQ(o.autoSplit, 1);
  EXPECT_EQ(o.nearMs, 200);
  EXPECT_EQ(o.durationPerCharacter, (std::array<std::int16_t, 3>{250, 120, 50}));
  EXPECT_EQ(o.durationTolerance, (std::array<std::int16_t, 3>{200, 200, 200}));
  EXPECT_EQ(o.applyWhen, 0);
  EXPECT_EQ(o.removeCredits, 0);
  EXPECT_EQ(o.creditWords, u"@,http,www");
  EXPECT_EQ(o.hotkeysOn, 0);
  EXPECT_FALSE(Dialog().rules.chkCredits.Value());
  EXPECT_EQ(Dialog().rules.sldAutoJoin.Value(), 20);
}

TEST_F(SettingsReset, TheSecondPageGoesBackToItsLettersAndSeconds) {
  Dialog().ShowSettingsPage(1);
  for (TextBox& box : Dialog().keys.txtHotkey) Press(box, u'q');
  Options().rewindSeconds = 50;
  Options().hotkeysOn = 0;
  Options().nearMs = 10;
  Dialog().cmdReset.Click();
  EXPECT_EQ(Options().playKey, 90);
  EXPECT_EQ(Options().forwardKey, 69);
  EXPECT_EQ(Dialog().keys.txtHotkey[0].GetText(), u"Z");
  EXPECT_EQ(Dialog().keys.txtHotkey[9].GetText(), u"E");
  EXPECT_EQ(Dialog().keys.txtPosition[0].GetText(), u"5");
  EXPECT_TRUE(Dialog().keys.chkKeys.Value());
  EXPECT_EQ(Options().nearMs, 10);
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"kPlay"), u"Z");
}

TEST_F(SettingsReset, OnThePlayerPageThePreviewGoesBackAndThePlayerStays) {
  Options().playerControls = u"mini";
  Options().stretchVideo = 0;
  Options().previewFontName = u"Tahoma";
  Options().previewOpaque = true;
  Options().previewHeight = 10;
  Dialog().ShowSettingsPage(2);
  Dialog().cmdReset.Click();
  EXPECT_EQ(Options().playerControls, u"mini");
  EXPECT_EQ(Options().stretchVideo, 0);
  EXPECT_EQ(Options().previewFontName, u"Arial");
  EXPECT_FALSE(Options().previewOpaque);
  EXPECT_EQ(Options().previewHeight, 90);
  EXPECT_TRUE(Dialog().preview.optShadow.Value());
}

TEST_F(SettingsReset, OnThePreviewPageThePlayerGoesBackAndThePreviewStays) {
  Options().playerControls = u"mini";
  Options().stretchVideo = 0;
  Options().filterMode = 1;
  Options().previewFontName = u"Tahoma";
  Dialog().ShowSettingsPage(3);
  Dialog().cmdReset.Click();
  EXPECT_EQ(Options().playerControls, u"full");
  EXPECT_EQ(Options().stretchVideo, 1);
  EXPECT_EQ(Options().filterMode, 0);
  EXPECT_EQ(Options().previewFontName, u"Tahoma");
  EXPECT_EQ(player.uiMode, u"full");
  EXPECT_TRUE(player.stretch);
}

TEST_F(SettingsReset, OnTheLanguagePageTheUsersLanguageComesBack) {
  Dialog().ShowSettingsPage(4);
  Dialog().language.cboLanguage.Choose(kArabic);
  ASSERT_TRUE(Window().RightToLeft());
  Dialog().cmdReset.Click();
  EXPECT_EQ(Options().language, u"ENGLISH");
  EXPECT_EQ(Dialog().language.cboLanguage.GetText(), u"English");
  EXPECT_FALSE(Window().RightToLeft());
  EXPECT_FALSE(Dialog().RightToLeft());
}

TEST_F(SettingsReset, OnTheLanguagePageALocaleWithoutALanguageGivesEnglish) {
  locale.language = u"Chinese";
  Reopen();
  Dialog().ShowSettingsPage(4);
  Dialog().language.cboLanguage.Choose(kArabic);
  ASSERT_TRUE(Window().RightToLeft());
  Dialog().cmdReset.Click();
  EXPECT_EQ(Options().language, u"ENGLISH");
  EXPECT_EQ(Dialog().language.cboLanguage.GetText(), u"English");
  EXPECT_FALSE(Window().RightToLeft());
}

TEST_F(SettingsStoring, OkWritesThePlayersModeFromItsEntry) {
  Dialog().Close();
  Options().playerControls = u"what";
  Dialog().Open();
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"P_UIMODE"), u"full");
}

TEST_F(SettingsStoring, TheRulesOnLoadHaveABoxAndAKey) {
  EXPECT_FALSE(Dialog().rules.chkRulesOnLoad.Value());
  Dialog().rules.chkRulesOnLoad.Click();
  EXPECT_TRUE(Options().changeOnLoad);
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"RulesOnLoad"), u"1");
  Dialog().ShowSettingsPage(0);
  Dialog().cmdReset.Click();
  EXPECT_FALSE(Options().changeOnLoad);
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

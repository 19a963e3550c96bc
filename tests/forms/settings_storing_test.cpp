#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

using testing::kArabic;
using testing::kSpanish;

using SettingsStoring = testing::SettingsRig;
using SettingsReset = testing::SettingsRig;

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

}  // namespace
}  // namespace cuewright

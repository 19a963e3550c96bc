#include "forms/keys_page.h"

#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

using SettingsKeys = testing::SettingsRig;

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

}  // namespace
}  // namespace cuewright

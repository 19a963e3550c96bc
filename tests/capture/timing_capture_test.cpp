#include "capture/timing_capture.h"

#include "tests/support/capture_rig.h"

namespace cuewright {
namespace {

using testing::enter;
using testing::kKeyB;
using testing::kKeyM;
using testing::kKeyN;

using Sampling = testing::CaptureRig;
using PressAndHold = testing::CaptureRig;
using ManualMode = testing::CaptureRig;
using AutomaticLimit = testing::CaptureRig;

TEST_F(Sampling, TheTimerReadsThePositionOnlyWhilePlaying) {
  player.positionText = u"00:12";
  At(12345);
  EXPECT_EQ(window.lblTime.GetText(), u"12345");
  EXPECT_EQ(window.lblStringPos.GetText(), u"00:12.345");
  player.state = kPlayerPaused;
  At(20000);
  EXPECT_EQ(window.lblTime.GetText(), u"12345");
}

TEST_F(PressAndHold, TheButtonTimesALineAndMovesOn) {
  At(1000);
  PressApply();
  EXPECT_TRUE(capture.Capturing());
  EXPECT_EQ(sub.lblSub.GetText(), u"one");
  EXPECT_EQ(sub.lblShadow.GetText(), u"one");
  EXPECT_EQ(window.txtTime[0].GetText(), u"00:00:01,000");
  At(2500);
  ReleaseApply();
  EXPECT_FALSE(capture.Capturing());
  EXPECT_EQ(Times(1), "1000-2500");
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(sub.lblSub.GetText(), u"");
  EXPECT_TRUE(document.DocModified);
}

TEST_F(PressAndHold, TheShortcutKeyIsAPressAndHoldKey) {
  At(1000);
  EXPECT_TRUE(Down(kKeyB).handled);
  EXPECT_TRUE(window.cmdApply.Underlined());
  At(1800);
  Up(kKeyB);
  EXPECT_FALSE(window.cmdApply.Underlined());
  EXPECT_EQ(Times(1), "1000-1800");
  EXPECT_EQ(list.Selected(), 2);
}

TEST_F(PressAndHold, SpaceOnTheButtonHoldsToo) {
  At(1000);
  KeyEvent down{kKeySpace, u' ', 65, false, false, false};
  window.cmdApply.PressKey(down);
  KeyEvent repeat{kKeySpace, u' ', 65, true, false, false};
  window.cmdApply.PressKey(repeat);
  At(1400);
  KeyEvent up{kKeySpace, u' ', 65, false, false, false};
  window.cmdApply.ReleaseKey(up);
  EXPECT_EQ(Times(1), "1000-1400");
}

TEST_F(PressAndHold, AStartJustBehindThePriorEndJoinsIt) {
  struct Case {
    int at, start;
  };
  for (const Case& c : {Case{10150, 10000}, Case{10200, 10200}, Case{9900, 9900}, Case{10000, 10000}}) {
    capture.Reset();
    list.SetRow(1, false);
    At(9000);
    PressApply();
    At(10000);
    ReleaseApply();
    ASSERT_EQ(capture.PriorCaptionEnd(), 10000);
    At(c.at);
    PressApply();
    EXPECT_EQ(list.GetCaptionStart(2), c.start) << c.at;
    ReleaseApply();
  }
}

TEST_F(PressAndHold, NothingJoinsInADocumentWithoutACapturedCaption) {
  At(100);
  PressApply();
  EXPECT_EQ(list.GetCaptionStart(1), 100);
}

TEST_F(PressAndHold, AnyFlagForAutoJoinButZeroJoins) {
  options.autoJoin = 255;
  At(9000);
  PressApply();
  At(10000);
  ReleaseApply();
  At(10150);
  PressApply();
  EXPECT_EQ(list.GetCaptionStart(2), 10000);
}

TEST_F(PressAndHold, WithoutAutoJoinNothingJoins) {
  options.autoJoin = 0;
  At(9000);
  PressApply();
  At(10000);
  ReleaseApply();
  At(10150);
  PressApply();
  EXPECT_EQ(list.GetCaptionStart(2), 10150);
}

TEST_F(PressAndHold, TheEndOfTheLastCaptionShowsTheEndAndAFreshSelectionTheDuration) {
  list.SetRow(4, false);
  At(5000);
  PressApply();
  At(6500);
  ReleaseApply();
  EXPECT_EQ(list.Selected(), 4);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:01,500");
  window.txtTime[0].PressKey(enter);
  EXPECT_EQ(Times(4), "5000-6500");
}

TEST_F(PressAndHold, TheEndOfTheLastCaptionShowsTheEndInTheClassicManner) {
  options.manner.SetClassic(true);
  list.SetRow(4, false);
  At(5000);
  PressApply();
  At(6500);
  ReleaseApply();
  EXPECT_EQ(list.Selected(), 4);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:06,500");
  list.SetRow(4, false);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:01,500");
}

TEST_F(PressAndHold, TheDurationIsTheCaptionsOwnAtEachStep) {
  list.SetCaptionStart(2, 10000, false);
  list.SetCaptionEnd(2, 14000);
  list.SetRow(2, false);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:04,000");
  At(11000);
  PressApply();
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:03,000");
  capture.AbandonCapture();
  At(20000);
  PressApply();  // now it ends before it starts, until it is let go
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:00,000");
}

TEST_F(PressAndHold, ACaptionThatEndsBeforeItStartsHasNoDurationOfAnother) {
  list.SetCaptionStart(1, 1000, false);
  list.SetCaptionEnd(1, 3000);
  list.SetCaptionStart(2, 9000, false);
  list.SetCaptionEnd(2, 8000);
  list.SetRow(1, false);
  list.SetRow(2, false);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:00,000");
  options.manner.SetClassic(true);
  list.SetRow(1, false);
  list.SetRow(2, false);
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:02,000");
}

TEST_F(PressAndHold, PressAndReleaseCountAtTheirInstants) {
  player.history = [](double instant) { return instant - 100; };
  At(5000);
  window.inputInstant = 104.9914;
  PressApply();
  At(6500);
  window.inputInstant = 106.3481;
  ReleaseApply();
  EXPECT_EQ(Times(1), "4991-6348");
  EXPECT_EQ(capture.PriorCaptionEnd(), 6348);

  // Where nothing tells an instant, the last sample counts.
  At(9000);
  window.inputInstant.reset();
  PressApply();
  At(9500);
  ReleaseApply();
  EXPECT_EQ(Times(2), "9000-9500");
}

TEST_F(PressAndHold, PressAndReleaseCountAtTheLastSampleInTheClassicManner) {
  options.manner.SetClassic(true);
  player.history = [](double instant) { return instant - 100; };
  At(5000);
  window.inputInstant = 104.9914;
  PressApply();
  At(6500);
  window.inputInstant = 106.3481;
  ReleaseApply();
  EXPECT_EQ(Times(1), "5000-6500");
}

TEST_F(PressAndHold, TheInstantOfAKeyThatStoppedTheFilmIsNotTheEndOfTheHold) {
  player.history = [](double instant) { return instant - 100; };
  At(5000);
  window.inputInstant = 105;
  PressApply();
  At(6500);
  window.inputInstant = 300;
  capture.OnFilmGone();
  EXPECT_EQ(Times(1), "5000-6500");
}

TEST_F(ManualMode, StartNextAndEndDoWhatTheySay) {
  capture.SelectMode(CaptionMode::Manual);
  At(1000);
  window.cmdApply.Click();
  EXPECT_FALSE(window.cmdApply.Enabled());
  EXPECT_TRUE(window.cmdNext.Enabled());
  EXPECT_TRUE(window.cmdEnd.Enabled());
  At(2000);
  window.cmdNext.Click();
  EXPECT_EQ(Times(1), "1000-2000");
  EXPECT_EQ(list.GetCaptionStart(2), 2000);
  At(3000);
  window.cmdEnd.Click();
  EXPECT_EQ(Times(2), "2000-3000");
  EXPECT_FALSE(window.cmdEnd.Enabled());
  EXPECT_TRUE(window.cmdApply.Enabled());
}

TEST_F(ManualMode, NextOnTheLineBeforeTheLastLeavesNextDisabledOnTheLast) {
  capture.SelectMode(CaptionMode::Manual);
  list.SetRow(3, false);
  At(1000);
  window.cmdApply.Click();
  At(2000);
  window.cmdNext.Click();
  EXPECT_EQ(list.Selected(), 4);
  EXPECT_FALSE(window.cmdNext.Enabled());
  EXPECT_TRUE(window.cmdEnd.Enabled());
}

TEST_F(ManualMode, TheReleaseOfTheStartKeyDoesNothing) {
  capture.SelectMode(CaptionMode::Manual);
  At(1000);
  Down(kKeyB);
  At(1500);
  Up(kKeyB);
  EXPECT_TRUE(capture.Capturing());
  EXPECT_EQ(list.GetCaptionEnd(1), 0);
  Down(kKeyN);
  EXPECT_EQ(Times(1), "1000-1500");
  EXPECT_TRUE(window.cmdNext.Underlined());
  At(1700);
  Down(kKeyM);
  EXPECT_EQ(Times(2), "1500-1700");
}

TEST_F(ManualMode, ARepeatedNextKeyTakesNoTimes) {
  capture.SelectMode(CaptionMode::Manual);
  At(1000);
  Down(kKeyB);
  At(1500);
  Down(kKeyN);
  Down(kKeyN, true);
  Down(kKeyM, true);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_TRUE(capture.Capturing());
}

TEST_F(AutomaticLimit, ReleasingKeepsTheCaptureUntilThePositionPassesTheComputedEnd) {
  options.applyWhen = 2;
  At(1000);
  PressApply();
  EXPECT_EQ(Times(1), "1000-1750");  // three characters of 250 ms
  EXPECT_FALSE(window.cmdApply.Enabled());
  EXPECT_TRUE(window.tmrLimit.Enabled());
  At(1300);
  ReleaseApply();
  window.tmrLimit.Pass();
  EXPECT_TRUE(capture.Capturing());
  EXPECT_EQ(list.Selected(), 1);
  At(1750);
  window.tmrLimit.Pass();
  EXPECT_TRUE(capture.Capturing());
  At(1751);
  window.tmrLimit.Pass();
  EXPECT_FALSE(capture.Capturing());
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(Times(1), "1000-1750");
  EXPECT_TRUE(window.cmdApply.Enabled());
  EXPECT_FALSE(window.tmrLimit.Enabled());
}

TEST_F(AutomaticLimit, TheKeysReleaseEndsNothingAndNeitherDoesALateOne) {
  options.applyWhen = 1;
  At(1000);
  Down(kKeyB);
  At(1200);
  Up(kKeyB);
  EXPECT_TRUE(capture.Capturing());
  At(2000);
  window.tmrLimit.Pass();
  At(2100);
  Down(kKeyB);
  At(3000);
  window.tmrLimit.Pass();
  Up(kKeyB);  // its capture is over
  EXPECT_EQ(list.GetCaptionStart(2), 2100);
  EXPECT_EQ(list.GetCaptionEnd(2), 2100 + 750);
  EXPECT_EQ(list.Selected(), 3);
}

TEST_F(AutomaticLimit, IsOffWhenRulesApplyOnLoadOnlyOrDurationIsOff) {
  options.applyWhen = 0;
  EXPECT_FALSE(LimitActive(options));
  options.applyWhen = 1;
  EXPECT_TRUE(LimitActive(options));
  options.limitDuration = 0;
  EXPECT_FALSE(LimitActive(options));
}

TEST_F(AutomaticLimit, TheModeSaysSo) {
  options.applyWhen = 2;
  capture.ShowModeTexts();
  EXPECT_EQ(window.optPress.GetText(), u"m33 [auto]");
}

TEST_F(AutomaticLimit, KeepsItsEndWhenTheFilmStopsUnderTheKey) {
  options.applyWhen = 1;
  At(5000);
  PressApply();
  const Ms end = list.GetCaptionEnd(1);
  ASSERT_GT(end, 5100);
  At(5100);
  capture.OnFilmGone();
  EXPECT_FALSE(capture.Capturing());
  EXPECT_EQ(list.GetCaptionEnd(1), end);
  EXPECT_FALSE(window.tmrLimit.Enabled());
  // Nor does what comes later touch it.
  ReleaseApply();
  capture.SelectMode(CaptionMode::Manual);
  EXPECT_EQ(list.GetCaptionEnd(1), end);
  EXPECT_EQ(list.Selected(), 1);
}

TEST_F(ManualMode, ANewDocumentHasTheButtonsOfOneWithoutACapture) {
  capture.SelectMode(CaptionMode::Manual);
  At(5000);
  window.cmdApply.Click();
  ASSERT_TRUE(window.cmdEnd.Enabled());
  capture.Reset();
  EXPECT_FALSE(capture.Capturing());
  EXPECT_TRUE(window.cmdApply.Enabled());
  EXPECT_FALSE(window.cmdNext.Enabled());
  EXPECT_FALSE(window.cmdEnd.Enabled());
  EXPECT_FALSE(capture.PriorCaptionEnd());
}

}  // namespace
}  // namespace cuewright

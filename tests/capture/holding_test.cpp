#include "tests/support/capture_rig.h"

namespace cuewright {
namespace {

using testing::kKeyB;

using Hold = testing::CaptureRig;
using Modes = testing::CaptureRig;

TEST_F(Hold, AutoRepeatNeitherStartsNorEndsIt) {
  At(1000);
  Down(kKeyB, true);
  EXPECT_FALSE(capture.Capturing());
  Down(kKeyB);
  At(1100);
  Up(kKeyB, true);
  Down(kKeyB, true);
  EXPECT_TRUE(capture.Capturing());
  EXPECT_EQ(list.GetCaptionStart(1), 1000);
}

TEST_F(Hold, OnlyTheReleaseOfWhatBeganItEndsIt) {
  At(1000);
  Down(kKeyB, false, 56);
  At(1200);
  Up(90, false, 52);
  ReleaseApply();
  Up(kKeyB, false, 57);
  EXPECT_TRUE(capture.Capturing());
  Up(kKeyB, false, 56);
  EXPECT_EQ(Times(1), "1000-1200");
}

TEST_F(Hold, AMouseReleaseWithoutItsPressEndsNothing) {
  At(1000);
  ReleaseApply();
  EXPECT_EQ(list.GetCaptionEnd(1), 0);
  EXPECT_EQ(list.Selected(), 1);
}

TEST_F(Hold, LosingTheFocusEndsItAtTheLastSample) {
  At(1000);
  Down(kKeyB);
  At(1600);
  player.position = 1.7;  // not sampled yet
  capture.OnFocusLost();
  EXPECT_EQ(Times(1), "1000-1600");
  Up(kKeyB);
  EXPECT_EQ(list.GetCaptionEnd(2), 0);
}

TEST_F(Hold, TheFilmStoppingEndsItAtTheLastSampleBeforeThat) {
  At(1000);
  PressApply();
  At(1600);
  player.position = 0;
  capture.OnFilmGone();
  EXPECT_EQ(Times(1), "1000-1600");
  EXPECT_FALSE(capture.Capturing());
}

TEST_F(Hold, AReleaseWhilePausedEndsItAtThePausedPosition) {
  At(1000);
  Down(kKeyB);
  At(1600);
  player.state = kPlayerPaused;
  player.position = 1.607;
  window.cmdApply.SetEnabled(false);
  Up(kKeyB);
  EXPECT_EQ(Times(1), "1000-1607");
}

TEST_F(Hold, APointerReleaseAnywhereEndsAPointerHold) {
  At(1000);
  PressApply();
  At(1300);
  capture.OnPointerUp(MouseButton::Right);
  EXPECT_TRUE(capture.Capturing());
  capture.OnPointerUp(MouseButton::Left);
  EXPECT_EQ(Times(1), "1000-1300");
}

TEST_F(Hold, AManualCaptureIsNoHoldAndSurvivesTheFocus) {
  capture.SelectMode(CaptionMode::Manual);
  At(1000);
  window.cmdApply.Click();
  capture.OnFocusLost();
  capture.OnFilmGone();
  EXPECT_TRUE(capture.Capturing());
}

TEST_F(Modes, SelectingOneEndsARunningCapture) {
  At(1000);
  PressApply();
  At(1900);
  window.optManual.Click();
  EXPECT_EQ(Times(1), "1000-1900");
  EXPECT_EQ(window.cmdApply.GetText(), strings[Message::Start]);
  EXPECT_EQ(window.lblMode.GetText(), strings[Message::ManualModeHint]);
  EXPECT_TRUE(window.optManual.Value());
  EXPECT_FALSE(window.optPress.Value());
}

TEST_F(Modes, PreviewDisablesButtonsAndTimeBoxesAndLeavingItEnablesTheBoxes) {
  capture.SelectMode(CaptionMode::Preview);
  EXPECT_FALSE(window.cmdApply.Enabled());
  EXPECT_FALSE(window.txtTime[0].Enabled());
  EXPECT_TRUE(window.tmrPreview.Enabled());
  EXPECT_EQ(window.lblMode.GetText(), strings[Message::PreviewModeHint]);
  sub.ShowText(u"left over");
  capture.SelectMode(CaptionMode::PressAndHold);
  EXPECT_TRUE(window.txtTime[0].Enabled());
  EXPECT_FALSE(window.tmrPreview.Enabled());
  EXPECT_EQ(sub.lblSub.GetText(), u"");
  EXPECT_TRUE(window.cmdApply.Enabled());
}

TEST_F(Modes, TheStartKeyDoesNothingInPreview) {
  capture.SelectMode(CaptionMode::Preview);
  At(1000);
  Down(kKeyB);
  EXPECT_FALSE(capture.Capturing());
}

}  // namespace
}  // namespace cuewright

#include "tests/support/capture_rig.h"

namespace cuewright {
namespace {

using testing::kKeyB;
using testing::kKeyM;
using testing::kKeyN;

using Shortcuts = testing::CaptureRig;

TEST_F(Shortcuts, AreOffWhileTheTextPaneHasTheFocus) {
  capture.SetTextFocus(true);
  At(1000);
  EXPECT_FALSE(Down(kKeyB).handled);
  EXPECT_FALSE(capture.Capturing());
}

TEST_F(Shortcuts, AreOffWithoutHotKeysPlayerOrDocumentAndWithACommandKey) {
  options.hotkeysOn = 0;
  EXPECT_FALSE(Down(kKeyB).handled);
  options.hotkeysOn = 1;
  player.enabled = false;
  EXPECT_FALSE(Down(kKeyB).handled);
  player.enabled = true;
  document.SubtitlePath.clear();
  EXPECT_FALSE(Down(kKeyB).handled);
  document.SubtitlePath = u"NEW";
  KeyEvent withCtrl{kKeyB, 0, 56, false, true, false};
  capture.OnKeyDown(withCtrl);
  EXPECT_FALSE(withCtrl.handled);
  EXPECT_FALSE(capture.Capturing());
}

TEST_F(Shortcuts, PlayPauseAndStopDriveThePlayer) {
  Down(88);
  EXPECT_EQ(player.state, kPlayerPaused);
  Down(88);
  EXPECT_EQ(player.state, kPlayerPaused);
  Down(90);
  EXPECT_EQ(player.state, kPlayerPlaying);
  Down(67);
  EXPECT_EQ(player.state, kPlayerStopped);
}

TEST_F(Shortcuts, PreviousAndNextSelectAndSeekToTimedCaptions) {
  list.SetCaptionStart(2, 5500, true);
  Down(70);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(player.seeks, (std::vector<double>{5.5}));
  Down(70);
  EXPECT_EQ(list.Selected(), 3);
  EXPECT_EQ(player.seeks.size(), 1u);
  Down(68);
  EXPECT_EQ(player.seeks.size(), 2u);
  Down(68);
  Down(68);
  EXPECT_EQ(list.Selected(), 1);
  list.SetRow(4, false);
  Down(70);
  EXPECT_EQ(list.Selected(), 4);
}

TEST_F(Shortcuts, RewindAndForwardJumpInSecondsUnlessNothingIsOpen) {
  player.position = 20.25;
  for (const int state : {kPlayerPlaying, kPlayerPaused, kPlayerStopped, kPlayerTransitional, 0}) {
    player.state = state;
    Down(87);
    Down(69);
  }
  EXPECT_EQ(player.seeks, (std::vector<double>{15.25, 20.25, 15.25, 20.25, 15.25, 20.25}));
}

TEST_F(Shortcuts, TheFilmsKeysWorkWithoutAText) {
  document.SubtitlePath.clear();
  player.position = 20.25;
  Down(88);
  EXPECT_EQ(player.state, kPlayerPaused);
  Down(87);
  EXPECT_EQ(player.seeks, (std::vector<double>{15.25}));
  Down(90);
  EXPECT_EQ(player.state, kPlayerPlaying);
  // Those of the captions don't.
  for (const int key : {kKeyB, kKeyN, kKeyM, 68, 70}) EXPECT_FALSE(Down(key).handled) << key;
  EXPECT_FALSE(capture.Capturing());
  Down(67);
  EXPECT_EQ(player.state, kPlayerStopped);

  document.VideoPath.clear();
  EXPECT_FALSE(Down(90).handled);
  document.VideoPath = u"/x/a.mkv";
  options.manner.SetClassic(true);
  EXPECT_FALSE(Down(90).handled);
}

TEST_F(Shortcuts, RewindAndForwardJumpOnlyWhilePlayingInTheClassicManner) {
  options.manner.SetClassic(true);
  player.position = 20.25;
  Down(87);
  Down(69);
  EXPECT_EQ(player.seeks, (std::vector<double>{15.25, 20.25}));
  player.state = kPlayerPaused;
  Down(87);
  EXPECT_EQ(player.seeks.size(), 2u);
}

TEST_F(Shortcuts, TheFirstMatchOfTwoEqualKeysActs) {
  options.playKey = kKeyB;
  At(1000);
  Down(kKeyB);
  EXPECT_TRUE(capture.Capturing());
}

TEST_F(Shortcuts, ADoubleClickSeeksATimedCaptionOfAFilmAtRest) {
  list.SetCaptionStart(1, 5500, true);
  for (const int state : {kPlayerPaused, kPlayerStopped, kPlayerTransitional, 0}) {
    player.state = state;
    capture.SeekToCaption(1, TimingCapture::SeekTo::JustBehindStart);
    capture.SeekToCaption(2, TimingCapture::SeekTo::JustBehindStart);
  }
  EXPECT_EQ(player.seeks.size(), 2u);
}

TEST_F(Shortcuts, ADoubleClickSeeksATimedCaptionOnlyWhilePlayingInTheClassicManner) {
  options.manner.SetClassic(true);
  list.SetCaptionStart(1, 5500, true);
  capture.SeekToCaption(1, TimingCapture::SeekTo::JustBehindStart);
  capture.SeekToCaption(1, TimingCapture::SeekTo::Start);
  capture.SeekToCaption(2, TimingCapture::SeekTo::JustBehindStart);
  player.state = kPlayerPaused;
  capture.SeekToCaption(1, TimingCapture::SeekTo::JustBehindStart);
  ASSERT_EQ(player.seeks.size(), 2u);
  EXPECT_DOUBLE_EQ(player.seeks[0], 5.501);
  EXPECT_DOUBLE_EQ(player.seeks[1], 5.5);
}

}  // namespace
}  // namespace cuewright

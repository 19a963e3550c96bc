#include "capture/timing_capture.h"

#include <gtest/gtest.h>

#include "capture/caption_panel.h"
#include "capture/time_boxes.h"
#include "core/best_duration.h"
#include "core/caption_time.h"
#include "core/runtime_error.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using testing::FakePlayer;

constexpr int kKeyB = 66;
constexpr int kKeyN = 78;
constexpr int kKeyM = 77;

/// A document of four lines, a film that plays, and everything that captures.
struct CaptureTest : ::testing::Test {
  CaptureTest() {
    for (std::size_t id = 0; id < kMessageCount; ++id)
      strings.Set(NumberedMessage(id), u"m" + Decimal(static_cast<long long>(id)));
    options.applyWhen = 0;
    document.SubtitlePath = u"/x/a.srt";
    document.VideoPath = u"/x/a.mkv";
    panel.ResetGrid(true);
    for (const char16_t* line : {u"one", u"two", u"three", u"four"}) list.AddCaption(0, 0, line, 0);
    list.SetRow(1, false);
    player.enabled = true;
    player.state = kPlayerPlaying;
    sub.Load();
    grid.NoteMetrics(200, 20);
    capture.SelectMode(CaptionMode::PressAndHold);
    document.DocModified = false;
  }

  void At(int ms) {
    player.position = ms / 1000.0;
    window.tmrTime.Tick();
  }
  KeyEvent Down(int code, bool repeat = false, std::uint32_t physical = 0) {
    KeyEvent key{code, 0, physical != 0 ? physical : static_cast<std::uint32_t>(code), repeat, false, false};
    capture.OnKeyDown(key);
    return key;
  }
  KeyEvent Up(int code, bool repeat = false, std::uint32_t physical = 0) {
    KeyEvent key{code, 0, physical != 0 ? physical : static_cast<std::uint32_t>(code), repeat, false, false};
    capture.OnKeyUp(key);
    return key;
  }
  std::string Times(Row row) const {
    return std::to_string(list.GetCaptionStart(row)) + "-" + std::to_string(list.GetCaptionEnd(row));
  }
  void PressApply() { window.cmdApply.MouseDown({MouseButton::Left, 1, 1}); }
  void ReleaseApply() { window.cmdApply.MouseUp({MouseButton::Left, 1, 1}); }

  AppOptions options;
  LangStrings strings;
  DocumentState document;
  FakePlayer player;
  MainWindow window;
  SubWindow sub;
  CaptionList list{options, document.DocModified};
  CaptionGrid grid{list};
  CaptionPanel panel{window, list, grid, strings};
  Workbench bench{window, list, grid, document, options, strings};
  PlayerSample sample;
  Preview preview{bench, sub, player, sample};
  TimingCapture capture{bench, player, sample, preview};
  TimeBoxes boxes{window, list};
};

KeyEvent enter{kKeyEnter, 0, 36, false, false, false};

using PressAndHold = CaptureTest;
using ManualMode = CaptureTest;
using AutomaticLimit = CaptureTest;
using Hold = CaptureTest;
using Shortcuts = CaptureTest;
using TimeBox = CaptureTest;
using Modes = CaptureTest;
using BestDuration = CaptureTest;
using Sampling = CaptureTest;

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
  window.cmdApply.KeyDown(down);
  KeyEvent repeat{kKeySpace, u' ', 65, true, false, false};
  window.cmdApply.KeyDown(repeat);
  At(1400);
  KeyEvent up{kKeySpace, u' ', 65, false, false, false};
  window.cmdApply.KeyUp(up);
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
  window.txtTime[0].KeyDown(enter);
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
  window.tmrLimit.Tick();
  EXPECT_TRUE(capture.Capturing());
  EXPECT_EQ(list.Selected(), 1);
  At(1750);
  window.tmrLimit.Tick();
  EXPECT_TRUE(capture.Capturing());
  At(1751);
  window.tmrLimit.Tick();
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
  window.tmrLimit.Tick();
  At(2100);
  Down(kKeyB);
  At(3000);
  window.tmrLimit.Tick();
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
    capture.SeekToCaption(1, true);
    capture.SeekToCaption(2, true);
  }
  EXPECT_EQ(player.seeks.size(), 2u);
}

TEST_F(Shortcuts, ADoubleClickSeeksATimedCaptionOnlyWhilePlayingInTheClassicManner) {
  options.manner.SetClassic(true);
  list.SetCaptionStart(1, 5500, true);
  capture.SeekToCaption(1, true);
  capture.SeekToCaption(1, false);
  capture.SeekToCaption(2, true);
  player.state = kPlayerPaused;
  capture.SeekToCaption(1, true);
  ASSERT_EQ(player.seeks.size(), 2u);
  EXPECT_DOUBLE_EQ(player.seeks[0], 5.501);
  EXPECT_DOUBLE_EQ(player.seeks[1], 5.5);
}

TEST_F(AutomaticLimit, KeepsItsEndWhenTheFilmStopsUnderTheKey) {
  options.applyWhen = 1;
  At(5000);
  PressApply();
  const std::int32_t end = list.GetCaptionEnd(1);
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

TEST_F(Modes, SelectingOneEndsARunningCapture) {
  At(1000);
  PressApply();
  At(1900);
  window.optManual.Clicked();
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

TEST_F(BestDuration, CountsCharactersByClass) {
  struct Case {
    const char16_t* text;
    int end;
  };
  const Case cases[] = {
      {u"12345", 1000 + 1250},
      {u"123456", 1000 + 720},
      {u"1234567890123456", 1000 + 800},
      {u"1234567890123456<i>", 1000 + 800},  // counts 16
      {u"1234567890123456<b>", 1000 + 950},  // counts 19
      {u"123|45", 1000 + 1250},
      {u"<i>", 1100},
  };
  for (const Case& c : cases) {
    list.Replace(1, 1, {Caption{1000, 0, c.text}});
    SetBestDuration(list, 1);
    EXPECT_EQ(list.GetCaptionEnd(1), c.end) << ToUtf8(c.text);
  }
}

TEST_F(BestDuration, AProductOverSixteenBitsLeavesTheEnd) {
  list.Replace(1, 1, {Caption{1000, 5000, Text(700, u'x')}});
  EXPECT_THROW(SetBestDuration(list, 1), RuntimeError);
  EXPECT_EQ(list.GetCaptionEnd(1), 5000);
}

struct Typing {
  static KeyEvent Press(TextBox& box, char16_t c) {
    KeyEvent key{c == 8 ? kKeyBackspace : 0, c, 1, false, false, false};
    box.KeyPress(key);
    return key;
  }
  static void Key(TextBox& box, int code) {
    KeyEvent key{code, 0, 1, false, false, false};
    box.KeyDown(key);
  }
};

TEST_F(TimeBox, TypingOverwritesAndStepsOverTheSeparators) {
  TextBox& box = window.txtTime[0];
  box.Select(1, 1);
  Typing::Press(box, u'7');
  EXPECT_EQ(box.GetText(), u"07:00:00,000");
  EXPECT_EQ(box.SelStart(), 3);
  EXPECT_EQ(box.SelLength(), 1);
  box.Select(11, 1);
  Typing::Press(box, u'9');
  EXPECT_EQ(box.GetText(), u"07:00:00,009");
  EXPECT_EQ(box.SelStart(), 11);
}

TEST_F(TimeBox, BackspaceTypesAZeroAndStepsBack) {
  struct Case {
    int at, to;
  };
  TextBox& box = window.txtTime[0];
  for (const Case& c : {Case{3, 1}, Case{6, 4}, Case{9, 7}, Case{0, 0}, Case{1, 0}, Case{4, 3}, Case{11, 10}}) {
    box.SetText(u"11:11:11,111");
    box.Select(c.at, 1);
    Typing::Press(box, 8);
    EXPECT_EQ(box.GetText()[static_cast<std::size_t>(c.at)], u'0') << c.at;
    EXPECT_EQ(box.SelStart(), c.to) << c.at;
  }
}

TEST_F(TimeBox, ArrowsStepOneCharacterOverTheSeparators) {
  TextBox& box = window.txtTime[0];
  box.Select(0, 1);
  const int right[] = {1, 3, 4, 6, 7, 9, 10, 11, 11};
  for (const int to : right) {
    Typing::Key(box, kKeyRight);
    EXPECT_EQ(box.SelStart(), to);
  }
  const int left[] = {10, 9, 7, 6, 4, 3, 1, 0, 0};
  for (const int to : left) {
    Typing::Key(box, kKeyLeft);
    EXPECT_EQ(box.SelStart(), to);
  }
}

TEST_F(TimeBox, TakesDigitsColonAndSemicolonAlone) {
  TextBox& box = window.txtTime[0];
  for (const char16_t c : {u'a', u',', u' ', u'/', u'<'}) {
    box.Select(0, 1);
    EXPECT_TRUE(Typing::Press(box, c).handled);
    EXPECT_EQ(box.GetText(), u"00:00:00,000");
  }
  box.Select(0, 1);
  Typing::Press(box, u';');
  EXPECT_EQ(box.GetText(), u";0:00:00,000");
  KeyEvent del{kKeyDelete, 0, 1, false, false, false};
  box.KeyDown(del);
  EXPECT_TRUE(del.handled);
}

TEST_F(TimeBox, LosingTheFocusWithABrokenTextBringsTheOldOneBack) {
  TextBox& box = window.txtTime[0];
  box.SetText(u"00:00:05,000");
  box.GotFocus();
  for (const char16_t* broken : {u"00:00:05,00", u"00;00:06,000", u"00:00:06;000", u""}) {
    box.SetText(broken);
    box.LostFocus();
    EXPECT_EQ(box.GetText(), u"00:00:05,000");
  }
  box.SetText(u"00:00:06,000");
  box.LostFocus();
  EXPECT_EQ(box.GetText(), u"00:00:06,000");
}

TEST_F(TimeBox, EnterStoresStartAndDuration) {
  window.txtTime[0].SetText(u"00:00:05,000");
  window.txtTime[1].SetText(u"00:00:02,500");
  Typing::Key(window.txtTime[1], kKeyEnter);
  EXPECT_EQ(Times(1), "5000-7500");
  EXPECT_TRUE(document.DocModified);
}

TEST_F(TimeBox, EnterWithoutADurationTakesTheBestOne) {
  window.txtTime[0].SetText(u"00:00:05,000");
  window.txtTime[1].SetText(u"00:00:00,000");
  Typing::Key(window.txtTime[0], kKeyEnter);
  EXPECT_EQ(Times(1), "5000-5750");
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:00,750");
}

TEST_F(TimeBox, EnterChecksBothBoxes) {
  window.txtTime[0].GotFocus();
  window.txtTime[0].SetText(u"broken");
  window.txtTime[1].SetText(u"broken too");
  Typing::Key(window.txtTime[1], kKeyEnter);
  EXPECT_EQ(window.txtTime[0].GetText(), u"00:00:00,000");
  EXPECT_EQ(list.GetCaptionStart(1), 0);
}

}  // namespace
}  // namespace cuewright

#include "forms/release_fitting.h"

#include "forms/held_hand.h"
#include "tests/forms/voice_fitting_rig.h"

namespace cuewright {
namespace {

using testing::VoiceFittingTest;

/// The film's sound is known, and the captions have no times yet.
struct ReleaseFittingTest : VoiceFittingTest {
  ReleaseFittingTest() {
    Window().mnuFitAll.Click();
    Hear(Samples());
    program->list.SetRow(1, false);
    for (Row row = 1; row <= 4; ++row) program->list.ClearCaptionTiming(row, false);
    program->options.pressLate = {200, 0, 0};
    program->options.releaseLate = {180, 0, 0};
    program->options.autoJoin = 0;
  }
  void Hold(int start, int end) {
    player.state = kPlayerPlaying;
    Press(start);
    Release(end);
  }
  void Press(int at) {
    player.position = at / 1000.0;
    Window().tmrTime.Pass();
    program->capture.StartCaption(false, false);
  }
  void Release(int at) {
    player.position = at / 1000.0;
    Window().tmrTime.Pass();
    program->capture.EndCaption();
  }
  void WaitForFit() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Window().tmrRelease.Enabled() && std::chrono::steady_clock::now() < end) {
      Window().tmrRelease.Pass();
      std::this_thread::yield();
    }
    ASSERT_FALSE(Window().tmrRelease.Enabled());
  }
};

TEST_F(ReleaseFittingTest, TheTimesOfTheHandAreStoredAndTheFitIsASecondStep) {
  Hold(2230, 4170);
  EXPECT_EQ(program->list.TimesAt(1), (CaptionTimes{2230, 4170}));
  WaitForFit();
  EXPECT_NEAR(StartOf(1).Count(), kStarts[0], 25);
  EXPECT_NEAR(program->list.GetCaptionEnd(1).Count(), kStarts[0] + kLength, 60);
  EXPECT_EQ(program->list.Selected(), 2);
  Window().mnuUndo.Click();
  EXPECT_EQ(program->list.TimesAt(1), (CaptionTimes{2230, 4170}));
  Window().mnuUndo.Click();
  EXPECT_EQ(program->list.TimesAt(1), CaptionTimes{});
}

TEST_F(ReleaseFittingTest, NothingComesBetweenAPressAndItsRelease) {
  Hold(2230, 4170);
  Press(7220);
  Window().tmrRelease.Pass();
  EXPECT_EQ(program->list.TimesAt(1), (CaptionTimes{2230, 4170}));
  Release(9150);
  WaitForFit();
  EXPECT_NEAR(StartOf(1).Count(), kStarts[0], 25);
  EXPECT_NEAR(StartOf(2).Count(), kStarts[1], 25);
}

TEST_F(ReleaseFittingTest, WithoutAnySoundTheConstantIsTakenOff) {
  Play(folder.Write("other.mkv", "x"));
  Hold(2230, 4170);
  WaitForFit();
  EXPECT_EQ(program->list.TimesAt(1), (CaptionTimes{2030, 3990}));
  EXPECT_EQ(program->grid.Remarks(1), u"Moved by your constant: start -200 ms, end -180 ms");
}

TEST_F(ReleaseFittingTest, AnUnknownHandWithoutSoundLeavesTheTimesAlone) {
  program->options.pressLate = {};
  program->options.releaseLate = {};
  Play(folder.Write("other.mkv", "x"));
  Hold(2230, 4170);
  WaitForFit();
  EXPECT_EQ(program->list.TimesAt(1), (CaptionTimes{2230, 4170}));
}

TEST_F(ReleaseFittingTest, TheSettingAndTheClassicMannerTurnItOff) {
  Window().mnuFitOnRelease.Click();
  EXPECT_FALSE(program->options.fitOnRelease);
  Hold(2230, 4170);
  EXPECT_FALSE(Window().tmrRelease.Enabled());
  Window().mnuFitOnRelease.Click();
  program->options.manner.SetClassic(true);
  Hold(7230, 9170);
  EXPECT_FALSE(Window().tmrRelease.Enabled());
}

TEST_F(ReleaseFittingTest, MissingWordsAreToldOnceAndTheSoundIsEnough) {
  program->options.fitLanguage = u"en";
  processes.missing = true;
  Hold(2230, 4170);
  WaitForFit();
  EXPECT_NEAR(StartOf(1).Count(), kStarts[0], 25);
  EXPECT_NE(Told().find(u"without their words"), Text::npos) << ToUtf8(Told());
}

TEST(HeldHand, HasAMedianAndASpreadThatOneOutlierDoesNotMove) {
  EXPECT_EQ(MedianLateness({200, 210, 190, 2000, 205}), 205);
  EXPECT_LT(LatenessSpread({200, 210, 190, 2000, 205}), 30);
}

TEST(HeldHand, IsUnknownUntilItIsMeasured) {
  AppOptions options;
  EXPECT_FALSE(HandInForce(options));
  KeepHandTimes(options, 1, {230, 50, 180, 90});
  EXPECT_FALSE(HandInForce(options));
  options.hand = 1;
  ASSERT_TRUE(HandInForce(options));
  EXPECT_EQ(HandInForce(options)->start, 230);
  EXPECT_EQ(HandInForce(options)->endSpread, 90);
}

}  // namespace
}  // namespace cuewright

#include "forms/retakes.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

constexpr int kKeyB = 66;

/// Five captions, the first three from 1.1 to 1.9 s and so on, the last two without times; a film that plays.
struct CapturesTakenAgain : ProgramFixture {
  CapturesTakenAgain() {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
    CaptionTimes none[2] = {};
    List().Retime(4, none);
    Play(folder.Write("film.mkv", "x"));
    player.enabled = true;
    program->options.applyWhen = 0;
    program->options.autoJoin = 0;
    List().SetRow(4, false);
    player.position = 4.2;
    Window().tmrTime.Pass();
  }
  CaptionTimes Times(Row row) { return List().TimesAt(row); }
  void At(double seconds) {
    player.position = seconds;
    Window().tmrTime.Pass();
  }
  void Hold(double from, double to) {
    At(from);
    KeyEvent down{kKeyB, 0, kKeyB, false, false, false};
    program->capture.OnKeyDown(down);
    At(to);
    KeyEvent up{kKeyB, 0, kKeyB, false, false, false};
    program->capture.OnKeyUp(up);
  }
};

TEST_F(CapturesTakenAgain, TheFilmGoesBackToBeforeTheLastCaptionAndTheKeyCapturesIt) {
  player.Become(kPlayerPaused);
  Window().mnuRetake.Click();
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_DOUBLE_EQ(player.position, 1.1);
  EXPECT_EQ(player.state, kPlayerPlaying);
  Hold(3.25, 3.75);
  EXPECT_EQ(Times(3), (CaptionTimes{3250, 3750}));
  EXPECT_EQ(List().Selected(), 4);
}

TEST_F(CapturesTakenAgain, TheTakeBeforeComesBackPerCaption) {
  Window().mnuRetake.Click();
  const CaptionTimes first = Times(3);
  Hold(3.25, 3.75);
  const CaptionTimes second = Times(3);
  List().SetRow(3, false);
  Window().mnuTakeBefore.Click();
  EXPECT_EQ(Times(3), first);
  Window().mnuTakeBefore.Click();
  EXPECT_EQ(Times(3), second);
  Window().mnuUndo.Click();
  EXPECT_EQ(Times(3), first);
  List().SetRow(2, false);
  const CaptionTimes other = Times(2);
  Window().mnuTakeBefore.Click();
  EXPECT_EQ(Times(2), other);
  EXPECT_EQ(Window().lblNotice.GetText(), u"This caption has no take before.");
}

TEST_F(CapturesTakenAgain, GoBackByCaptionsOrSeconds) {
  const std::pair<std::size_t, Row> rows[] = {{0, 3}, {1, 2}, {2, 1}, {3, 1}};
  for (const auto& [step, first] : rows) {
    List().SetRow(4, false);
    Window().mnuRetakeStep[step].Click();
    EXPECT_TRUE(Window().mnuRetakeStep[step].Checked());
    Window().mnuRetake.Click();
    EXPECT_EQ(List().Selected(), first) << step;
  }
  EXPECT_EQ(Window().mnuRetakeStep[1].GetText(), u"2 captions");
  EXPECT_EQ(Window().mnuRetakeStep[4].GetText(), u"10 seconds");
}

TEST_F(CapturesTakenAgain, ACaptureThatRunsIsGivenUp) {
  At(4.3);
  KeyEvent down{kKeyB, 0, kKeyB, false, false, false};
  program->capture.OnKeyDown(down);
  ASSERT_TRUE(program->capture.Capturing());
  Window().mnuRetake.Click();
  EXPECT_FALSE(program->capture.Capturing());
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(CapturesTakenAgain, TakesStayWithTheirCaptionsWhenOthersComeAndGo) {
  Window().mnuRetake.Click();
  const CaptionTimes first = Times(3);
  Hold(3.25, 3.75);
  List().Replace(1, 1, {});
  List().SetRow(2, false);
  Window().mnuTakeBefore.Click();
  EXPECT_EQ(Times(2), first);
}

TEST_F(CapturesTakenAgain, WithoutTimesBeforeThereIsNothingToTakeAgain) {
  List().SetRow(1, false);
  player.seeks.clear();
  Window().mnuRetake.Click();
  EXPECT_TRUE(player.seeks.empty());
  EXPECT_EQ(Window().lblNotice.GetText(), u"There is no caption with times before this one.");
}

TEST_F(CapturesTakenAgain, TheClassicMannerHasNoCommandForIt) {
  program->options.manner.SetClassic(true);
  program->retakes.ShowItems();
  EXPECT_FALSE(Window().mnuRetake.Visible());
  EXPECT_FALSE(Window().mnuTakeBefore.Visible());
}

}  // namespace
}  // namespace cuewright

#include "forms/film_commands.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// A film of 25 pictures a second that stands, and captions of 0.8 s, one a second from 1.1 s on.
struct FilmMenu : ProgramFixture {
  FilmMenu() {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
    player.framesPerSecond = 25;
    player.duration = 60;
    Play(folder.Write("film.mp4", "x"));
    player.Become(kPlayerPaused);
    List().MoveSelection(2);
    player.seeks.clear();
  }
  void Tick() { Window().tmrStretch.Pass(); }
  CaptionTimes Times(Row row = 2) { return List().TimesAt(row); }
};

TEST_F(FilmMenu, PlaysAndPauses) {
  Window().mnuPlayOrPause.Click();
  EXPECT_EQ(player.state, kPlayerPlaying);
  Window().mnuPlayOrPause.Click();
  EXPECT_EQ(player.state, kPlayerPaused);
}

TEST_F(FilmMenu, PlaysTheCaptionAndStopsAtItsEnd) {
  Window().mnuPlayCaption.Click();
  EXPECT_EQ(player.position, 2.1);
  EXPECT_EQ(player.state, kPlayerPlaying);
  EXPECT_TRUE(Window().tmrStretch.Enabled());
  player.position = 2.899;
  Tick();
  EXPECT_EQ(player.state, kPlayerPlaying);
  player.position = 2.9;
  Tick();
  EXPECT_EQ(player.state, kPlayerPaused);
  EXPECT_FALSE(Window().tmrStretch.Enabled());
}

TEST_F(FilmMenu, RepeatsTheCaptionUntilToldOtherwise) {
  Window().mnuRepeatCaption.Click();
  EXPECT_TRUE(Window().mnuRepeatCaption.Checked());
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(player.position, 2.1);
    player.position = 2.95;
    Tick();
  }
  EXPECT_EQ(player.seeks.size(), 4u);
  EXPECT_EQ(player.state, kPlayerPlaying);
  Window().mnuRepeatCaption.Click();
  player.position = 2.95;
  Tick();
  EXPECT_EQ(player.state, kPlayerPaused);
}

TEST_F(FilmMenu, PlaysHalfASecondAroundEachEdge) {
  const auto stretch = [&](MenuItem& item) {
    player.seeks.clear();
    item.Click();
    int end = 0;
    for (int ms = 0; player.state == kPlayerPlaying && ms < 10000; ++ms) {
      player.position = ms / 1000.0;
      Tick();
      end = ms;
    }
    return std::pair(player.seeks.at(0), end);
  };
  EXPECT_EQ(stretch(Window().mnuPlayBeforeStart), std::pair(1.6, 2100));
  EXPECT_EQ(stretch(Window().mnuPlayAfterStart), std::pair(2.1, 2600));
  EXPECT_EQ(stretch(Window().mnuPlayBeforeEnd), std::pair(2.4, 2900));
  EXPECT_EQ(stretch(Window().mnuPlayAfterEnd), std::pair(2.9, 3400));
}

TEST_F(FilmMenu, AUserWhoMovesOrPausesTheFilmIsNotPausedLater) {
  Window().mnuPlayCaption.Click();
  player.SetCurrentPosition(10);
  Tick();
  EXPECT_EQ(player.state, kPlayerPlaying);
  Window().mnuPlayCaption.Click();
  player.Pause();
  player.position = 5;
  player.Play();
  Tick();
  EXPECT_EQ(player.state, kPlayerPlaying);
}

TEST_F(FilmMenu, PlaysSlowerAndFasterBetweenAQuarterAndFour) {
  EXPECT_EQ(Window().mnuSpeed.GetText(), u"Speed: 1");
  EXPECT_TRUE(Window().mnuUsualSpeed.Checked());
  std::vector<double> speeds;
  while (Window().mnuSlower.Enabled()) {
    Window().mnuSlower.Click();
    speeds.push_back(player.speed);
  }
  EXPECT_EQ(speeds, (std::vector{0.75, 0.67, 0.5, 0.33, 0.25}));
  EXPECT_EQ(Window().mnuSpeed.GetText(), u"Speed: 0.25");
  EXPECT_FALSE(Window().mnuUsualSpeed.Checked());
  Window().mnuSlower.Click();
  EXPECT_EQ(player.speed, 0.25);
  Window().mnuUsualSpeed.Click();
  speeds.clear();
  while (Window().mnuFaster.Enabled()) {
    Window().mnuFaster.Click();
    speeds.push_back(player.speed);
  }
  EXPECT_EQ(speeds, (std::vector{1.25, 1.5, 2.0, 3.0, 4.0}));
  EXPECT_EQ(Window().mnuSpeed.GetText(), u"Speed: 4");
  Window().mnuFaster.Click();
  EXPECT_EQ(player.speed, 4);
  // Another control has set a speed between two of these.
  player.SetSpeed(1.1);
  EXPECT_EQ(Window().mnuSpeed.GetText(), u"Speed: 1.1");
  Window().mnuSlower.Click();
  EXPECT_EQ(player.speed, 1);
}

TEST_F(FilmMenu, StepsByFramesAndTime) {
  player.position = 1.01;
  Window().mnuFrameForward.Click();
  EXPECT_EQ(player.position, 1.04);
  Window().mnuFrameBack.Click();
  EXPECT_EQ(player.position, 1.0);
  Window().mnuStepForward.Click();
  EXPECT_EQ(player.position, 1.1);
  Window().mnuSecondForward.Click();
  EXPECT_EQ(player.position, 2.1);
  Window().mnuStepBack.Click();
  EXPECT_EQ(player.position, 2.0);
  for (int i = 0; i < 3; ++i) Window().mnuSecondBack.Click();
  EXPECT_EQ(player.position, 0);
}

TEST_F(FilmMenu, PutsAnEdgeWhereTheFilmIs) {
  player.position = 2.2;
  Window().mnuStartHere.Click();
  EXPECT_EQ(Times(), (CaptionTimes{2200, 2900}));
  player.position = 2.8;
  Window().mnuEndHere.Click();
  EXPECT_EQ(Times(), (CaptionTimes{2200, 2800}));
  // Behind its end the caption keeps its length, and it never ends before it begins.
  player.position = 5;
  Window().mnuStartHere.Click();
  EXPECT_EQ(Times(), (CaptionTimes{5000, 5600}));
  player.position = 4;
  Window().mnuEndHere.Click();
  EXPECT_EQ(Times(), (CaptionTimes{5000, 5600}));
  for (int i = 0; i < 3; ++i) Window().mnuUndo.Click();
  EXPECT_EQ(Times(), (CaptionTimes{2100, 2900}));
  EXPECT_FALSE(program->history.Differs());
}

TEST_F(FilmMenu, NoCaptionLosesItsTimesAtTheBeginningOfTheFilm) {
  player.position = 0;
  Window().mnuStartHere.Click();
  EXPECT_EQ(Times(), (CaptionTimes{1, 2900}));
  EXPECT_TRUE(List().IsCaptionTimed(2));
  List().SetCaptionStart(3, 1500, false);
  List().SetCaptionStart(2, 2000, false);
  Window().mnuPushFromHere.Click();
  EXPECT_TRUE(List().IsCaptionTimed(2));
  EXPECT_TRUE(List().IsCaptionTimed(3));
}

TEST_F(FilmMenu, AKeyCountsWhenItWentDown) {
  player.history = [](double instant) { return instant - 100; };
  Window().inputInstant = 102.345;
  Window().mnuStartHere.Click();
  Window().inputInstant.reset();
  EXPECT_EQ(Times().start, 2345);
}

TEST_F(FilmMenu, MovesAllThatFollowsAlong) {
  player.position = 2.6;
  Window().mnuPushFromHere.Click();
  EXPECT_EQ(Times(1), (CaptionTimes{1100, 1900}));
  EXPECT_EQ(Times(2), (CaptionTimes{2600, 3400}));
  EXPECT_EQ(Times(5), (CaptionTimes{5600, 6400}));
  Window().mnuUndo.Click();
  EXPECT_FALSE(program->history.Differs());
}

TEST_F(FilmMenu, NudgesEdges) {
  Window().mnuStartEarlier.Click();
  // 2.1 s lies between two frames, nearer to the later one: that is where a step begins.
  EXPECT_EQ(Times().start, 2080);
  Window().mnuStartLater.Click();
  EXPECT_EQ(Times().start, 2120);
  Window().mnuEndLater.Click();
  EXPECT_EQ(Times().end, 2960);
  Window().mnuEndMuchEarlier.Click();
  EXPECT_EQ(Times().end, 2860);
  Window().mnuStartMuchLater.Click();
  EXPECT_EQ(Times().start, 2220);
}

TEST_F(FilmMenu, GoesToTheNextCaptionAndStaysAtTheLast) {
  for (int i = 0; i < 9; ++i) Window().mnuNextInPane.Click();
  EXPECT_EQ(List().Selected(), 5);
}

TEST_F(FilmMenu, TouchesNoTimesWhileACaptionIsHeld) {
  player.Become(kPlayerPlaying);
  program->capture.StartCaption(true, false);
  const CaptionTimes held = Times();
  player.position = 20;
  Window().mnuEndHere.Click();
  EXPECT_EQ(Times(), held);
}

TEST_F(FilmMenu, IsNotThereInTheClassicManner) {
  EXPECT_TRUE(Window().mnuFilm.Visible());
  program->options.manner.SetClassic(true);
  program->states.ResetControls();
  EXPECT_FALSE(Window().mnuFilm.Visible());
}

TEST_F(ProgramFixture, TheFilmMenuFollowsWhatIsOpen) {
  EXPECT_FALSE(Window().mnuPlayOrPause.Enabled());
  EXPECT_FALSE(Window().mnuStartEarlier.Enabled());
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  EXPECT_TRUE(Window().mnuStartEarlier.Enabled());
  EXPECT_FALSE(Window().mnuStartHere.Enabled());
  Play(folder.Write("film.mp4", "x"));
  EXPECT_TRUE(Window().mnuStartHere.Enabled());
}

}  // namespace
}  // namespace cuewright

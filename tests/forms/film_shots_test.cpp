#include "forms/film_shots.h"

#include <algorithm>

#include "forms/shots_dialog.h"
#include "shots/measure_bytes.h"
#include "shots/shots.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;
using testing::ProgramFixture;

/// A film of 25 pictures a second whose picture becomes another one at picture 50 and, a little less, at picture 100.
struct ShotsOfAFilm : ProgramFixture {
  ShotsOfAFilm() {
    film = folder.Write("film.mkv", "x");
    Play(film);
    player.duration = 6;
    player.framesPerSecond = 25;
    player.picture = {640, 360};
    program->options.audioBarOn = true;
  }

  static constexpr int kPictures = 150;

  static std::string Picture(int number) {
    std::string bytes(Thumbnail::kBytes, '\x80');
    for (int y = 0; y < Thumbnail::kHeight; ++y) {
      for (int x = 0; x < Thumbnail::kWidth; ++x) {
        const int shape = number < 50 ? x * 3 : number < 100 ? y * 6 : 230 - x * 3;
        bytes[static_cast<std::size_t>(y) * Thumbnail::kWidth + static_cast<std::size_t>(x)] =
            static_cast<char>(std::clamp(shape + (x * 7 + y * 3 + number) % 3, 0, 255));
      }
    }
    return bytes;
  }
  FakeProcesses::Run& Run() { return *processes.runs.back(); }
  void Tick() { Window().tmrTime.Pass(); }
  /// The decoder gives pictures up to this one.
  void Decode(int first, int end) {
    if (first == 0) Run().errors = "[Parsed_showinfo_2 @ 0x1] config in time_base: 1/1000, frame_rate: 25/1\n";
    for (int i = first; i < end; ++i) {
      Run().output += Picture(i);
      Run().errors += "[Parsed_showinfo_2 @ 0x1] n:   0 pts: " + std::to_string(i * 40) + " pts_time:0\n";
    }
    Measure();
  }
  /// A few pictures are measured at once.
  void Measure() {
    for (int i = 0; i < kPictures / 20; ++i) Window().tmrShots.Pass();
  }
  void DecodeAll() {
    Tick();
    Decode(0, kPictures);
    Run().status = 0;
    Window().tmrShots.Pass();
  }
  const std::vector<Ms>& Shots() { return program->waveBoard.shots.Shots(); }
  Text Notice() { return Window().lblNotice.GetText(); }

  Text film;
};

TEST_F(ShotsOfAFilm, AreFoundInTheBackgroundAndStandInTheWave) {
  processes.missing = false;
  DecodeAll();
  EXPECT_EQ(Run().program, u"nice");
  EXPECT_TRUE(std::ranges::count(Run().arguments, u"file:" + film) == 1);
  EXPECT_EQ(Shots(), (std::vector<Ms>{2000, 4000}));
  EXPECT_TRUE(Run().gone);
  EXPECT_FALSE(Window().tmrShots.Enabled());
  EXPECT_FALSE(Window().lblWave.Visible());
}

TEST_F(ShotsOfAFilm, TellHowFarTheSearchIs) {
  Tick();
  Decode(0, 76);
  EXPECT_EQ(Window().lblWave.GetText(), u"Finding the shots of the film... 50 %");
  EXPECT_TRUE(Window().lblWave.Visible());
  EXPECT_TRUE(Window().cmdStopSound.Visible());
  Window().cmdStopSound.Click();
  EXPECT_TRUE(Run().gone);
  EXPECT_FALSE(Window().lblWave.Visible());
  // It doesn't begin anew by itself.
  Tick();
  EXPECT_EQ(processes.runs.size(), 1u);
}

TEST_F(ShotsOfAFilm, TheWindowGoesOnWhileManyPicturesWait) {
  Tick();
  Run().errors = "[Parsed_showinfo_2 @ 0x1] config in time_base: 1/1000, frame_rate: 25/1\n";
  for (int i = 0; i < 100; ++i) {
    Run().output += Picture(i);
    Run().errors += "[Parsed_showinfo_2 @ 0x1] n:   0 pts: " + std::to_string(i * 40) + " pts_time:0\n";
  }
  Run().status = 0;
  Window().tmrShots.Pass();
  EXPECT_TRUE(program->filmShots.Running());
  EXPECT_EQ(Window().lblWave.GetText(), u"Finding the shots of the film... 15 %");
  Measure();
  EXPECT_FALSE(program->filmShots.Running());
  EXPECT_EQ(Shots(), std::vector<Ms>{2000});
}

TEST_F(ShotsOfAFilm, AreThereAtOnceTheNextTime) {
  DecodeAll();
  Restart({});
  Play(film);
  EXPECT_TRUE(Shots().empty());
  Tick();
  EXPECT_EQ(processes.runs.size(), 1u);
  EXPECT_EQ(Shots(), (std::vector<Ms>{2000, 4000}));
}

TEST_F(ShotsOfAFilm, TheSearchEndsAtOnceWithItsFilm) {
  Tick();
  Decode(0, 60);
  Play(folder.Write("other.mkv", "y"));
  EXPECT_TRUE(processes.runs.front()->gone);
  EXPECT_TRUE(Shots().empty());
  Tick();
  EXPECT_EQ(processes.runs.size(), 2u);
  program->session.CloseDocuments();
  EXPECT_TRUE(Run().gone);
}

TEST_F(ShotsOfAFilm, AFilmThatBreaksOffIsReadAnewTheNextTime) {
  Tick();
  Decode(0, 120);
  Run().status = 1;
  Window().tmrShots.Pass();
  EXPECT_EQ(Shots(), (std::vector<Ms>{2000, 4000}));
  Restart({});
  Play(film);
  Tick();
  EXPECT_EQ(processes.runs.size(), 2u);
}

TEST_F(ShotsOfAFilm, AreNotLookedForInTheClassicMannerOrWhenTheUserDoesNotWantIt) {
  program->options.manner.SetClassic(true);
  Tick();
  EXPECT_TRUE(processes.runs.empty());
  program->options.manner.SetClassic(false);
  program->options.findShots = false;
  Tick();
  EXPECT_TRUE(processes.runs.empty());
}

TEST_F(ShotsOfAFilm, WaitForTheSound) {
  player.audioTrack = 1;
  Tick();
  EXPECT_EQ(Run().program, u"ffmpeg");
  Tick();
  EXPECT_EQ(processes.runs.size(), 1u);
  Run().status = 1;
  Window().tmrFilmSound.Pass();
  Tick();
  ASSERT_EQ(processes.runs.size(), 2u);
  EXPECT_EQ(Run().program, u"nice");
}

TEST_F(ShotsOfAFilm, AnotherSensitivityNeedsNoReading) {
  DecodeAll();
  ShotsDialog& dialog = program->shotsDialog;
  Window().mnuShots.Click();
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(dialog.lblCount.GetText(), u"100 %     2 shots");
  dialog.sldSense.Move(25);
  const std::vector<Shot> few = FindShots(
      [&] {
        std::vector<PictureMeasure> measures;
        const Text kept = sounds.PathFor(film, -1) + u".shots";
        EXPECT_TRUE(ReadMeasures(files.Read(kept, 1 << 20), measures));
        return measures;
      }(),
      0.25);
  EXPECT_EQ(Shots().size(), few.size());
  EXPECT_EQ(program->options.shotSense, 25);
  EXPECT_EQ(processes.runs.size(), 1u);
  dialog.chkFind.Click();
  EXPECT_FALSE(program->options.findShots);
  dialog.cmdClose.Click();
  EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(ShotsOfAFilm, AHandSetsAMarkAtThePictureThatIsShownAndTakesItAway) {
  DecodeAll();
  player.position = 3.018;
  Window().mnuShotHere.Click();
  EXPECT_EQ(Shots(), (std::vector<Ms>{2000, 3000, 4000}));
  EXPECT_EQ(Notice(), u"A shot was marked at 00:00:03,000.");
  // It is there the next time, too.
  Restart({});
  program->options.audioBarOn = true;
  Play(film);
  player.position = 3.018;
  Tick();
  EXPECT_EQ(Shots().size(), 3u);
  Window().mnuShotHere.Click();
  EXPECT_EQ(Shots(), (std::vector<Ms>{2000, 4000}));
  EXPECT_EQ(Notice(), u"The mark of a shot at 00:00:03,000 was taken away.");
}

TEST_F(ShotsOfAFilm, AHandSetsAMarkAtTheStretchOfTheWave) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->waveBoard.SetSize(1000, 180);
  Window().mnuShotAtCursor.Click();
  EXPECT_TRUE(Shots().empty());
  // Ten pixels of 10 ms each, from 4.5 s on.
  program->waveBoard.Press(MouseButton::Left, 450, 100, {});
  program->waveBoard.Move(470, 100, {.shift = true});
  program->waveBoard.Release({});
  ASSERT_TRUE(program->waveBoard.Stretch());
  Window().mnuShotAtCursor.Click();
  EXPECT_EQ(Shots(), std::vector<Ms>{program->waveBoard.Stretch()->start});
}

TEST_F(ShotsOfAFilm, FrameStepsGoByThePicturesTimesAndAreTold) {
  DecodeAll();
  player.Become(kPlayerPaused);
  player.framesPerSecond = 24;  // what the container says
  player.position = 1.0;
  Window().mnuFrameForward.Click();
  EXPECT_DOUBLE_EQ(player.position, 1.04);
  EXPECT_EQ(Window().lblStatus.GetText(), u"Frame 26, 0:00:01.040");
  Window().mnuFrameBack.Click();
  Window().mnuFrameBack.Click();
  EXPECT_DOUBLE_EQ(player.position, 0.96);
}

}  // namespace
}  // namespace cuewright

#include "forms/film_workbench.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct FilmOnTheBench : ProgramFixture {
  FilmOnTheBench() {
    Play(folder.Write("film.mkv", "x"));
    player.enabled = true;
    player.duration = 100;
    player.framesPerSecond = 25;
  }
  void GoTo(const Text& typed) {
    boxes.lines.push_back(typed);
    Window().mnuGoToPosition.Click();
  }
};

TEST_F(FilmOnTheBench, GoesToWhatIsTyped) {
  const std::pair<Text, double> rows[] = {{u"1:02.5", 62.5}, {u" 62500 ms ", 62.5}, {u"#1500", 60.0}, {u"7", 7.0}};
  for (const auto& [typed, seconds] : rows) {
    GoTo(typed);
    EXPECT_DOUBLE_EQ(player.position, seconds) << ToUtf8(typed);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FilmOnTheBench, TellsWhatIsNoPositionAndStays) {
  for (const Text& typed : {Text(u"here"), Text(u"#-1"), Text(u"#"), Text(u"ms")}) GoTo(typed);
  EXPECT_EQ(boxes.shown.size(), 4u);
  EXPECT_TRUE(player.seeks.empty());
  // Without a rate and measured pictures a frame has no time.
  player.framesPerSecond = 0;
  GoTo(u"#10");
  EXPECT_EQ(boxes.shown.size(), 5u);
  GoTo(u"");
  EXPECT_EQ(boxes.shown.size(), 5u);
}

TEST_F(FilmOnTheBench, ChoosesOneOfItsSoundTracks) {
  player.soundTracks = {{1, u"Original, fr"}, {2, u""}};
  player.audioTrack = 1;
  Window().tmrTime.Pass();
  Window().mnuFilm.OpenMenu();
  EXPECT_TRUE(Window().mnuSoundTracks.Visible());
  EXPECT_EQ(Window().mnuSoundTrack[0].GetText(), u"Track 1: Original, fr");
  EXPECT_EQ(Window().mnuSoundTrack[1].GetText(), u"Track 2");
  EXPECT_FALSE(Window().mnuSoundTrack[2].Visible());
  EXPECT_TRUE(Window().mnuSoundTrack[0].Checked());
  Window().mnuSoundTrack[1].Click();
  EXPECT_EQ(player.audioTrack, 2);
  Window().tmrTime.Pass();
  EXPECT_TRUE(Window().mnuSoundTrack[1].Checked());
  player.soundTracks.pop_back();
  Window().mnuFilm.OpenMenu();
  EXPECT_FALSE(Window().mnuSoundTracks.Visible());
}

TEST_F(FilmOnTheBench, TheWaveFollowsTheTrackThatIsHeard) {
  player.audioTrack = 1;
  program->options.audioBarOn = true;
  Window().tmrTime.Pass();
  ASSERT_EQ(processes.runs.size(), 1u);
  const auto track = [this] {
    const auto& given = processes.runs.back()->arguments;
    const Text& graph = *(std::find(given.begin(), given.end(), u"-filter_complex") + 1);
    return graph.substr(0, graph.find(u']') + 1);
  };
  EXPECT_EQ(track(), u"[0:1]");
  player.audioTrack = 2;
  Window().tmrTime.Pass();
  Window().tmrTime.Pass();
  EXPECT_TRUE(processes.runs.front()->gone);
  ASSERT_EQ(processes.runs.size(), 2u);
  EXPECT_EQ(track(), u"[0:2]");
}

TEST_F(FilmOnTheBench, IsDecodedByTheGraphicsCardWhenTheUserWantsIt) {
  EXPECT_FALSE(player.hardware);
  Window().mnuHardware.Click();
  EXPECT_TRUE(player.hardware);
  EXPECT_TRUE(Window().mnuHardware.Checked());
  program->options.manner.SetClassic(true);
  program->filmWorkbench.ShowItems();
  EXPECT_FALSE(player.hardware);
  EXPECT_FALSE(Window().mnuHardware.Visible());
  EXPECT_FALSE(Window().mnuGoToPosition.Visible());
}

}  // namespace
}  // namespace cuewright

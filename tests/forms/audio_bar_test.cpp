#include "audio/audio_bar.h"

#include "tests/support/audio_bar_rig.h"

namespace cuewright {
namespace {

using testing::kCyan;
using testing::PixelSurface;

using WaveLoading = testing::AudioBarRig;
using WaveFollowing = testing::AudioBarRig;
using BarSwitch = testing::AudioBarRig;

TEST_F(WaveLoading, ShowsTheBarItsControlsAndTheLastFile) {
  program->options.manner.SetClassic(true);
  EXPECT_FALSE(program->options.audioBarOn);
  Load(Flat(300));
  EXPECT_EQ(program->document.WavePath, folder / "a.wav");
  EXPECT_TRUE(program->options.audioBarOn);
  EXPECT_TRUE(Window().mnuAudioBar.Checked());
  EXPECT_TRUE(Window().picWave.Visible());
  EXPECT_TRUE(Window().sldWavScale.Enabled());
  EXPECT_TRUE(Window().tmrWave.Enabled());
  EXPECT_TRUE(Window().mnuClose.Enabled());
  EXPECT_TRUE(Window().mnuOpenWav.Enabled());
  EXPECT_TRUE(Window().mnuAFileName.Visible());
  EXPECT_FALSE(Window().lblWave.Visible());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WaveLoading, TellsWhatItReadsWhileItReads) {
  std::vector<Text> texts;
  events.onYield = [&] {
    if (Window().lblWave.Visible()) texts.push_back(Window().lblWave.GetText());
    EXPECT_FALSE(Window().lblWave.Visible() && Window().mnuOpenWav.Enabled());
  };
  Load(Flat(1200));
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(texts.front(), u"Reading audio file... ");
  // 495 columns of 16 bytes behind the header's 44, one step of 16 back: position 7949; 1203 columns have 19248 bytes.
  EXPECT_NE(std::find(texts.begin(), texts.end(), u"Reading audio file... 7 / 18 KB"), texts.end());
}

TEST_F(WaveLoading, AFileThatIsNoWaveIsToldAndLeavesTheOldOne) {
  Load(Flat(300));
  const Text old = program->document.WavePath;
  Load(folder.Write("b.wav", "no wave at all, and long enough for a header"));
  EXPECT_EQ(LastBox(), "Failed to load selected wave file. Only uncompressed PCM WAV files are supported.");
  EXPECT_EQ(boxes.shown.back().title, u"Audio bar");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(program->document.WavePath, old);
  EXPECT_TRUE(Window().mnuOpenWav.Enabled());
}

TEST_F(WaveLoading, AFailureBehindTheHeaderKeepsWhatIsFilled) {
  const Text path = Flat(300, 5000);
  std::string bytes = folder.Read("a.wav");
  bytes.resize(bytes.size() - 2000);
  folder.Write("a.wav", bytes);  // the data is larger than the file
  Load(path);
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(program->document.WavePath, path);
  EXPECT_EQ(Bar().Peaks().Columns(), 0);
}

TEST_F(WaveLoading, ClosingTheDocumentsGivesTheLoadUpWithoutAMessage) {
  int yields = 0;
  events.onYield = [&] {
    if (Window().lblWave.Visible() && ++yields == 3) program->session.CloseDocuments();
  };
  Load(Flat(5000));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(program->document.WavePath.empty());
  EXPECT_TRUE(Window().mnuOpenWav.Enabled());
  EXPECT_FALSE(Window().lblWave.Visible());
  EXPECT_FALSE(Window().tmrWave.Enabled());
  EXPECT_LT(Bar().Peaks().Columns(), 2000);
}

TEST_F(WaveLoading, ALoadThatIsOvertakenByAnotherEndsQuietly) {
  const Text other = Wave(
      700, [](int) { return 3000; }, "b.wav");
  int yields = 0;
  events.onYield = [&] {
    if (Window().lblWave.Visible() && ++yields == 3) Load(other);
  };
  Load(Flat(5000));
  EXPECT_EQ(program->document.WavePath, other);
  EXPECT_EQ(Bar().Peaks().Columns(), 701);
  EXPECT_EQ(Bar().Peaks().At(2 * 699), 3000);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WaveLoading, AFileShorterThanAScreenfulIsPaintedOnceAtTheEnd) {
  Load(Flat(300));  // the bar is switched on, which paints as well
  const int before = view.wave.clears;
  Load(Flat(300));
  EXPECT_EQ(view.wave.clears - before, 2);  // forgetting the old wave, and the paint
}

TEST_F(WaveLoading, ALongerFileIsPaintedWhenItsFirstScreenfulIsThere) {
  Load(Flat(300));
  const int before = view.wave.clears;
  Load(Flat(1500));
  EXPECT_EQ(view.wave.clears - before, 2);
  // What came behind the screenful was not there when it was painted, and reads as silence as far as the screen goes.
  EXPECT_EQ(view.wave.At(599, 72), kCyan);
}

TEST_F(WaveLoading, AnotherFilmClearsTheWaveOfTheOneBefore) {
  OpenAll();
  const Text wave = program->document.WavePath;
  Play(folder / "film.mkv");
  EXPECT_EQ(program->document.WavePath, wave);
  Play(folder.Write("other.mkv", "x"));
  EXPECT_EQ(program->document.WavePath, u"");
  EXPECT_FALSE(Marks().captionShown);
}

TEST_F(WaveFollowing, ThePositionRunsAcrossAndThePageTurns) {
  OpenAll(3000);
  At(1234);
  EXPECT_EQ(Marks().position, 123);
  EXPECT_EQ(Marks().arrowLeft, 31 + 123 - 2);
  At(4009);
  EXPECT_EQ(Bar().View().scrollPos, 0);  // right at the edge
  At(4010);
  EXPECT_EQ(Bar().View().scrollPos, 401);
  EXPECT_EQ(Marks().position, 0);
  EXPECT_FALSE(Marks().captionShown);  // the first caption lies left of the page
  At(1500);
  EXPECT_EQ(Bar().View().scrollPos, 150);
  EXPECT_TRUE(Marks().captionShown);
  EXPECT_EQ(Marks().start, -40);
}

TEST_F(WaveFollowing, ASeekIsFollowedAtOnce) {
  OpenAll();
  player.SetCurrentPosition(2.0);
  EXPECT_EQ(Marks().position, 200);
}

TEST_F(WaveFollowing, BehindTheEndOfTheWaveNothingMoves) {
  OpenAll(300);
  At(1000);
  At(60000);
  EXPECT_EQ(Marks().position, 100);
  EXPECT_EQ(Bar().View().scrollPos, 0);
}

TEST_F(WaveFollowing, TheMeterShowsTheMaximumIn32Steps) {
  program->options.waveScale = 3200;
  Bar().LoadOptions();
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  Play(folder.Write("film.mkv", "x"));
  Load(Wave(700, [](int i) { return i == 10 ? 2650 : i == 11 ? 32000 : i == 12 ? 99 : 0; }));
  At(100);
  EXPECT_EQ(Bar().WaveLevel(), 26);
  EXPECT_EQ(view.level.At(2, 66), 0xFFFF00);
  EXPECT_EQ(view.level.At(15, 66 - 2 * 24), 0xFFFF00);
  EXPECT_EQ(view.level.At(2, 66 - 2 * 25), 0x00FFFF);
  EXPECT_EQ(view.level.At(2, 66 - 2 * 26), 0x008080);
  EXPECT_EQ(view.level.At(2, 66 - 2 * 32), 0x000080);
  EXPECT_EQ(view.level.At(16, 66), PixelSurface::kScale);
  At(110);
  EXPECT_EQ(view.level.At(2, 2), 0x0000FF);
  At(120);
  EXPECT_EQ(Bar().WaveLevel(), 0);
  EXPECT_EQ(view.level.At(2, 66), 0x808000);
  At(100);
  player.state = kPlayerStopped;
  At(100);
  EXPECT_EQ(view.level.At(2, 66), PixelSurface::kScale);
}

TEST_F(WaveFollowing, APausedPlayerIsFollowedToo) {
  OpenAll();
  player.Become(kPlayerPaused);
  At(1000);
  EXPECT_EQ(Marks().position, 100);
}

TEST_F(WaveFollowing, TheStatesOfThePlayerShowAndHideThePosition) {
  OpenAll(3000);
  EXPECT_TRUE(Marks().positionShown);
  EXPECT_TRUE(Window().imgWavPos.Visible());
  At(10000);
  player.Become(kPlayerPaused);
  EXPECT_TRUE(Marks().positionShown);
  EXPECT_EQ(Bar().View().scrollPos, 1000);
  player.Become(kPlayerStopped);
  EXPECT_FALSE(Marks().positionShown);
  EXPECT_FALSE(Window().imgWavPos.Visible());
  EXPECT_EQ(Bar().View().scrollPos, 0);
  player.Become(kPlayerPlaying);
  EXPECT_TRUE(Marks().positionShown);
  At(10000);
  player.Become(kPlayerTransitional);
  EXPECT_FALSE(Marks().positionShown);
  EXPECT_EQ(Bar().View().scrollPos, 0);
}

TEST_F(BarSwitch, ShowsAndHidesTheBarAndItsTimer) {
  program->options.manner.SetClassic(true);
  OpenAll();
  const int height = program->shell.Layout().List().height;
  EXPECT_EQ(program->shell.Layout().Wave().height, 73);
  Window().mnuAudioBar.Click();
  EXPECT_FALSE(Window().picWave.Visible());
  EXPECT_FALSE(Window().picLevel.Visible());
  EXPECT_FALSE(Window().sldWavScale.Visible());
  EXPECT_FALSE(Window().imgWavPos.Visible());
  EXPECT_FALSE(Window().tmrWave.Enabled());
  EXPECT_EQ(program->shell.Layout().List().height, height + 73 + 4);
  Window().mnuAudioBar.Click();
  EXPECT_TRUE(Window().picWave.Visible());
  EXPECT_TRUE(Window().imgWavPos.Visible());
  EXPECT_TRUE(Window().tmrWave.Enabled());
  EXPECT_EQ(program->shell.Layout().List().height, height);
}

TEST_F(BarSwitch, AHiddenBarDrawsNoMeter) {
  OpenAll();
  Window().mnuAudioBar.Click();
  const int lines = view.level.lines;
  At(1000);
  EXPECT_EQ(view.level.lines, lines);
}

TEST_F(BarSwitch, WithoutAWaveTheTimerStaysOff) {
  program->options.manner.SetClassic(true);
  Window().mnuAudioBar.Click();
  EXPECT_TRUE(Window().picWave.Visible());
  EXPECT_FALSE(Window().tmrWave.Enabled());
  EXPECT_FALSE(Window().sldWavScale.Enabled());
}

TEST_F(BarSwitch, TheSettingsComeBackAtTheStart) {
  program->options.audioBarOn = true;
  program->options.fullWave = true;
  program->options.waveScale = 9000;
  program->options.waveColor = 0x0000FF;
  program->shell.SaveAtUnload(false, false, 800, 600);
  Restart({});
  program->options.manner.SetClassic(true);
  program->audioBar.ShowManner();
  EXPECT_TRUE(Window().mnuAudioBar.Checked());
  EXPECT_TRUE(Window().picWave.Visible());
  EXPECT_TRUE(Window().mnuFullWave.Checked());
  EXPECT_EQ(Window().sldWavScale.Value(), -9000);
  EXPECT_EQ(Bar().View().color, 0x0000FF);
  EXPECT_EQ(Bar().View().tickColor, 0x0000AF);
}

TEST_F(BarSwitch, ClosingForgetsTheWave) {
  OpenAll();
  Window().mnuClose.Click();
  EXPECT_TRUE(program->document.WavePath.empty());
  EXPECT_FALSE(Marks().captionShown);
  EXPECT_FALSE(Marks().positionShown);
  EXPECT_FALSE(Window().tmrWave.Enabled());
  EXPECT_EQ(Bar().Peaks().UpperBound(), 0);
}

}  // namespace
}  // namespace cuewright

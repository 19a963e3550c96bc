#include "audio/audio_bar.h"

#include "core/caption_time.h"
#include "tests/support/program_fixture.h"
#include "tests/support/wave_pictures.h"

namespace cuewright {
namespace {

using testing::PixelSurface;
using testing::PixelView;
using testing::ProgramFixture;

constexpr std::int32_t kCyan = 0xFFFF00;
constexpr std::int32_t kTick = 0xAFAF00;
constexpr std::int32_t kGrey = 0x808080;
constexpr std::int32_t kBlack = 0;

struct AudioBarTest : ProgramFixture {
  AudioBarTest() { program->audioBar.SetView(&view); }
  ~AudioBarTest() override { program.reset(); }

  /// A wave of 16 bits and 800 samples a second: 16 bytes a column, each with one sample that counts. `level` tells the
  /// sample of a column.
  template <class Level>
  Text Wave(int columns, Level level, const std::string& name = "a.wav") {
    const auto number = [](unsigned value, int size) {
      std::string bytes;
      for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
      return bytes;
    };
    std::string data;
    // The last 44 bytes, as many as the header has, are never looked at.
    for (int i = 0; i < columns + 3; ++i) {
      data += number(static_cast<std::uint16_t>(level(i)), 2) + std::string(14, '\0');
    }
    const auto size = static_cast<unsigned>(data.size());
    return folder.Write(name, "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) + number(1, 2) +
                                  number(800, 4) + number(1600, 4) + number(2, 2) + number(16, 2) + "data" +
                                  number(size, 4) + data);
  }
  Text Flat(int columns, int level = 0) {
    return Wave(columns, [level](int) { return level; });
  }
  AudioBar& Bar() { return program->audioBar; }
  const WaveMarks& Marks() { return Bar().Marks(); }
  void Load(const Text& wave) { Bar().LoadWaveFile(wave); }
  /// Three captions: 1.1 to 1.9 s, 2.1 to 2.9 s, 3.1 to 3.9 s; a film that plays, and a wave.
  void OpenAll(int columns = 2000) {
    program->files.OpenSubtitleFile(SubRip("a.srt", 3));
    Play(folder.Write("film.mkv", "x"));
    Load(Flat(columns));
    List().SetRow(1, false);
  }
  void At(std::int32_t ms) {
    program->sample.SetPlayerPosMs(ms);
    Window().tmrWave.Tick();
  }
  void Drag(int from, int to) {
    Bar().OnPress(MouseButton::Right, from);
    Bar().OnMove(MouseButton::Right, to);
    Bar().OnRelease(MouseButton::Right);
  }
  std::pair<int, int> Times(Row row) { return {List().GetCaptionStart(row), List().GetCaptionEnd(row)}; }

  PixelView view;
};

using WaveLoading = AudioBarTest;
using WavePainting = AudioBarTest;
using WaveMarking = AudioBarTest;
using WaveDragging = AudioBarTest;
using WaveSeeking = AudioBarTest;
using WaveFollowing = AudioBarTest;
using BarSwitch = AudioBarTest;

TEST_F(WaveLoading, ShowsTheBarItsControlsAndTheLastFile) {
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
    if (Window().lblWave.Visible() && ++yields == 3) program->files.CloseDocuments();
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

TEST_F(WavePainting, TheMaximumRisesFromTheBottom) {
  program->options.waveScale = 7300;
  Bar().LoadOptions();
  Load(Wave(700, [](int i) { return i == 5 ? 1000 : i == 6 ? -3000 : i == 7 ? 9000 : 0; }));
  EXPECT_EQ(view.wave.Count(5, kCyan), 10);  // y = 73 - 10, down to the row below the picture
  EXPECT_EQ(view.wave.At(5, 63), kCyan);
  EXPECT_EQ(view.wave.At(5, 62), kBlack);
  EXPECT_EQ(view.wave.Count(6, kCyan), 1);  // only the minimum is there
  EXPECT_EQ(view.wave.At(6, 72), kCyan);
  EXPECT_EQ(view.wave.Count(7, kCyan), 73);  // beyond the scale it runs off the picture
}

TEST_F(WavePainting, AFullHeightWaveStandsAroundTheMiddle) {
  program->options.waveScale = 3600;
  program->options.fullWave = true;
  Bar().LoadOptions();
  Load(Wave(700, [](int i) { return i == 5 ? 1000 : i == 6 ? -500 : 0; }));
  EXPECT_EQ(view.wave.At(5, 26), kCyan);
  EXPECT_EQ(view.wave.At(5, 36), kCyan);
  EXPECT_EQ(view.wave.Count(5, kCyan), 11);
  EXPECT_EQ(view.wave.At(6, 41), kCyan);
  EXPECT_EQ(view.wave.Count(6, kCyan), 6);
  EXPECT_EQ(view.wave.Count(7, kCyan), 1);
  EXPECT_EQ(view.wave.At(7, 36), kCyan);
  Window().mnuFullWave.Click();
  EXPECT_FALSE(program->options.fullWave);
  EXPECT_EQ(view.wave.At(7, 72), kCyan);
}

TEST_F(WavePainting, WholeSecondsHaveALineAndAColorOfTheirOwn) {
  Load(Flat(3000));
  EXPECT_EQ(view.wave.At(100, 10), kGrey);
  EXPECT_EQ(view.wave.At(100, 72), kTick);
  EXPECT_EQ(view.wave.At(99, 72), kCyan);
  // At the left edge there is the colour, but no line.
  EXPECT_EQ(view.wave.At(0, 72), kTick);
  EXPECT_EQ(view.wave.At(0, 10), kBlack);
  EXPECT_EQ(view.wave.At(600, 10), kGrey);
}

TEST_F(WavePainting, TheSecondsMoveWithTheWave) {
  OpenAll(3000);
  At(10500);  // a page turn to column 1050
  EXPECT_EQ(Bar().View().scrollPos, 1050);
  EXPECT_EQ(view.wave.At(50, 10), kGrey);
  EXPECT_EQ(view.wave.At(50, 72), kTick);
  EXPECT_EQ(view.wave.At(100, 10), kBlack);
}

TEST_F(WavePainting, BehindTheEndOfTheSoundThereIsALine) {
  Load(Flat(300, 20000));
  // The header lets expect entries up to 606; behind them a line runs to the end of the screen.
  EXPECT_GT(view.wave.Count(299, kCyan), 10);
  EXPECT_EQ(view.wave.Count(450, kCyan), 1);
  EXPECT_EQ(view.wave.At(600, 72), kCyan);
}

TEST_F(WavePainting, TheColorsFollowFromTheWave) {
  struct Case {
    std::int32_t color, tick, back;
  };
  for (const Case& c :
       {Case{0xFFFF00, 0xAFAF00, 0x000000}, Case{0x000000, 0x505050, 0xFFFFFF}, Case{0x373737, 0x878787, 0xFFFFFF},
        Case{0x383737, 0x000000, 0x000000}, Case{0x515050, 0x010000, 0x000000}, Case{0xA50000, 0xF55050, 0xFFFFFF},
        Case{0x0000A5, 0x5050F5, 0xFFFFFF}}) {
    Bar().SetWaveColor(c.color);
    EXPECT_EQ(Bar().View().tickColor, c.tick) << std::hex << c.color;
    EXPECT_EQ(Bar().View().backColor, c.back) << std::hex << c.color;
    EXPECT_EQ(program->options.waveColor, c.color);
  }
}

TEST_F(WavePainting, TheColorIsChosenWithTheDialog) {
  Load(Flat(300));
  pickers.colors = {0x0000FF};
  Window().mnuAudioBarColor.Click();
  EXPECT_EQ(pickers.colorsShown.back(), kCyan);
  EXPECT_EQ(view.wave.At(5, 72), 0x0000FF);
  Window().mnuAudioBarColor.Click();  // cancelled
  EXPECT_EQ(Bar().View().color, 0x0000FF);
}

TEST_F(WavePainting, TheSliderSetsTheHeight) {
  Load(Wave(700, [](int) { return 1000; }));
  EXPECT_EQ(Window().sldWavScale.Value(), -23000);
  Window().sldWavScale.Move(-2000);
  EXPECT_EQ(program->options.waveScale, 2000);
  EXPECT_EQ(view.wave.Count(5, kCyan), 36);
  Window().sldWavScale.Move(-99999);
  EXPECT_EQ(program->options.waveScale, 48000);
}

TEST_F(WavePainting, AScaleOfZeroFailsAsARunTimeErrorDoes) {
  program->options.waveScale = 0;
  Bar().LoadOptions();
  Load(Flat(300));
  EXPECT_EQ(boxes.shown.size(), 1u);
  program->options.waveScale = 31;
  Bar().LoadOptions();
  Load(Flat(300));
  EXPECT_EQ(boxes.shown.size(), 1u);
  Play(folder.Write("film.mkv", "x"));
  const int lines = view.level.lines;
  At(1000);  // the meter's step would be 0
  EXPECT_EQ(view.level.lines, lines);
}

TEST_F(WaveMarking, FollowTheSelectedCaption) {
  OpenAll();
  EXPECT_TRUE(Marks().captionShown);
  EXPECT_EQ(Marks().start, 110);
  EXPECT_EQ(Marks().end, 190);
  EXPECT_EQ(Marks().spanLeft, 111);
  EXPECT_EQ(Marks().spanWidth, 80);
  EXPECT_EQ(Marks().arrowLeft, 110);
  List().SetRow(2, false);
  EXPECT_EQ(Marks().start, 210);
}

TEST_F(WaveMarking, AreHiddenOffTheScreenAndForCaptionsWithoutLength) {
  OpenAll();
  const auto shown = [&](std::int32_t start, std::int32_t end) {
    Bar().PlaceCaptionMarks(start, end);
    return Marks().captionShown;
  };
  EXPECT_TRUE(shown(3999, 5000));
  EXPECT_FALSE(shown(4000, 5000));  // the picture shows 400 pixels
  EXPECT_FALSE(shown(0, 0));
  EXPECT_FALSE(shown(1000, 1000));
  EXPECT_FALSE(shown(0, 9));  // x2 is below 1
  EXPECT_TRUE(shown(0, 10));
}

TEST_F(WaveMarking, MoveWithTheGlobalDelay) {
  OpenAll();
  List().Replace(1, 1, {{2000, 2500, u"moved"}});
  program->tools.DelayDone();
  EXPECT_EQ(Marks().start, 200);
}

TEST_F(WaveDragging, TheStartKeepsNinePixelsFromTheEnd) {
  OpenAll();
  Drag(110, 150);
  EXPECT_EQ(Times(1), (std::pair{1500, 1900}));
  Drag(150, 180);
  EXPECT_EQ(Times(1), (std::pair{1800, 1900}));
  Drag(180, 181);  // 9 pixels are too few
  EXPECT_EQ(Times(1), (std::pair{1800, 1900}));
  Drag(180, -1);
  EXPECT_EQ(Times(1), (std::pair{1800, 1900}));
  Drag(180, 0);
  EXPECT_EQ(Times(1), (std::pair{0, 1900}));
}

TEST_F(WaveDragging, TheEndStaysAtItsLastPlaceNineBeforeTheStart) {
  OpenAll();
  Bar().OnPress(MouseButton::Right, 190);
  Bar().OnMove(MouseButton::Right, 130);
  Bar().OnMove(MouseButton::Right, 119);  // within 9 pixels of the start
  Bar().OnMove(MouseButton::Right, 60);
  EXPECT_EQ(Marks().end, 130);
  EXPECT_EQ(Times(1), (std::pair{1100, 1300}));
  Bar().OnMove(MouseButton::Right, 120);
  EXPECT_EQ(Times(1), (std::pair{1100, 1200}));
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:01,100");
  EXPECT_EQ(Window().txtTime[1].GetText(), u"00:00:00,100");
  program->options.manner.SetClassic(true);
  Bar().OnMove(MouseButton::Right, 121);
  EXPECT_EQ(Window().txtTime[1].GetText(), u"00:00:01,210");
  EXPECT_TRUE(program->document.DocModified);
}

TEST_F(WaveDragging, ThePressTellsWhatIsMoved) {
  OpenAll();
  struct Case {
    int x;
    int start, end;
  };
  // One pixel to the right each time.
  for (const Case& c :
       {Case{109, 110, 190}, Case{111, 112, 190}, Case{112, 111, 191}, Case{188, 111, 191}, Case{189, 110, 190},
        Case{191, 110, 192}, Case{192, 110, 190}, Case{108, 110, 190}, Case{300, 110, 190}}) {
    List().Replace(1, 1, {{1100, 1900, u"x"}});
    List().SetRow(1, false);
    Bar().OnPress(MouseButton::Right, c.x);
    Bar().OnMove(MouseButton::Right, c.x + 1);
    EXPECT_EQ(Marks().start, c.start) << c.x;
    EXPECT_EQ(Marks().end, c.end) << c.x;
    Bar().OnRelease(MouseButton::Right);
  }
}

TEST_F(WaveDragging, KeepsTheRowAndThePageItBeganWith) {
  OpenAll(5000);
  player.state = kPlayerPlaying;
  program->capture.SelectMode(CaptionMode::Preview);
  Bar().OnPress(MouseButton::Right, 190);
  Bar().OnMove(MouseButton::Right, 180);
  // The film goes on: past the next caption, and past the end of the page.
  At(2500);
  Window().tmrPreview.Tick();
  EXPECT_EQ(List().Selected(), 1);
  At(30000);
  EXPECT_EQ(Bar().View().scrollPos, 0);
  // Somebody selects another row meanwhile.
  List().SetRow(3, false);
  Bar().OnMove(MouseButton::Right, 170);
  Bar().OnRelease(MouseButton::Right);
  EXPECT_EQ(Times(1), (std::pair{1100, 1700}));
  EXPECT_EQ(Times(3), (std::pair{3100, 3900}));
  EXPECT_EQ(Marks().start, 310);
  At(30000);
  EXPECT_GT(Bar().View().scrollPos, 0);
}

TEST_F(WaveDragging, KeepsItsPageThroughAStop) {
  OpenAll(5000);
  player.state = kPlayerPlaying;
  At(30000);
  const std::int32_t page = Bar().View().scrollPos;
  ASSERT_GT(page, 0);
  List().Replace(1, 1, {{30500, 31000, u"x"}});
  List().SetRow(1, false);
  const int end = Marks().end;
  Bar().OnPress(MouseButton::Right, end);
  player.Stop();
  Bar().OnMove(MouseButton::Right, end + 10);
  EXPECT_EQ(Times(1), (std::pair{30500, 31100}));
  Bar().OnRelease(MouseButton::Right);
  At(0);
  EXPECT_EQ(Bar().View().scrollPos, 0);
}

TEST_F(WaveDragging, GoesToTheRowOfTheMomentInTheClassicManner) {
  OpenAll(5000);
  program->options.manner.SetClassic(true);
  Bar().OnPress(MouseButton::Right, 190);
  List().SetRow(3, false);
  Bar().OnMove(MouseButton::Right, 392);
  EXPECT_EQ(Times(1), (std::pair{1100, 1900}));
  EXPECT_EQ(Times(3), (std::pair{3100, 3920}));
}

TEST_F(WaveSeeking, ADragToTheEndLeavesTheFilmThere) {
  OpenAll();
  player.duration = 20;
  player.state = kPlayerPlaying;
  Bar().OnPress(MouseButton::Left, 100);
  Bar().OnRelease(MouseButton::Left);
  EXPECT_EQ(player.state, kPlayerPlaying);
  player.duration = 4;
  Bar().OnPress(MouseButton::Left, 100);
  Bar().OnMove(MouseButton::Left, 400);
  Bar().OnRelease(MouseButton::Left);
  EXPECT_EQ(player.state, kPlayerPaused);
  EXPECT_EQ(player.position, 4);
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

TEST_F(WaveDragging, MarksThatLieTogetherGiveTheStartFirst) {
  OpenAll();
  Bar().PlaceCaptionMarks(1100, 1110);
  EXPECT_EQ(Marks().spanWidth, 1);
  Bar().OnPress(MouseButton::Right, 111);
  Bar().OnMove(MouseButton::Right, 100);
  EXPECT_EQ(Marks().start, 100);
  EXPECT_EQ(Marks().end, 111);
}

TEST_F(WaveDragging, TheSpanKeepsItsLengthAndStopsAtTheBeginning) {
  OpenAll();
  Drag(150, 100);
  EXPECT_EQ(Times(1), (std::pair{600, 1400}));
  Drag(100, 10);
  EXPECT_EQ(Times(1), (std::pair{0, 800}));
  EXPECT_EQ(Marks().spanLeft, 1);
}

TEST_F(WaveDragging, InAScrolledWaveTheSpanMayLeaveThePicture) {
  OpenAll();
  At(9000);
  ASSERT_EQ(Bar().View().scrollPos, 900);
  List().Replace(1, 1, {{9100, 9900, u"x"}});
  List().SetRow(1, false);
  ASSERT_EQ(Marks().start, 10);
  Drag(50, 20);
  EXPECT_EQ(Marks().start, -20);
  EXPECT_EQ(Times(1), (std::pair{8800, 9600}));
  // A start before the film's beginning is 0.
  Bar().OnPress(MouseButton::Right, 30);
  Bar().OnMove(MouseButton::Right, -1000);
  EXPECT_EQ(List().GetCaptionStart(1), 0);
}

TEST_F(WaveDragging, BesideTheSpanNothingMovesButThePreviewIsRefreshed) {
  OpenAll();
  program->capture.SelectMode(CaptionMode::Preview);
  program->sample.SetPlayerPosMs(2500);
  Bar().OnPress(MouseButton::Right, 300);
  EXPECT_EQ(Times(1), (std::pair{1100, 1900}));
  EXPECT_EQ(program->preview.PreviewNextRow(), 2);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(WaveDragging, WithHiddenMarksADragDoesNothing) {
  OpenAll();
  Bar().PlaceCaptionMarks(50000, 51000);
  Drag(110, 150);
  EXPECT_EQ(Times(1), (std::pair{1100, 1900}));
}

TEST_F(WaveDragging, WithoutAFilmTheBarDoesNotReact) {
  program->files.OpenSubtitleFile(SubRip("a.srt", 3));
  program->audio.OpenAudioFile(Flat(2000), kAudioToBar);
  ASSERT_TRUE(Marks().captionShown);
  Drag(110, 150);
  EXPECT_EQ(Times(1), (std::pair{1100, 1900}));
  Bar().OnMove(MouseButton::None, 150);
  EXPECT_FALSE(Window().lblWaveTip.Visible());
}

TEST_F(WaveDragging, IsOneStepToTakeBack) {
  OpenAll();
  Bar().OnPress(MouseButton::Right, 110);
  for (int x = 111; x < 140; ++x) Bar().OnMove(MouseButton::Right, x);
  Bar().OnRelease(MouseButton::Right);
  Drag(190, 250);
  EXPECT_EQ(Times(1), (std::pair{1390, 2500}));
  program->history.Undo();
  EXPECT_EQ(Times(1), (std::pair{1390, 1900}));
  program->history.Undo();
  EXPECT_EQ(Times(1), (std::pair{1100, 1900}));
}

TEST_F(WaveDragging, TheHintStandsOverTheSpan) {
  OpenAll();
  for (const auto& [x, shown] :
       {std::pair{108, false}, std::pair{109, true}, std::pair{191, true}, std::pair{192, false}}) {
    Bar().OnMove(MouseButton::None, x);
    EXPECT_EQ(Window().lblWaveTip.Visible(), shown) << x;
  }
  Bar().OnMove(MouseButton::None, 150);
  Window().picBottom.Hovered();
  EXPECT_FALSE(Window().lblWaveTip.Visible());
  Bar().OnMove(MouseButton::None, 150);
  Window().Hovered();
  EXPECT_FALSE(Window().lblWaveTip.Visible());
}

TEST_F(WaveSeeking, ALeftPressPausesSeeksAndGoesOnAtTheRelease) {
  OpenAll();
  Bar().OnPress(MouseButton::Left, 250);
  EXPECT_EQ(player.state, kPlayerPaused);
  EXPECT_EQ(player.seeks.back(), 2.5);
  EXPECT_EQ(program->sample.PlayerPosMs(), 2500);
  EXPECT_EQ(Marks().position, 250);
  EXPECT_EQ(Marks().positionColor, 0xFFFFFF);
  EXPECT_TRUE(Marks().seeking);
  EXPECT_EQ(Marks().arrowLeft, 31 + 250 - 2);
  Bar().OnMove(MouseButton::Left, 260);
  EXPECT_EQ(player.seeks.back(), 2.6);
  Bar().OnMove(MouseButton::Left, 401);  // past the picture
  Bar().OnMove(MouseButton::Left, -1);
  EXPECT_EQ(player.seeks.back(), 2.6);
  Bar().OnRelease(MouseButton::Left);
  EXPECT_EQ(player.state, kPlayerPlaying);
  EXPECT_EQ(Marks().positionColor, 0xFFFFC0);
  EXPECT_FALSE(Marks().seeking);
}

TEST_F(WaveSeeking, APausedPlayerStaysPausedAndAStoppedOneDoesNotSeek) {
  OpenAll();
  player.Become(kPlayerPaused);
  Bar().OnPress(MouseButton::Left, 100);
  Bar().OnRelease(MouseButton::Left);
  EXPECT_EQ(player.seeks.back(), 1.0);
  EXPECT_EQ(player.state, kPlayerPaused);
  player.Become(kPlayerStopped);
  const std::size_t seeks = player.seeks.size();
  Bar().OnPress(MouseButton::Left, 200);
  EXPECT_EQ(player.seeks.size(), seeks);
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
  program->files.OpenSubtitleFile(SubRip("a.srt", 1));
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

#include "tests/support/audio_bar_rig.h"

namespace cuewright {
namespace {

using testing::kBlack;
using testing::kCyan;
using testing::kGrey;
using testing::kTick;

using WavePainting = testing::AudioBarRig;
using WaveMarking = testing::AudioBarRig;

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
  Window().mnuDelay.Click();
  EXPECT_EQ(Marks().start, 200);
}

}  // namespace
}  // namespace cuewright

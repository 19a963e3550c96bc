#include "tests/support/audio_bar_rig.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using WaveDragging = testing::AudioBarRig;
using WaveSeeking = testing::AudioBarRig;

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
  Window().tmrPreview.Pass();
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
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
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
  Window().picBottom.Hover();
  EXPECT_FALSE(Window().lblWaveTip.Visible());
  Bar().OnMove(MouseButton::None, 150);
  Window().Hover();
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

}  // namespace
}  // namespace cuewright

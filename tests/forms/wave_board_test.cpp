#include "audio/wave_board.h"

#include "tests/support/audio_bar_rig.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using testing::AudioBarRig;

/// A picture of 1000 by 180 pixels over captions from 1.1 to 1.9, 2.1 to 2.9 and 3.1 to 3.9 s; 10 ms a pixel, and no
/// house rules.
struct WaveDesk : AudioBarRig {
  static constexpr int kY = 100;

  WaveDesk() {
    OpenAll(3000);
    ReadDetails();
    player.Become(kPlayerPaused);
    player.duration = 30;
    Board().SetRules({});
    Board().SetSize(1000, 180);
    player.seeks.clear();
  }

  WaveBoard& Board() { return program->waveBoard; }
  void ReadDetails() {
    for (int i = 0; i < 1000 && program->waveDetails.Reading(); ++i) Window().tmrWaveDetail.Pass();
    EXPECT_FALSE(program->waveDetails.Reading());
  }
  void Hold(int from, int to, BoardHeld held = {}, MouseButton button = MouseButton::Left) {
    Board().Press(button, from, kY, held);
    Board().Move((from + to) / 2, kY, held);
    Board().Move(to, kY, held);
  }
  void DragBoard(int from, int to, BoardHeld held = {}, MouseButton button = MouseButton::Left) {
    Hold(from, to, held, button);
    Board().Release(held);
  }
  /// Silence with a voice from 5 to 6.5 s.
  void LoadVoice() {
    Load(Wave(
        3000, [](int column) { return column >= 500 && column < 650 ? 9000 : column % 7; }, "voice.wav"));
    ReadDetails();
  }
  static constexpr BoardHeld kShift{true, false};
  static constexpr BoardHeld kControl{false, true};
};

TEST_F(WaveDesk, ShowsAllCaptionsAndMarksTheSelectedOne) {
  const auto& blocks = Board().Blocks();
  ASSERT_EQ(blocks.size(), 3u);
  EXPECT_EQ(blocks[1].left, 210);
  EXPECT_EQ(blocks[1].right, 290);
  EXPECT_TRUE(blocks[0].selected);
  EXPECT_FALSE(blocks[1].selected);
  EXPECT_TRUE(Window().picBoard.Visible());
  EXPECT_FALSE(Window().picWave.Visible());
}

TEST_F(WaveDesk, AClickSeeksAndSelects) {
  DragBoard(250, 251);
  EXPECT_EQ(List().Selected(), 2);
  ASSERT_EQ(player.seeks.size(), 1u);
  EXPECT_DOUBLE_EQ(player.seeks[0], 2.5);
  EXPECT_EQ(program->history.UndoSteps(), 0u);
}

TEST_F(WaveDesk, ADraggedEdgeIsOneStepThatIsStoredAtItsEnd) {
  Hold(290, 310, kShift);
  EXPECT_TRUE(Board().Dragging());
  EXPECT_EQ(Times(2), (std::pair{2100, 2900}));
  EXPECT_EQ(Board().Blocks()[1].right, 310);
  Board().Release(kShift);
  EXPECT_EQ(Times(2), (std::pair{2100, 3100}));
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  Window().mnuUndo.Click();
  EXPECT_EQ(Times(2), (std::pair{2100, 2900}));
}

TEST_F(WaveDesk, EscapeTakesADragBack) {
  Hold(250, 400, kShift);
  EXPECT_TRUE(Board().Press(BoardKey::Escape, {}));
  EXPECT_EQ(Board().Blocks()[1].left, 210);
  Board().Move(450, kY, kShift);
  Board().Release(kShift);
  EXPECT_EQ(Times(2), (std::pair{2100, 2900}));
  EXPECT_EQ(program->history.UndoSteps(), 0u);
}

TEST_F(WaveDesk, TheBorderOfTwoThatTouchMovesBothAndWithControlOne) {
  List().Replace(1, 2, {{1100, 2000, u"a"}, {2000, 2900, u"b"}});
  DragBoard(200, 230, kShift);
  EXPECT_EQ(Times(1), (std::pair{1100, 2300}));
  EXPECT_EQ(Times(2), (std::pair{2300, 2900}));
  DragBoard(229, 199, {true, true});
  EXPECT_EQ(Times(1), (std::pair{1100, 2000}));
  EXPECT_EQ(Times(2), (std::pair{2300, 2900}));
}

TEST_F(WaveDesk, AnEdgeSnapsToTheNextCaptionWithTheGapOfTheHouse) {
  DragBoard(290, 306);
  EXPECT_EQ(Times(2), (std::pair{2100, 3100}));
  Board().SetRules({.leastGap = 80});
  DragBoard(190, 203, {});
  EXPECT_EQ(Times(1), (std::pair{1100, 2020}));
  Hold(202, 204, {});
  Board().Release({});
}

TEST_F(WaveDesk, TheSnapIsShownWhileItHolds) {
  Hold(290, 306);
  const auto snap = [&] {
    for (const BoardWord& word : Board().Words()) {
      if (word.kind == BoardWord::Kind::Snap) return word.text;
    }
    return Text();
  };
  EXPECT_EQ(snap(), u"caption 0:00:03.100");
  Board().Move(350, kY, {});
  EXPECT_EQ(snap(), u"");
  Board().Release({});
}

TEST_F(WaveDesk, EdgesSnapToShotsByTheirZone) {
  Board().shots.SetShots({4500});
  Board().SetRules({.shotZone = 300, .beforeShot = 80});
  DragBoard(390, 425);
  EXPECT_EQ(Times(3), (std::pair{3100, 4420}));
}

TEST_F(WaveDesk, EdgesSnapToTheVoiceAndWithShiftAreFree) {
  LoadVoice();
  DragBoard(390, 655);
  EXPECT_EQ(Times(3), (std::pair{3100, 6500}));
  DragBoard(310, 495);
  EXPECT_EQ(Times(3), (std::pair{5000, 6500}));
  DragBoard(500, 505, kShift);
  EXPECT_EQ(Times(3), (std::pair{5050, 6500}));
}

TEST_F(WaveDesk, TheRightButtonTakesTheSelectedCaptionAloneAndIsFree) {
  DragBoard(190, 207, {}, MouseButton::Right);
  EXPECT_EQ(Times(1), (std::pair{1100, 2070}));
  DragBoard(290, 330, {}, MouseButton::Right);
  EXPECT_EQ(Times(2), (std::pair{2100, 2900}));
  DragBoard(207, 50, {}, MouseButton::Right);
  EXPECT_EQ(Times(1), (std::pair{1100, 1190}));
}

TEST_F(WaveDesk, AStretchOfEmptyWaveBecomesACaption) {
  DragBoard(500, 700, kShift);
  ASSERT_TRUE(Board().Stretch());
  EXPECT_EQ(*Board().Stretch(), (CaptionTimes{5000, 7000}));
  EXPECT_TRUE(Board().Press(BoardKey::Enter, {}));
  ASSERT_EQ(List().Rows(), 5);
  EXPECT_EQ(Times(4), (std::pair{5000, 7000}));
  EXPECT_EQ(List().Selected(), 4);
  EXPECT_FALSE(Board().Stretch());
  EXPECT_EQ(program->history.UndoSteps(), 1u);
}

TEST_F(WaveDesk, ACaptionWithoutAStretchIsToldOf) {
  Window().mnuInsertStretch.Click();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(Window().lblNotice.GetText(), u"Select a stretch of the wave first: drag over an empty place.");
}

TEST_F(WaveDesk, TheWheelScrollsAndWithControlZoomsAboutThePointer) {
  Board().Wheel(-2, 400, {});
  EXPECT_EQ(Board().Scale().Left(), 2400);
  const double held = Board().Scale().MsOf(400);
  Board().Wheel(3, 400, kControl);
  EXPECT_NEAR(Board().Scale().MsAPixel(), 10 / (1.3 * 1.3 * 1.3), 1e-9);
  EXPECT_NEAR(Board().Scale().MsOf(400), held, Board().Scale().MsAPixel());
  EXPECT_EQ(program->options.waveZoom, 4552);
  Board().Pinch(1000, 400);
  EXPECT_EQ(Board().Scale().MsAPixel(), 1);
  Window().mnuWaveOut.Click();
  EXPECT_EQ(Board().Scale().MsAPixel(), 1.5);
}

TEST_F(WaveDesk, SelectingACaptionBringsItIntoViewWithASecondBefore) {
  List().Replace(4, 0, {{20000, 21000, u"far"}});
  EXPECT_EQ(Board().Scale().Left(), 0);
  List().MoveSelection(4);
  EXPECT_EQ(Board().Scale().Left(), 19000);
  List().MoveSelection(1);
  EXPECT_EQ(Board().Scale().Left(), 100);
}

TEST_F(WaveDesk, WhilePlayingItGoesByPagesOrWithThePositionInTheMiddle) {
  player.Become(kPlayerPlaying);
  const auto at = [&](std::int32_t ms) {
    player.position = ms / 1000.0;
    Window().tmrTime.Pass();
    return Board().Scale().Left();
  };
  EXPECT_EQ(at(9990), 0);
  EXPECT_EQ(at(10010), 10010);
  EXPECT_EQ(Board().PositionX(), 0);
  Window().mnuWaveCentred.Click();
  EXPECT_EQ(at(15000), 10000);
  EXPECT_EQ(Board().PositionX(), 500);
  EXPECT_TRUE(program->options.waveCentred);
}

TEST_F(WaveDesk, AHandKeepsThePageThatItWorksOn) {
  player.Become(kPlayerPlaying);
  Hold(290, 310, kShift);
  player.position = 15;
  Window().tmrTime.Pass();
  EXPECT_EQ(Board().Scale().Left(), 0);
  Board().Release(kShift);
}

TEST_F(WaveDesk, KeysChooseAnEdgeStepItAndSnapIt) {
  LoadVoice();
  List().MoveSelection(3);
  EXPECT_TRUE(Board().Press(BoardKey::Down, {}));
  EXPECT_EQ(Board().Spoken(), u"Start 0:00:03.100");
  Board().Press(BoardKey::Right, {});
  EXPECT_EQ(Times(3), (std::pair{3110, 3900}));
  Board().Press(BoardKey::Left, kShift);
  EXPECT_EQ(Times(3), (std::pair{3010, 3900}));
  Board().Press(BoardKey::Up, {});
  Board().Press(BoardKey::Up, {});
  EXPECT_EQ(Board().Spoken(), u"End 0:00:03.900");
  Board().Press(BoardKey::Right, kControl);
  EXPECT_EQ(Times(3), (std::pair{3010, 6500}));
  EXPECT_TRUE(Board().Press(BoardKey::Escape, {}));
  EXPECT_FALSE(Board().Press(BoardKey::Escape, {}));
}

TEST_F(WaveDesk, KeysWithoutAnEdgeMoveThePositionAndStretch) {
  player.position = 5;
  program->sample.SetPlayerPosMs(5000);
  Board().Press(BoardKey::Right, kShift);
  Board().Press(BoardKey::Right, kShift);
  ASSERT_TRUE(Board().Stretch());
  EXPECT_EQ(*Board().Stretch(), (CaptionTimes{5000, 5200}));
  Board().Press(BoardKey::Left, kShift);
  EXPECT_EQ(*Board().Stretch(), (CaptionTimes{5000, 5100}));
  EXPECT_DOUBLE_EQ(player.position, 5.1);
}

TEST_F(WaveDesk, CommandsSnapTheEdgesOfTheSelectedCaption) {
  LoadVoice();
  List().MoveSelection(3);
  Window().mnuEndSnapOn.Click();
  EXPECT_EQ(Times(3), (std::pair{3100, 6500}));
  Window().mnuStartSnapOn.Click();
  EXPECT_EQ(Times(3), (std::pair{5000, 6500}));
  Window().mnuEndSnapOn.Click();
  EXPECT_EQ(Window().lblNotice.GetText(), u"There is no edge of the voice and no shot near enough.");
}

TEST_F(WaveDesk, PlaysTheGapAndTheStretch) {
  List().MoveSelection(2);
  player.seeks.clear();
  Window().mnuPlayGap.Click();
  EXPECT_DOUBLE_EQ(player.position, 1.9);
  DragBoard(500, 700, kShift);
  Window().mnuPlayStretch.Click();
  EXPECT_DOUBLE_EQ(player.position, 5);
  player.position = 7;
  Window().tmrStretch.Pass();
  EXPECT_EQ(player.state, kPlayerPaused);
}

TEST_F(WaveDesk, OverlappingCaptionsStandInTwoLanes) {
  List().Replace(2, 1, {{1500, 2900, u"b"}});
  const auto& blocks = Board().Blocks();
  EXPECT_FALSE(blocks[0].lower);
  EXPECT_TRUE(blocks[1].lower);
  EXPECT_FALSE(blocks[2].lower);
}

TEST_F(WaveDesk, ZoomedInTheSpectrogramIsMeasuredFromTheWave) {
  // Two seconds of 16,000 samples each.
  std::string wave("RIFF\x24\xFA\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x80\x3e\0\0\0\x7d\0\0\2\0\x10\0data\0\xFA\0\0", 44);
  for (int i = 0; i < 32000; ++i) wave += std::string(i % 8 < 4 ? "\0\x10" : "\0\xF0", 2);
  Load(folder.Write("fine.wav", wave));
  ReadDetails();
  program->options.waveLook = static_cast<std::uint8_t>(BoardLook::Both);
  std::vector<std::uint32_t> pixels(1000 * 180);
  const auto measured = [&](std::int32_t msAPixel) {
    program->options.waveZoom = msAPixel * 1000;
    Board().LoadOptions();
    Board().Paint({pixels.data(), 1000, 1000, 180});
    return program->waveDetails.Fine().At(500) != nullptr;
  };
  EXPECT_FALSE(measured(10));
  EXPECT_TRUE(measured(2));
  program->audioBar.Forget();
  EXPECT_FALSE(measured(2));
}

TEST_F(WaveDesk, TheClassicMannerHasTheStrip) {
  const auto change = [&](bool classic) {
    program->options.manner.SetClassic(classic);
    program->dialogs.OpenSettings();
    program->dialogs.settings.Close();
  };
  change(true);
  EXPECT_FALSE(Window().picBoard.Visible());
  EXPECT_TRUE(Window().picWave.Visible());
  EXPECT_FALSE(Window().mnuBoard.Visible());
  EXPECT_EQ(program->shell.Layout().Wave().height, 73);
  change(false);
  EXPECT_TRUE(Window().picBoard.Visible());
  Board().SetHeight(190);
  EXPECT_EQ(program->shell.Layout().Wave().height, 190);
}

}  // namespace
}  // namespace cuewright

#include "ui/wave_board_view.h"
#include "tests/support/printers.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include "tests/support/audio_bar_rig.h"
#include "ui/program_windows.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

using testing::AudioBarRig;

/// The program in its window, with captions of 0.8 s, one a second from 1.1 s on, over half a minute of sound.
struct WaveBoardWindow : AudioBarRig {
  WaveBoardWindow() {
    LoadIcons();
    program->audioBar.SetView(nullptr);
    window = MakeMainWindow(*program, new QWidget);
    window->ShowStarted({1000, 700, false});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
    Play(folder.Write("film.mkv", "x"));
    player.duration = 30;
    player.Become(kPlayerPaused);
    Load(Wave(3000, [](int column) { return column >= 500 && column < 650 ? 9000 : 300 + column % 7; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program->waveDetails.Reading(); }));
    program->waveBoard.SetRules({});
    board = window->findChild<WaveBoardView*>("picBoard");
  }
  ~WaveBoardWindow() override {
    program->session.CloseDocuments();
    window.reset();
  }

  void Drag(int from, int to, Qt::KeyboardModifiers held = {}) {
    QTest::mousePress(board, Qt::LeftButton, held, QPoint(from, 100));
    for (const int x : {(from + to) / 2, to}) {
      QMouseEvent move(QEvent::MouseMove, QPointF(x, 100), board->mapToGlobal(QPointF(x, 100)), Qt::NoButton,
                       Qt::LeftButton, held);
      QApplication::sendEvent(board, &move);
    }
    QTest::mouseRelease(board, Qt::LeftButton, held, QPoint(to, 100));
  }
  void Turn(int units, int x, Qt::KeyboardModifiers held) {
    QWheelEvent wheel(QPointF(x, 100), board->mapToGlobal(QPointF(x, 100)), {}, QPoint(0, units), Qt::NoButton, held,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(board, &wheel);
  }
  QColor PixelAt(int x, int y) { return board->grab().toImage().pixelColor(x, y); }

  std::unique_ptr<MainWindowView> window;
  WaveBoardView* board = nullptr;
};

TEST_F(WaveBoardWindow, ShowsTheBoardInPlaceOfTheStripInTheHeightOfTheSettings) {
  ASSERT_NE(board, nullptr);
  EXPECT_TRUE(board->isVisible());
  EXPECT_FALSE(window->findChild<QWidget*>("picWave")->isVisible());
  EXPECT_EQ(board->height(), 180);
  EXPECT_EQ(board->accessibleName(), "Wave with captions");
}

TEST_F(WaveBoardWindow, TheWaveIsHighWhereTheVoiceIs) {
  const QColor wave(0, 255, 255);
  EXPECT_EQ(PixelAt(550, 170), wave);
  EXPECT_EQ(PixelAt(550, 140), wave);
  EXPECT_NE(PixelAt(450, 140), wave);
  EXPECT_EQ(PixelAt(450, 179), wave);
}

TEST_F(WaveBoardWindow, HandsMoveEdgesAndTheWheelZooms) {
  Drag(290, 305, Qt::ShiftModifier);
  EXPECT_EQ(Times(2), (std::pair{2100, 3050}));
  Turn(120, 300, Qt::ControlModifier);
  EXPECT_LT(program->waveBoard.Scale().MsAPixel(), 10);
  Turn(-120, 300, {});
  EXPECT_GT(program->waveBoard.Scale().Left(), 0);
}

TEST_F(WaveBoardWindow, KeysReachIt) {
  board->setFocus();
  QTest::keyClick(board, Qt::Key_Down);
  EXPECT_EQ(board->accessibleDescription(), "Start 0:00:01.100");
  QTest::keyClick(board, Qt::Key_Right);
  EXPECT_EQ(Times(1), (std::pair{1110, 1900}));
  QTest::keyClick(board, Qt::Key_Escape);
  const double before = program->waveBoard.Scale().MsAPixel();
  QTest::keyClick(board, Qt::Key_Plus);
  EXPECT_LT(program->waveBoard.Scale().MsAPixel(), before);
}

TEST_F(WaveBoardWindow, ItsUpperEdgeMakesItHigher) {
  auto* edge = window->findChild<QWidget*>("imgWaveSize");
  ASSERT_NE(edge, nullptr);
  const int list = window->findChild<QWidget*>("grdSubs")->height();
  QTest::keyClick(edge, Qt::Key_Up);
  EXPECT_EQ(board->height(), 192);
  EXPECT_EQ(window->findChild<QWidget*>("grdSubs")->height(), list - 12);
  program->waveBoard.SetHeight(3000);
  EXPECT_GE(window->findChild<QWidget*>("grdSubs")->height(), 100);
}

TEST_F(WaveBoardWindow, TimeRunsToTheRightInAMirroredWindowToo) {
  Window().SetRightToLeft(true);
  EXPECT_EQ(PixelAt(550, 150), QColor(0, 255, 255));
  Drag(290, 305, Qt::ShiftModifier);
  EXPECT_EQ(Times(2), (std::pair{2100, 3050}));
  Window().SetRightToLeft(false);
}

}  // namespace
}  // namespace cuewright

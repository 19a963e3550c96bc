#include "ui/audio_bar_widgets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/child_processes.h"
#include "platform/mpv_library.h"
#include "platform/mpv_player.h"
#include "tests/support/media_files.h"
#include "tests/support/program_fixture.h"
#include "ui/audio_view.h"
#include "ui/program_windows.h"
#include "ui/qt_color.h"
#include "ui/qt_ports.h"
#include "ui/svg_picture.h"
#include "ui/video_view.h"

namespace cuewright {
namespace {

using test::Media;
using testing::FakeDesktop;
using testing::FakeFileDialogs;
using testing::FakeMessages;
using testing::FakePickers;
using testing::TempFolder;

constexpr int kLimitMs = 20'000;

/// The whole program in its window, with the real player, the real event queue and the real decoder.
struct RealBarTest : ::testing::Test {
  RealBarTest() {
    LoadIcons();
    MpvPlayerOptions options;
    options.extra.emplace_back("ao", "null");
    player = std::make_unique<MpvPlayer>(
        library,
        [this](std::function<void()> task) {
          QMetaObject::invokeMethod(&context, std::move(task), Qt::QueuedConnection);
        },
        options);
    StartEnvironment environment;
    environment.appFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources");
    environment.settingsFile = folder / "settings.ini";
    environment.makeTempFolder = [this] { return folder / "run/"; };
    environment.processes = &processes;
    environment.sounds = &sounds;
    program = std::make_unique<Program>(Ports{files, boxes, dialogs, events, desktop, *player, pickers}, environment);
    EXPECT_TRUE(program->Start());
    program->options.manner.SetClassic(true);
    view = MakeMainWindow(*program, new VideoView(*player, *player));
    program->LoadMainWindow(1280, 800);
    view->ShowStarted({1000, 700, false});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
  }
  ~RealBarTest() override {
    program->session.CloseDocuments();
    view.reset();
    program.reset();
  }

  static bool Wait(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, kLimitMs); }
  AudioBar& Bar() { return program->audioBar; }
  template <class Widget = QWidget>
  Widget* Find(const char* name) {
    auto* found = view->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  /// A film of `seconds` with a tone, and its sound as a wave beside it.
  Text Film(double seconds) {
    film = FromUtf8(Media().Film(seconds));
    return film;
  }
  Text WaveOf(const Text& of, const std::string& name) {
    return FromUtf8(Media().Make(name, "-i '" + ToUtf8(of) + "' -vn -ac 1 -ar 22050 -c:a pcm_s16le "));
  }
  void Captions() {
    program->documentFiles.OpenSubtitleFile(folder.Write("a.srt",
                                                         "1\r\n00:00:01,000 --> 00:00:02,000\r\none\r\n\r\n"
                                                         "2\r\n00:00:03,000 --> 00:00:04,000\r\ntwo\r\n\r\n"));
  }
  bool Playing() {
    return Wait([&] { return player->PlayState() == kPlayerPlaying && player->CurrentPosition() > 0.1; });
  }
  QColor PixelOf(QWidget* widget, int x, int y) { return widget->grab().toImage().pixelColor(x, y); }

  QObject context;
  TempFolder folder;
  PosixFiles files;
  FakeMessages boxes;
  FakeFileDialogs dialogs;
  QtEventQueue events;
  FakeDesktop desktop;
  FakePickers pickers;
  PosixProcesses processes;
  FolderSoundStore sounds{folder / "cache", 1 << 30};
  MpvLibrary library;
  std::unique_ptr<MpvPlayer> player;
  std::unique_ptr<Program> program;
  std::unique_ptr<MainWindowView> view;
  Text film;
};

TEST_F(RealBarTest, ThePositionLineStaysWithinAColumnOfThePlayersClock) {
  ASSERT_TRUE(library.Available()) << ToUtf8(library.Error());
  Captions();
  program->playerBinding.LoadVideoFile(Film(14));
  ASSERT_TRUE(Playing());
  Bar().LoadWaveFile(WaveOf(film, "bar.wav"));
  ASSERT_TRUE(boxes.shown.empty());

  // The line stands where the program's last sample of the clock is, always. A busy machine may hold the program
  // between that sample and the test's own look at the clock, so that the distance to the clock is taken as a median.
  double sampled = 0;
  std::vector<double> distances;
  int looks = 0;
  int pages = 0;
  double worst = 0;
  std::int32_t page = 0;
  const Connection sample = program->window.tmrTime.Tick.ConnectScoped([&] { sampled = player->CurrentPosition(); });
  const Connection look = program->window.tmrWave.Tick.ConnectScoped([&] {
    if (sampled == 0 || !Bar().Marks().positionShown) return;
    // A page turn lets the window paint, and the clock goes on meanwhile.
    const bool turned = std::exchange(page, Bar().View().scrollPos) != Bar().View().scrollPos;
    pages += turned ? 1 : 0;
    if (turned) return;
    const double column = sampled * 100;
    const int line = Bar().View().scrollPos + Bar().Marks().position;
    distances.push_back(std::abs(line - column));
    worst = std::max(worst, std::abs(line - program->sample.PlayerPosMs().Count() / 10.0));
    ++looks;
  });
  const double begin = player->CurrentPosition();
  ASSERT_TRUE(Wait([&] { return player->CurrentPosition() > begin + 10; }));
  EXPECT_GT(looks, 100);
  EXPECT_GE(pages, 1);
  EXPECT_LT(worst, 1);  // the column is cut to a whole one
  std::sort(distances.begin(), distances.end());
  EXPECT_LE(distances[distances.size() / 2], 1);
  // And the line is where it is said to be.
  player->Pause();
  ASSERT_TRUE(Wait([&] { return player->PlayState() == kPlayerPaused; }));
  QTest::qWait(100);
  auto* wave = Find("picWave");
  const int x = Bar().Marks().position;
  EXPECT_EQ(PixelOf(wave, x, 3), ColorOf(0xFFFFC0));
  EXPECT_EQ(Find("imgWavPos")->x(), wave->x() + x - 2);
}

TEST_F(RealBarTest, ADragWithTheRightButtonStoresTheTimes) {
  ASSERT_TRUE(library.Available()) << ToUtf8(library.Error());
  Captions();
  program->playerBinding.LoadVideoFile(Film(14));
  ASSERT_TRUE(Playing());
  player->Pause();
  Bar().LoadWaveFile(WaveOf(film, "bar.wav"));
  program->list.SetRow(1, false);
  auto* wave = Find("picWave");
  ASSERT_EQ(Bar().Marks().start, 100);
  EXPECT_EQ(PixelOf(wave, 100, 3), ColorOf(0x0000C0));
  const auto drag = [&](Qt::MouseButton button, int from, int to) {
    QTest::mousePress(wave, button, {}, QPoint(from, 30));
    QMouseEvent move(QEvent::MouseMove, QPointF(to, 30), wave->mapToGlobal(QPointF(to, 30)), Qt::NoButton, button, {});
    QApplication::sendEvent(wave, &move);
    QTest::mouseRelease(wave, button, {}, QPoint(to, 30));
  };
  drag(Qt::RightButton, 100, 130);
  EXPECT_EQ(program->list.GetCaptionStart(1), 1300);
  drag(Qt::RightButton, 200, 260);
  EXPECT_EQ(program->list.GetCaptionEnd(1), 2600);
  drag(Qt::RightButton, 200, 150);
  EXPECT_EQ(program->list.GetCaptionStart(1), 800);
  EXPECT_EQ(program->list.GetCaptionEnd(1), 2100);
  EXPECT_EQ(Find<QLineEdit>("txtTime(0)")->text(), "00:00:00,800");
  drag(Qt::LeftButton, 50, 400);
  EXPECT_TRUE(Wait([&] { return std::abs(player->CurrentPosition() - 4.0) < 0.1; }));
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
}

TEST_F(RealBarTest, TheSoundOfAFilmIsDecodedWhileTheWindowAnswers) {
  ASSERT_TRUE(library.Available()) << ToUtf8(library.Error());
  program->playerBinding.LoadVideoFile(Film(14));
  ASSERT_TRUE(Playing());
  int beats = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, [&] { ++beats; });
  beat.start(5);
  program->window.mnuFilmSound.Click();
  EXPECT_TRUE(Find("cmdStopSound")->isVisible());
  ASSERT_TRUE(Wait([&] { return !program->filmSound.Running(); }));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_GT(beats, 0);
  ASSERT_TRUE(program->document.WavePath.starts_with(folder / "cache"));
  EXPECT_GE(Bar().Peaks().Columns(), 1380);
  // The tone is there from the beginning to the end.
  for (const std::int32_t column : {5, 700, 1350}) EXPECT_GT(Bar().Peaks().At(2 * column), 500) << column;
  Bar().Forget();
  program->window.mnuFilmSound.Click();
  EXPECT_FALSE(program->filmSound.Running());
  EXPECT_GE(Bar().Peaks().Columns(), 1380);
}

TEST_F(RealBarTest, TheBarTakesItsPlaceBetweenListAndPanel) {
  const int listHeight = Find("grdSubs")->height();
  program->window.mnuAudioBar.Click();
  EXPECT_EQ(Find("grdSubs")->height(), listHeight - 73 - 4);
  auto* wave = Find("picWave");
  auto* level = Find("picLevel");
  auto* slider = Find<QSlider>("sldWavScale");
  EXPECT_EQ(wave->height(), 73);
  EXPECT_EQ(level->width(), 21);
  EXPECT_EQ(level->geometry().top(), wave->geometry().top());
  EXPECT_LT(level->geometry().right(), wave->x());
  EXPECT_GT(slider->x(), wave->geometry().right());
  EXPECT_LT(slider->geometry().right(), view->width());
  EXPECT_GT(wave->y(), Find("grdSubs")->geometry().bottom());
  EXPECT_LT(wave->geometry().bottom(), Find("picBottom")->y());
  program->window.mnuAudioBar.Click();
  EXPECT_FALSE(wave->isVisible());
  EXPECT_EQ(Find("grdSubs")->height(), listHeight);
}

TEST_F(RealBarTest, AWiderWindowNeedsNoRepaintAndAMirroredOneKeepsTheWave) {
  Bar().LoadWaveFile(WaveOf(Film(14), "bar.wav"));
  auto* wave = Find("picWave");
  int paints = 0;
  const Connection painted = Bar().WaveChanged.ConnectScoped([&] { ++paints; });
  view->resize(1200, 700);
  ASSERT_TRUE(Wait([&] { return wave->width() > 1100; }));
  EXPECT_EQ(paints, 0);
  program->window.SetRightToLeft(true);
  EXPECT_EQ(PixelOf(wave, 100, 1), ColorOf(0x808080));  // the first second is still on the left
  const QRect slider = Find("sldWavScale")->geometry();
  EXPECT_TRUE(view->rect().contains(QRect(Find("sldWavScale")->mapTo(view.get(), QPoint(0, 0)), slider.size())));
  EXPECT_LT(slider.right(), Find("picLevel")->x());
  program->window.SetRightToLeft(false);
}

/// Contrast of two colours as the guidelines for accessible content count it, 1 to 21.
double Contrast(QColor a, QColor b) {
  const auto light = [](QColor color) {
    const auto part = [](double value) {
      return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

TEST_F(RealBarTest, TheMarksOfTheCaptionStandOutFromAWaveOfAnyColor) {
  Captions();
  Bar().LoadWaveFile(WaveOf(Film(14), "bar.wav"));
  auto* wave = Find("picWave");
  for (const std::int32_t color : {0xFFFF00, 0x00FF00, 0xFFFFFF, 0x202020, 0x0000C0, 0x6060FF}) {
    Bar().SetWaveColor(color);
    program->list.SetRow(1, false);
    for (const int x : {Bar().Marks().start, Bar().Marks().end}) {
      for (int y = 0; y < wave->height(); ++y) {
        EXPECT_GE(Contrast(PixelOf(wave, x, y), PixelOf(wave, x - 1, y)), 3) << color << " " << y;
        EXPECT_GE(Contrast(PixelOf(wave, x, y), PixelOf(wave, x + 1, y)), 3) << color << " " << y;
      }
    }
  }
}

TEST_F(RealBarTest, TheHintGoesWhenThePointerLeavesTheWave) {
  Captions();
  program->playerBinding.LoadVideoFile(Film(14));
  Bar().LoadWaveFile(WaveOf(film, "bar.wav"));
  program->list.SetRow(1, false);
  auto* wave = Find("picWave");
  const QPointF at(Bar().Marks().start + 2, 30);
  QMouseEvent move(QEvent::MouseMove, at, wave->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
  QCoreApplication::sendEvent(wave, &move);
  ASSERT_TRUE(program->window.lblWaveTip.Visible());
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(wave, &leave);
  EXPECT_FALSE(program->window.lblWaveTip.Visible());
}

TEST_F(RealBarTest, TheDialogHasAWidgetForEachControl) {
  AudioDialog& form = program->audio.dialog;
  form.Open(false);
  QTimer::singleShot(50, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    for (const Control* control : form.Controls()) {
      EXPECT_NE(dialog->findChild<QWidget*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
    }
    EXPECT_EQ(dialog->findChild<QLabel*>("lblFormats")->text(), "Audio formats supported: \nWAV (PCM)");
    EXPECT_TRUE(dialog->findChild<QPushButton*>("cmdOK")->isEnabled());
    dialog->findChild<QPushButton*>("cmdOK")->click();
  });
  AudioView(form, view.get()).exec();
  EXPECT_EQ(form.AudioLoadMode(), kAudioToBar);
}

}  // namespace
}  // namespace cuewright

// A pass of the rules in the real main window: how long it takes there, and the longest time that the window goes
// without painting what it tells of its progress.

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "forms/program.h"
#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"
#include "ui/program_windows.h"
#include "ui/svg_picture.h"

namespace {

using namespace cuewright;

/// Hears when the progress is painted.
class PaintClock final : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      longest = std::max(longest, clock.restart());
      ++paints;
    }
    return false;
  }
  QElapsedTimer clock;
  qint64 longest = 0;
  int paints = 0;
};

/// The events of a window, as the program has them.
class Events final : public EventQueue {
 public:
  void Yield() override { QCoreApplication::processEvents(); }
  void YieldToPainting() override { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
  void WaitMs(int) override {}
  std::int64_t NowMs() const override { return 0; }
};

std::string Clock(int ms) {
  char text[32];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d,%03d", ms / 3600000, ms / 60000 % 60, ms / 1000 % 60, ms % 1000);
  return text;
}

/// A file of which every tenth caption collides, and every tenth has three lines, a link, or no duration.
Text Film(const testing::TempFolder& folder, int captions) {
  std::string content;
  for (int i = 1; i <= captions; ++i) {
    const int start = i * 3000;
    const int begin = i % 10 == 1 ? start - 1200 : start;
    const int end = i % 10 == 7 ? start : start + 2000;
    const std::string text = i % 10 == 4   ? "Good evening,\r\nInspector. Nobody\r\nleaves."
                             : i % 10 == 8 ? "Subtitles from www.example.org"
                                           : "Nobody leaves this house\r\nuntil the storm has passed";
    content += std::to_string(i) + "\r\n" + Clock(begin) + " --> " + Clock(end) + "\r\n" + text + "\r\n\r\n";
  }
  return folder.Write("film.srt", content);
}

void Measure(int captions) {
  testing::TempFolder folder;
  PosixFiles files;
  testing::FakeMessages boxes;
  testing::FakeFileDialogs dialogs;
  testing::FakePickers pickers;
  testing::FakeDesktop desktop;
  testing::FakePlayer player;
  Events events;
  StartEnvironment environment;
  environment.appFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources");
  environment.settingsFile = folder / "settings.ini";
  environment.makeTempFolder = [&] { return folder / "run/"; };
  Program program({files, boxes, dialogs, events, desktop, player, pickers}, environment);
  if (!program.Start()) throw std::runtime_error("the formats are missing");
  auto* surface = new QWidget;
  surface->setObjectName("WMP");
  const std::unique_ptr<MainWindowView> view = MakeMainWindow(program, surface);
  view->ShowStarted(program.LoadMainWindow(1280, 800));
  program.options.applyWhen = 1;
  program.documentFiles.OpenSubtitleFile(Film(folder, captions));
  QCoreApplication::processEvents();
  PaintClock paints;
  view->findChild<QLabel*>("lblTextFile")->installEventFilter(&paints);
  QElapsedTimer whole;
  whole.start();
  paints.clock.start();
  program.window.mnuRules.Click();
  const qint64 ms = whole.elapsed();
  std::printf("%10d%14lld%10d%22lld\n", captions, static_cast<long long>(ms), paints.paints,
              static_cast<long long>(paints.longest));
  QElapsedTimer undo;
  undo.start();
  program.window.mnuUndo.Click();
  QCoreApplication::processEvents();
  std::printf("%10s%14lld  (undo)\n", "", static_cast<long long>(undo.elapsed()));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  LoadIcons();
  std::printf("%10s%14s%10s%22s\n", "captions", "pass, ms", "paints", "longest without, ms");
  const bool moment = argc > 1 && QByteArray(argv[1]) == "--moment";
  for (const int captions : moment ? std::vector<int>{100} : std::vector<int>{1000, 8000, 32000}) Measure(captions);
}

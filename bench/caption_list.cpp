// Costs of the caption list and of a capture, printed per caption or per event for lists of several sizes: what has to
// stay flat and what may grow shows in one run.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QMenu>
#include <memory>

#include "capture/caption_panel.h"
#include "capture/timing_capture.h"
#include "forms/caption_commands.h"
#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "ui/caption_table.h"

namespace cuewright {
namespace {

/// A document of so many captions with everything that captures, and the list control on the toolkit.
struct Desk {
  explicit Desk(int captions) {
    document.SubtitlePath = u"NEW";
    document.VideoPath = u"film";
    player.enabled = true;
    player.state = kPlayerPlaying;
    list.SetEnabled(false);
    panel.ResetGrid(CaptionPanel::Showing::BlankCaption);
    Fill(captions);
    list.SetEnabled(true);
    table = std::make_unique<CaptionTable>(list, grid, commands, menu, nullptr);
    table->resize(400, 600);
    table->show();
    QApplication::processEvents();
  }

  void Fill(int captions) {
    std::vector<Caption> rows;
    for (int i = 1; i <= captions; ++i) rows.push_back({i * 1000, i * 1000 + 900, u"A line of some length"});
    list.Replace(1, list.Count(), std::move(rows));
  }

  AppOptions options;
  LangStrings strings;
  DocumentState document;
  testing::FakePlayer player;
  testing::FakeMessages boxes;
  testing::FakeEventQueue events;
  testing::FakeFileDialogs dialogs;
  testing::FakeDesktop desktop;
  testing::FakePickers pickers;
  PosixFiles files;
  SettingsStore store{files, {}};
  MainWindow window;
  SubWindow sub;
  CaptionList list{options, document.DocModified};
  CaptionGrid grid{list};
  CaptionPanel panel{window, list, grid, strings};
  Workbench bench{window, list, grid, document, options, strings};
  PlayerSample sample;
  Preview preview{bench, sub, player, sample};
  TimingCapture capture{bench, player, sample, preview};
  CaptionCommands commands{bench,   panel, preview,
                           capture, store, {files, boxes, dialogs, events, desktop, player, pickers}};
  QMenu menu;
  std::unique_ptr<CaptionTable> table;
};

void PerCaption(benchmark::State& state) {
  state.counters["per_caption"] = benchmark::Counter(
      static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Filling(benchmark::State& state) {
  Desk desk(1);
  for (auto _ : state) desk.Fill(static_cast<int>(state.range(0)));
  PerCaption(state);
}

void AppendingOneByOne(benchmark::State& state) {
  for (auto _ : state) {
    AppOptions options;
    bool modified = false;
    CaptionList list(options, modified);
    for (int i = 1; i <= state.range(0); ++i) list.AddCaption(i, i, u"A line of some length", 0);
    benchmark::DoNotOptimize(list.Rows());
  }
  PerCaption(state);
}

void InsertAndDeleteAtTheTop(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    desk.list.AddCaption(1, 2, u"new", 1);
    desk.list.DeleteCaption(1);
  }
}

void SortNumbers(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  for (auto _ : state) desk.list.SortNumbers();
  PerCaption(state);
}

void SetRow(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  Row row = 1;
  for (auto _ : state) desk.list.SetRow(row = row.Number() % desk.list.Count() + 1, true);
}

void EditAtRowOne(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  bool other = false;
  for (auto _ : state) desk.list.SetCaptionText(1, (other = !other) ? u"one text" : u"another text");
}

/// From the key press to the stored start, and from its release to the stored end with the step to the next row.
void CapturePressAndRelease(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  double position = 1;
  for (auto _ : state) {
    if (desk.list.Selected() >= desk.list.Rows() - 2) desk.list.SetRow(1, false);
    desk.player.position = position += 0.01;
    desk.capture.SamplePosition();
    KeyEvent key{66, u'b', 56, false, false, false};
    desk.capture.OnKeyDown(key);
    desk.capture.OnKeyUp(key);
  }
}

/// The press alone: until `SetCaptionStart` has stored the time.
void CapturePress(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    KeyEvent key{66, u'b', 56, false, false, false};
    desk.capture.OnKeyDown(key);
    state.PauseTiming();
    desk.capture.Reset();
    state.ResumeTiming();
  }
}

void RepaintVisibleRows(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  QImage image(desk.table->size(), QImage::Format_RGB32);
  for (auto _ : state) desk.table->viewport()->render(&image);
}

BENCHMARK(Filling)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(AppendingOneByOne)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(InsertAndDeleteAtTheTop)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(SortNumbers)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(SetRow)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(EditAtRowOne)->Arg(100)->Arg(1000)->Arg(32000);
BENCHMARK(CapturePress)->Arg(100)->Arg(32000);
BENCHMARK(CapturePressAndRelease)->Arg(100)->Arg(32000);
BENCHMARK(RepaintVisibleRows)->Arg(100)->Arg(1000)->Arg(32000);

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

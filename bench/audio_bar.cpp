// The Audio bar's own work: painting a page of 1920 pixels, and a tick of its timer that turns no page.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "forms/program.h"
#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"
#include "ui/audio_bar_widgets.h"
#include "ui/binder.h"

namespace cuewright::bench {
namespace {

using namespace testing;

/// A bar in a widget of 1920 pixels with two minutes of a tone that swells.
struct Bar {
  Bar() {
    StartEnvironment environment;
    environment.appFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources");
    environment.settingsFile = folder / "settings.ini";
    environment.makeTempFolder = [this] { return folder / "run/"; };
    program = std::make_unique<Program>(Ports{files, boxes, dialogs, events, desktop, player, pickers}, environment);
    if (!program->Start()) throw std::runtime_error("the formats are missing");
    program->LoadMainWindow(1920, 1080);
    area.resize(1960, 100);
    binder = std::make_unique<Binder>(area, program->window);
    widgets = std::make_unique<AudioBarWidgets>(program->audioBar, program->waveBoard, *binder, &area);
    widgets->Place({8, 8, 1943, AudioBar::kHeight});
    program->audioBar.LoadWaveFile(Wave());
    player.Become(kPlayerPlaying);
  }

  Text Wave() {
    constexpr int kRate = 22050;
    std::string data;
    for (int i = 0; i < kRate * 120; ++i) {
      const auto sample = static_cast<int>(20000 * std::sin(i * 0.05) * std::sin(i * 0.00001));
      data += static_cast<char>(sample & 0xFF);
      data += static_cast<char>(sample >> 8 & 0xFF);
    }
    const auto number = [](std::size_t value, int size) {
      std::string bytes;
      for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
      return bytes;
    };
    return folder.Write("a.wav", "RIFF" + number(36 + data.size(), 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
                                     number(1, 2) + number(kRate, 4) + number(kRate * 2, 4) + number(2, 2) +
                                     number(16, 2) + "data" + number(data.size(), 4) + data);
  }

  TempFolder folder;
  PosixFiles files;
  FakeMessages boxes;
  FakeFileDialogs dialogs;
  FakeEventQueue events;
  FakeDesktop desktop;
  FakePlayer player;
  FakePickers pickers;
  std::unique_ptr<Program> program;
  QWidget area;
  std::unique_ptr<Binder> binder;
  std::unique_ptr<AudioBarWidgets> widgets;
};

void PaintPages(benchmark::State& state, AudioBar& audioBar) {
  std::int32_t first = 1;
  for (auto _ : state) {
    audioBar.DrawWave(first);
    first = first % 10000 + 1920;
  }
}

void TickWithoutPageTurn(benchmark::State& state, Program& program) {
  program.audioBar.DrawWave(0);
  std::int32_t ms = 0;
  for (auto _ : state) {
    ms = (ms + 20) % 19000;
    program.sample.SetPlayerPosMs(ms);
    program.window.tmrWave.Pass();
  }
}

void RunAll() {
  Bar bar;
  Program& program = *bar.program;
  benchmark::RegisterBenchmark("PaintPage", [&](benchmark::State& state) {
    PaintPages(state, program.audioBar);
  })->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("PaintFullHeightPage", [&](benchmark::State& state) {
    program.window.mnuFullWave.Click();
    PaintPages(state, program.audioBar);
    program.window.mnuFullWave.Click();
  })->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("TickWithoutPageTurn", [&](benchmark::State& state) {
    TickWithoutPageTurn(state, program);
  })->Unit(benchmark::kMicrosecond);
  benchmark::RunSpecifiedBenchmarks();
}

}  // namespace
}  // namespace cuewright::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  cuewright::bench::RunAll();
  return 0;
}

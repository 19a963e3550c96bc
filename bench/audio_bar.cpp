// The Audio bar's own work: painting a page of the strip of 1920 pixels, a tick of its timer that turns no page, and
// pictures of the wave to work in, 3840 pixels wide over 90 minutes with 32,000 captions, while it scrolls and zooms.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <array>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <vector>

#include "core/counting.h"
#include "forms/program.h"
#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"
#include "ui/audio_bar_widgets.h"
#include "ui/binder.h"
#include "voice/hand_exercise.h"

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
    // The strip is that of the classic manner.
    program->options.manner.SetClassic(true);
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
    std::vector<std::int16_t> samples(kRate * 120);
    for (int i = 0; i < CountOf(samples); ++i) {
      samples[i] = static_cast<std::int16_t>(20000 * std::sin(i * 0.05) * std::sin(i * 0.00001));
    }
    return folder.Write("a.wav", WaveFileOf(samples, kRate));
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
  Ms ms = 0;
  for (auto _ : state) {
    ms = (ms + 20) % 19000;
    program.sample.SetPlayerPosMs(ms);
    program.window.tmrWave.Pass();
  }
}

/// The samples of a sound without an end.
class EndlessSound final : public FileReader {
 public:
  EndlessSound() {
    std::uint32_t random = 1;
    for (char& byte : second_) byte = static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
  }
  std::uint64_t Size() const override { return std::numeric_limits<std::uint64_t>::max(); }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
    for (std::size_t done = 0; done < count;) {
      const std::size_t at = static_cast<std::size_t>(offset + done) % second_.size();
      const std::size_t piece = std::min(count - done, second_.size() - at);
      std::memcpy(to + done, second_.data() + at, piece);
      done += piece;
    }
    return count;
  }

 private:
  std::array<char, 44100> second_;
};

/// Ninety minutes of sound with nearly as many captions as the list takes, in a picture of 3840 by 220 pixels.
class LongBoard {
 public:
  explicit LongBoard(Program& program) : picture_(3840, 220, QImage::Format_RGB32) {
    std::vector<Caption> captions;
    for (int i = 0; i < 32000; ++i) {
      const Ms start = 1 + i * 168;
      captions.push_back({start, start + (i % 50 == 0 ? 200 : 150), u"A caption of some words"});
    }
    program.list.Replace(1, program.list.Count(), std::move(captions));
    for (int ms = 0; ms < 5400000; ++ms) {
      const auto level = static_cast<std::int16_t>(ms * 7 % 20000);
      peaks_.Append({level, static_cast<std::int16_t>(-level)});
    }
    for (int step = 0; step < 540000; ++step) {
      SoundTable::Step bands{};
      bands.fill(static_cast<std::uint8_t>(step % 170));
      table_.Append(bands);
    }
    fine_.Open(std::make_unique<EndlessSound>(), {44, std::numeric_limits<std::uint64_t>::max(), 22050, 2, 16});
    scale_.SetWidth(picture_.width());
    scale_.SetLength(5400000);
    captions_ = std::make_unique<BoardCaptions>(program.list, program.grid);
  }
  /// One picture from its captions on, as a scroll or a zoom paints it; without the words, which the window writes.
  void Paint(double msAPixel, double left, BoardLook look) {
    scale_.SetMsAPixel(msAPixel, 0);
    scale_.ShowFrom(left);
    captions_->Build(scale_, nullptr);
    if (look != BoardLook::Wave) fine_.Prepare(scale_);
    BoardScene scene{scale_,
                     peaks_,
                     table_,
                     fine_,
                     *captions_,
                     BoardBands::For(picture_.height(), captions_->HasLower(), look),
                     BoardColors::Of(0xFFFF00, 0)};
    scene.bothHalves = true;
    painter_.Paint({reinterpret_cast<std::uint32_t*>(picture_.bits()), picture_.bytesPerLine() / 4, picture_.width(),
                    picture_.height()},
                   scene);
  }

 private:
  QImage picture_;
  WavePyramid peaks_;
  SoundTable table_;
  FineSpectrum fine_;
  WaveScale scale_;
  std::unique_ptr<BoardCaptions> captions_;
  BoardPainter painter_;
};

void PanBoard(benchmark::State& state, LongBoard& board, BoardLook look) {
  const auto msAPixel = static_cast<double>(state.range(0));
  double left = 0;
  for (auto _ : state) {
    board.Paint(msAPixel, left, look);
    left = left > 1500000 ? 0 : left + 37 * msAPixel;
  }
}

void ZoomBoard(benchmark::State& state, LongBoard& board, BoardLook look) {
  double msAPixel = 1;
  for (auto _ : state) {
    board.Paint(msAPixel, 600000, look);
    msAPixel = msAPixel > 900 ? 1 : msAPixel * 1.1;
  }
}

void RunBoard(Program& program) {
  static LongBoard board(program);
  for (const auto& [name, look] :
       {std::pair{"Wave", BoardLook::Wave}, {"Spectrogram", BoardLook::Spectrogram}, {"Both", BoardLook::Both}}) {
    benchmark::RegisterBenchmark((std::string("PanBoard") + name).c_str(),
                                 [look = look](benchmark::State& state) { PanBoard(state, board, look); })
        ->Unit(benchmark::kMillisecond)
        ->Arg(1)
        ->Arg(10)
        ->Arg(100)
        ->Arg(1000);
    benchmark::RegisterBenchmark((std::string("ZoomBoard") + name).c_str(), [look = look](benchmark::State& state) {
      ZoomBoard(state, board, look);
    })->Unit(benchmark::kMillisecond);
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
  RunBoard(program);
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

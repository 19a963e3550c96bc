// Any bytes as a wave file: the reader must agree with the plain, slow reading of the same bytes.

#include <string>
#include <string_view>

#include "audio/wave_reader.h"
#include "core/memory_reader.h"
#include "fuzz/engine.h"
#include "tests/audio/wave_oracle.h"

namespace cuewright::fuzz {
namespace {

using testing::WaveOutcome;

struct Recorder final : WaveLoadSteps {
  explicit Recorder(WaveOutcome& into, std::int32_t width) : out(into), columns(width) {}
  void OnHeader() override { out.events.emplace_back("header"); }
  void OnBegin() override { out.events.emplace_back("begin"); }
  std::int32_t ScreenColumns() const override { return columns; }
  void OnScreenful() override { out.events.push_back("screenful " + std::to_string(columns)); }
  bool OnProgress(std::int64_t position, std::int64_t size) override {
    out.events.push_back("progress " + std::to_string(position) + "/" + std::to_string(size));
    return false;
  }
  WaveOutcome& out;
  std::int32_t columns;
};

void Check(std::string_view bytes) {
  constexpr std::int32_t kColumns = 100;
  WaveOutcome outcome;
  WavePeaks peaks;
  MemoryReader file{std::string(bytes)};
  Recorder steps(outcome, kColumns);
  outcome.end = WaveReader(peaks).Load(file, steps) == WaveLoadResult::Loaded ? WaveOutcome::End::Loaded
                                                                              : WaveOutcome::End::Failed;
  const WaveOutcome slow = testing::ReadWaveSlowly(bytes, kColumns);
  Demand(outcome.end == slow.end, "the end of the load");
  Demand(outcome.events == slow.events, "what happens on the way");
  Demand(static_cast<std::size_t>(2 * peaks.Columns()) == slow.peaks.size(), "the number of columns");
  for (std::size_t i = 0; i < slow.peaks.size(); ++i) {
    Demand(peaks.At(static_cast<std::int32_t>(i)) == slow.peaks[i], "the peaks");
  }
}

}  // namespace
}  // namespace cuewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  cuewright::fuzz::Check({reinterpret_cast<const char*>(data), size});
  return 0;
}

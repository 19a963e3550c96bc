// Loads a wave file as the Audio bar does, without a window, and prints how many columns there are and
// the memory that it took.
//
// wave_load FILE

#include <cstdio>
#include <fstream>
#include <limits>
#include <string>

#include "audio/wave_reader.h"
#include "core/runtime_error.h"
#include "platform/posix_files.h"

namespace {

class NoSteps final : public cuewright::WaveLoadSteps {
  void OnHeader() override {}
  void OnBegin() override {}
  std::int32_t ScreenColumns() const override { return std::numeric_limits<std::int32_t>::max(); }
  void OnScreenful() override {}
  bool OnProgress(std::int64_t, std::int64_t) override { return false; }
};

/// What the process ever held, as the system tells it.
std::string PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return line.substr(6) + "\n";
  }
  return "?\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    cuewright::PosixFiles files;
    cuewright::WavePeaks peaks;
    NoSteps steps;
    const auto file = files.OpenToRead(cuewright::FromUtf8(argv[1]));
    if (cuewright::WaveReader(peaks).Load(*file, steps) != cuewright::WaveLoadResult::Loaded) return 1;
    std::printf("%d columns, at most %s", peaks.Columns(), PeakMemory().c_str());
    return 0;
  } catch (const cuewright::RuntimeError&) {
    return 1;
  }
}

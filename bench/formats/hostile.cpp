// How the time of reading grows with the size of files that are made to keep a reader busy: the ratio of the times at
// 5 MB and at a quarter of that, which is 4 for a reader that goes through its file once, and the longest time.
//   bench_hostile [--moment]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <limits>

#include "formats/source/source_format.h"
#include "tests/support/hostile_files.h"
#include "text/encodings.h"

namespace cuewright {
namespace {

/// Takes whatever a reader finds.
struct PatientSink final : SourceSink {
  bool Add(std::int32_t, std::int32_t, Text, const SourceRecord&) override { return true; }
  void NotUnderstood(std::size_t) override {}
};

/// The best of some rounds.
double SecondsToRead(const test::HostileFile& hostile, std::size_t size, int rounds) {
  const Encodings encodings(1252);
  const TextFile file = TextFile::Auto(hostile.OfSize(size), encodings);
  double best = std::numeric_limits<double>::max();
  for (int i = 0; i < rounds; ++i) {
    const auto format = MakeSourceFormat(hostile.format);
    PatientSink sink;
    const auto began = std::chrono::steady_clock::now();
    format->Read(SourceText{file.Bytes(), file}, u"|", sink);
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count());
  }
  return best;
}

void Run(std::size_t size, int rounds) {
  std::printf("%-16s %8s %8s  piece\n", "format", "ms", "ratio");
  for (const test::HostileFile& hostile : test::kHostileFiles) {
    const double large = SecondsToRead(hostile, size, rounds);
    const double small = SecondsToRead(hostile, size / 4, rounds);
    std::string piece = hostile.piece;
    std::ranges::replace(piece, '\n', ' ');
    std::printf("%-16s %8.1f %8.1f  %s\n", ToUtf8(hostile.format).c_str(), large * 1000, large / small, piece.c_str());
  }
}

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  const bool moment = argc > 1 && std::strcmp(argv[1], "--moment") == 0;
  cuewright::Run(moment ? 1 << 16 : 5 << 20, moment ? 1 : 3);
}

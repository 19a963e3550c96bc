// Recognition and import inside the process, against a plain scan for line ends of the same bytes.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "bench/formats/captions.h"
#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/memory_reader.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/ports/settings_reader.h"
#include "formats/definition.h"
#include "formats/import.h"

namespace cuewright::bench {
namespace {

/// One file in memory; reading it costs a copy.
class MemoryFile final : public Files {
 public:
  explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}
  const std::string& Bytes() const { return bytes_; }

  bool Exists(TextView) const override { return true; }
  bool IsRegular(TextView) const override { return true; }
  std::uint64_t Size(TextView) const override { return bytes_.size(); }
  std::string Read(TextView, std::uint64_t) const override { return bytes_; }
  std::unique_ptr<FileReader> OpenToRead(TextView) const override { return std::make_unique<MemoryReader>(bytes_); }
  void Replace(TextView, const std::function<void(ByteSink&)>&) override {}
  void WritePrivate(TextView, std::string_view) override {}
  std::vector<Text> Names(TextView) const override { return {}; }
  bool Remove(TextView) override { return false; }
  bool MakeLink(TextView, TextView) override { return false; }
  void MakePrivateFolder(TextView) override {}

 private:
  std::string bytes_;
};

class NoBoxes final : public Messages {
 public:
  BoxAnswer Show(const MessageBox&) override { return BoxAnswer::Ok; }
  Text Ask(const InputBox&) override { return u"25"; }
};

class NoSettings final : public SettingsReader {
 public:
  Text GetSetting(TextView, TextView, TextView fallback) const override { return Text(fallback); }
};

std::string ShippedFile(const std::string& name) {
  std::ifstream file(std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The engine around one file.
struct Engine {
  explicit Engine(std::string bytes) : file(std::move(bytes)) {
    catalogue.Load(ShippedFile("formats.ini"), ShippedFile("formats.dat"), encodings);
  }

  MemoryFile file;
  AppOptions options;
  bool modified = false;
  bool cancelled = false;
  CaptionList captions{options, modified};
  Encodings encodings;
  FormatCatalogue catalogue;
  FormatState state;
  LangStrings strings;
  NoSettings settings;
  NoBoxes boxes;
  FormatTalk talk{strings, boxes};
  FormatLoader loader{catalogue, state, settings, talk};
  Importer importer{{catalogue, state, loader}, talk, captions, {file, encodings}, cancelled};
};

std::size_t CountLines(const std::string& bytes) {
  std::size_t lines = 0;
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (const void* hit = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
    ++lines;
    at = static_cast<const char*>(hit) + 1;
  }
  return lines;
}

void LineScan(benchmark::State& state) {
  const std::string bytes = MakeSubRip(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(CountLines(bytes));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(LineScan)->Arg(1000)->Arg(8000)->Arg(32000)->Unit(benchmark::kMicrosecond);

/// The time of one call in seconds.
template <class Call>
double Timed(Call&& call) {
  const auto begin = std::chrono::steady_clock::now();
  call();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// "times_line_scan": recognition and import in units of a line scan, both run in turns.
void RecogniseAndImport(benchmark::State& state) {
  Engine engine(MakeSubRip(static_cast<int>(state.range(0))));
  double scanning = 0;
  double importing = 0;
  for (auto _ : state) {
    scanning += Timed([&] { benchmark::DoNotOptimize(CountLines(engine.file.Bytes())); });
    engine.captions.Reset();  // as the program does before a load
    const double seconds = Timed([&] { engine.importer.DetectFormat(u"a.srt", Loading::NewDocument); });
    importing += seconds;
    state.SetIterationTime(seconds);
  }
  if (engine.captions.Count() != state.range(0)) state.SkipWithError("captions are missing");
  state.counters["times_line_scan"] = importing / scanning;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(RecogniseAndImport)
    ->Arg(1000)
    ->Arg(8000)
    ->Arg(32000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

/// A file that no format fits: every one is tried, twice.
void RecogniseNothing(benchmark::State& state) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i)
    bytes += "Only words, at 00:00:12:10 or so, and nothing that a format is known by.\r\n";
  Engine engine(bytes);
  for (auto _ : state) benchmark::DoNotOptimize(engine.importer.SettleFormat(u"a.srt"));
}
BENCHMARK(RecogniseNothing)->Unit(benchmark::kMicrosecond);

/// The same with a program that has just started, so that no definition was looked at before.
void RecogniseAtFirst(benchmark::State& state) {
  const std::string bytes = MakeSubRip(300);
  const std::string words(bytes.size(), 'x');
  for (auto _ : state) {
    state.PauseTiming();
    Engine engine(words);
    state.ResumeTiming();
    benchmark::DoNotOptimize(engine.importer.SettleFormat(u"a.srt"));
  }
}
BENCHMARK(RecogniseAtFirst)->Unit(benchmark::kMicrosecond);

void LoadCatalogue(benchmark::State& state) {
  const std::string ini = ShippedFile("formats.ini");
  const std::string dat = ShippedFile("formats.dat");
  const Encodings encodings;
  for (auto _ : state) {
    FormatCatalogue catalogue;
    catalogue.Load(ini, dat, encodings);
    benchmark::DoNotOptimize(catalogue.Count());
  }
}
BENCHMARK(LoadCatalogue)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace cuewright::bench

BENCHMARK_MAIN();

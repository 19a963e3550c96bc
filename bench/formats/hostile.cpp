// How the time of reading grows with the size of files that are made to keep a reader busy: the ratio of the times at
// 5 MB and at a quarter of that, which is 4 for a reader that goes through its file once, and the longest time. First
// the readers by published rules, then every format of the catalogue as the classic manner reads it and as today's
// does.
//   bench_hostile [--moment]
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>

#include "formats/source/source_format.h"
#include "tests/formats/format_rig.h"
#include "tests/support/hostile_files.h"
#include "text/encodings.h"

namespace cuewright {
namespace {

/// Takes whatever a reader finds.
struct PatientSink final : SourceSink {
  bool Add(Ms, Ms, Text, const SourceRecord&) override { return true; }
  void NotUnderstood(std::size_t) override {}
};

/// The least processor time of some rounds of a call, in seconds.
template <class Call>
double BestSeconds(int rounds, Call&& call) {
  double best = std::numeric_limits<double>::max();
  for (int i = 0; i < rounds; ++i) {
    const std::clock_t began = std::clock();
    call();
    best = std::min(best, static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC);
  }
  return best;
}

double SecondsToRead(const test::HostileFile& hostile, std::size_t size, int rounds) {
  const Encodings encodings(1252);
  const TextFile file = hostile.Opened(size, encodings);
  return BestSeconds(rounds, [&] {
    PatientSink sink;
    MakeSourceFormat(hostile.format)->Read(SourceText{file.Bytes(), file}, u"|", sink);
  });
}

constexpr std::size_t kShownPiece = 40;

void PrintHead(const char* what) { std::printf("%-16s %8s %8s  %s\n", what, "ms", "ratio", "piece"); }

void PrintRow(const Text& format, double large, double small, std::string piece) {
  piece.resize(std::min(piece.size(), kShownPiece));
  for (char& c : piece) {
    if (c < ' ' || c > '~') c = '.';
  }
  std::printf("%-16s %8.1f %8.1f  %s\n", ToUtf8(format).c_str(), large * 1000, large / small, piece.c_str());
}

void ReadHostileFiles(std::size_t size, int rounds) {
  PrintHead("reader");
  for (const test::HostileFile& hostile : test::kHostileFiles) {
    const double large = SecondsToRead(hostile, size, rounds);
    PrintRow(Text(hostile.format), large, SecondsToRead(hostile, size / 4, rounds), hostile.piece);
  }
}

/// The beginning of a document of a format: its first caption, still open.
std::string OpenCaption(testing::FormatRig& rig, const Text& id) {
  rig.Fill({{1000, 2000, u"@"}, {3000, 4000, u"two"}});
  const std::string whole = rig.Save(id, 25);
  const std::size_t text = whole.find('@');
  return text == std::string::npos ? whole : whole.substr(0, text + 1) + "\n";
}

void ImportHostileFiles(std::size_t size, int rounds, bool classic) {
  testing::FormatRig rig;
  rig.options.manner.SetClassic(classic);
  PrintHead(classic ? "classic import" : "import");
  const auto print = [&](const Text& id, const std::string& begin, const std::string& piece) {
    const auto seconds = [&](std::size_t bytes) {
      const std::string content = test::HostileFile{id, begin, piece}.OfSize(bytes);
      return BestSeconds(rounds, [&] { rig.ImportAs(id, content); });
    };
    const double large = seconds(size);
    PrintRow(id, large, seconds(size / 4), piece);
  };
  for (int index = 1; index < rig.catalogue.Count(); ++index) {
    const Text& id = rig.catalogue.Identifier(index);
    const std::string begin = OpenCaption(rig, id);
    // Whole files behind each other, with heads in the middle and lines that belong to nothing.
    print(id, "", rig.Save(id, 25) + "\n@\n");
    if (!classic) continue;
    for (const char* const piece : {":\n", ":\nx\n", "<\n"}) print(id, begin, piece);
  }
  if (!classic) return;
  std::string nested;
  for (int i = 0; nested.size() < 4000; ++i) nested += "<a<" + std::to_string(i) + ">";
  print(u"SAMI", "<SAMI>\n<BODY>\n<SYNC START=1000>\n", nested + "\n");
}

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  const bool moment = argc > 1 && std::strcmp(argv[1], "--moment") == 0;
  const std::size_t size = moment ? 1 << 16 : 5 << 20;
  const int rounds = moment ? 1 : 3;
  cuewright::ReadHostileFiles(size, rounds);
  for (const bool classic : {true, false}) cuewright::ImportHostileFiles(size, rounds, classic);
}

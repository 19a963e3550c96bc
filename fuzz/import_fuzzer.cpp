// Any bytes as a subtitle file: recognition and import, in both ways of reading, as a new document and appended. The
// lines are then read by the format's parser alone and with its run, which must agree.

#include <cstddef>
#include <cstdint>

#include "fuzz/engine.h"
#include "tests/formats/reading_ways.h"

namespace cuewright::fuzz {
namespace {

void CompareWays(Engine& engine, const std::string& bytes, bool classic) {
  using testing::Way;
  const Text id = engine.formats.CurrentIdentifier();
  if (engine.state.CurrentFormatIndex == 0) return;
  TextFile file = classic ? TextFile::Classic(bytes, engine.encodings) : TextFile::Auto(bytes, engine.encodings);
  const testing::LinesOf lines{id, std::move(file), Choice(bytes, 3) != 0, {engine.state.CurrentFps}};
  Demand(ReadLines(Way::ParserAlone, engine.loader, u"|", lines) ==
             ReadLines(Way::ParserAndRun, engine.loader, u"|", lines),
         "the parser alone reads what it reads with its run");
}

}  // namespace
}  // namespace cuewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cuewright;
  using namespace cuewright::fuzz;
  constexpr int kCodePages[] = {1252, 1250, 932, 949, 1361, 1255};
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const bool classic = Choice(bytes, 2) != 0;
  Engine engine(ShippedCatalogue(), kCodePages[Choice(bytes, std::size(kCodePages))]);
  engine.options.readAs = classic ? u"classic" : u"auto";
  engine.Open(u"file.txt", bytes);
  Demand(engine.captions.Count() <= kMostCaptions, "a load stops behind 32000 captions");
  CompareWays(engine, bytes, classic);
  const Row before = engine.captions.Rows();
  engine.Open(u"file.sub", bytes, Loading::Append);
  Demand(engine.captions.Rows() - before <= kMostCaptions, "an append stops behind 32000 captions");
  return 0;
}

// Any bytes as a subtitle file: recognition and import, in both ways of reading, as a new document and appended.

#include <cstddef>
#include <cstdint>

#include "fuzz/engine.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cuewright;
  using namespace cuewright::fuzz;
  constexpr int kCodePages[] = {1252, 1250, 932, 949, 1361, 1255};
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Engine engine(ShippedCatalogue(), kCodePages[Choice(bytes, std::size(kCodePages))]);
  engine.options.readAs = Choice(bytes, 2) == 0 ? u"auto" : u"classic";
  engine.Open(u"file.txt", bytes);
  Demand(engine.captions.Rows() - 1 <= kMostCaptions, "a load stops behind 32000 captions");
  const Row before = engine.captions.Rows();
  engine.Open(u"file.sub", bytes, true);
  Demand(engine.captions.Rows() - before <= kMostCaptions, "an append stops behind 32000 captions");
  return 0;
}

// Any file is read, written in a format that its bytes choose, and read again.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/engine.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

/// A text that SubRip gives back as it is: no blanks at the ends, no line that is empty or could be a timing line, no
/// control characters, of which several look like wide text, and nothing that is a mark in any format, since marks
/// become those of SubRip.
bool IsPlain(TextView text) {
  if (text.empty()) return false;
  for (const Text& line : Split(text, u"|")) {
    if (line.empty() || TrimBlanks(line) != line || line.find(u" --> ") != Text::npos) return false;
  }
  const auto odd = [](char16_t unit) {
    constexpr TextView kOfMarks = u"<>{}[]&\\/_";
    return kOfMarks.find(unit) != TextView::npos || unit < u' ' || (unit & 0xF800) == 0xD800;
  };
  return std::none_of(text.begin(), text.end(), odd);
}

bool IsOrdinary(const Caption& caption) {
  constexpr std::int32_t kBound = 100 * 3600000;
  return caption.start >= 0 && caption.start < kBound && caption.end >= 0 && caption.end < kBound &&
         IsPlain(caption.text);
}

void CheckSubRip(Engine& engine) {
  std::vector<Caption> ordinary;
  for (Row row = 1; row < engine.captions.Rows(); ++row) {
    if (IsOrdinary(engine.captions.At(row))) ordinary.push_back(engine.captions.At(row));
  }
  if (ordinary.empty() || ordinary.size() > 32000) return;
  // What stood beside them in their file, such as places, would come along.
  for (Caption& caption : ordinary) caption.origin = 0;
  engine.captions.Replace(1, engine.captions.Count(), ordinary);
  engine.state.Encoding = {};
  const std::string written = engine.Save(engine.catalogue.IndexOf(kSubRip));
  // A question about the file before may have been refused.
  engine.cancelled = false;
  engine.importer.ImportSubtitle(u"saved", Loading::NewDocument);
  Demand(static_cast<std::size_t>(engine.captions.Count()) == ordinary.size(), "SubRip keeps the number of captions");
  for (std::size_t i = 0; i < ordinary.size(); ++i) {
    Demand(engine.captions.At(static_cast<int>(i) + 1) == ordinary[i], "SubRip keeps ordinary captions");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Engine engine(ShippedCatalogue());
  engine.Open(u"file.txt", bytes);
  const int index = static_cast<int>(Choice(bytes, static_cast<std::size_t>(engine.catalogue.Count())));
  const std::string written = engine.Save(index);
  engine.Open(u"again.txt", written);
  Demand(engine.captions.Count() <= kMostCaptions, "a load stops behind 32000 captions");
  CheckSubRip(engine);
  return 0;
}

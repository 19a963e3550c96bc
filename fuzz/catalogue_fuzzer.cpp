// Any two format files: the catalogue, each of its definitions, and a small file read and written with them. The input
// is "formats.ini", a line "====", and "formats.dat".

#include <cstddef>
#include <cstdint>

#include "formats/record_pieces.h"
#include "fuzz/engine.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

constexpr std::string_view kDivider = "\n====\n";
/// Definitions that are tried, so that a list of many doesn't take long.
constexpr int kMostTried = 12;

const char* const kSubtitles =
    "1\r\n00:00:01,000 --> 00:00:02,000\r\none\r\n\r\n{25}{50}two|lines\r\n[00:00:03.00]three\r\n[00:00:04.00]\r\n"
    "Dialogue: 0,0:00:01.00,0:00:02.00,D,,0,0,0,,four\r\n00:00:05:00 00:00:06:00 five\r\n";

void UseFormat(Engine& engine, int index) {
  CarryOn errors;
  errors([&] { engine.loader.SelectFormat(engine.catalogue.Identifier(index)); });
  CutRecord(engine.loader.Definition(), errors);
  engine.state.CurrentFormatIndex = index;
  engine.importer.ImportSubtitle(u"file.txt", Loading::NewDocument);
  engine.captions.Replace(1, engine.captions.Count(), {{1000, 2000, u"<b>one|two"}, {-500, 1000000000, u"three"}});
  engine.Save(index);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t divider = bytes.find(kDivider);
  const std::string_view ini = bytes.substr(0, divider);
  const std::string_view dat = divider == std::string_view::npos ? bytes : bytes.substr(divider + kDivider.size());
  FormatCatalogue catalogue;
  CarryOn errors;
  errors([&] { catalogue.Load(std::string(ini), std::string(dat), Encodings()); });
  Demand(catalogue.Count() <= 255, "an index has 8 bits");
  Engine engine(catalogue);
  engine.Open(u"file.txt", kSubtitles);
  for (int i = 0; i < catalogue.Count() && i < kMostTried; ++i) UseFormat(engine, i);
  return 0;
}

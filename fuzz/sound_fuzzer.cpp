// Any bytes as the file of a sound's table, and as the samples of a sound that come in pieces.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fuzz/engine.h"
#include "sound/film_samples.h"
#include "sound/sound_measurer.h"

using namespace cuewright;
using namespace cuewright::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  SoundTable table;
  if (table.Read(bytes)) {
    Demand(table.Bytes() == bytes, "a table that was read is written as it was");
  } else {
    Demand(table.Steps() == 0, "what can't be read leaves nothing");
  }

  table.Clear();
  SoundMeasurer measurer(table, kSamplesASecond);
  SampleBytes samples;
  std::size_t count = 0;
  // The first byte says how long the pieces are.
  const std::size_t piece = size == 0 ? 1 : std::size_t{data[0]} + 1;
  for (std::size_t at = 0; at < size; at += piece) {
    const std::span<const std::int16_t> taken = samples.Take(bytes.substr(at, piece));
    count += taken.size();
    measurer.Add(taken);
  }
  measurer.Finish();
  Demand(count == size / 2, "every two bytes are a sample");
  Demand(table.Steps() == (count * 100 + kSamplesASecond - 1) / kSamplesASecond, "a step each 10 ms");
  return 0;
}

#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/ms.h"
#include "sound/sound_table.h"

namespace cuewright {

/// Where in a film a line is said.
struct AlignedLine {
  Ms start = 0;  ///< ms
  Ms end = 0;
  double confidence = 0;  ///< 0 to 1; 0 for a line that nobody says, which lies between its neighbours
  bool doubtful = true;
};

/// Finds lines in a film by their sound, in their order. Lines that nobody says and speech that no line has are
/// allowed. `spoken` is each line as a synthesiser says it. They are looked for twice, the second time by what the
/// first told of the film's voices and their pace; `goOn` is asked at every line, with
/// how many of them all would be done by now, and ends it with an empty result.
std::vector<AlignedLine> AlignLines(std::span<const SoundTable> spoken, const SoundTable& film,
                                    const std::function<bool(std::size_t)>& goOn = {});

}  // namespace cuewright

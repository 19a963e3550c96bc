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
/// allowed. `spoken` is each line as a synthesiser says it. The film is searched twice: the lines that the first search
/// surely finds tell what the film's voices and their pace are, and the second one goes by that. `goOn` is asked at
/// every line of both searches with the number of lines that are done, half of each line counting for each search; when
/// it says false, the result is empty.
std::vector<AlignedLine> AlignLines(std::span<const SoundTable> spoken, const SoundTable& film,
                                    const std::function<bool(std::size_t)>& goOn = {});

}  // namespace cuewright

#pragma once

#include <vector>

#include "core/caption_list.h"
#include "text/text_file.h"

namespace cuewright {

/// The rate at which a trial counts frames: a frame is a hundredth of a second, so that its number can be told from the
/// time in ms.
inline constexpr double kRateOfTrials = 100.0;

/// What a format made of the beginning of a file.
struct TrialReading {
  int format = 0;
  bool countsFrames = false;  ///< its times end in frames, read at `kRateOfTrials`
  std::vector<Caption> rows;
  std::size_t notUnderstood = 0;  ///< lines
};

/// The formats that read a file no worse than the first of these, on which recognition settled, and that each read it
/// in another way; the best comes first. A single one is certain.
std::vector<int> BestFitting(std::vector<TrialReading> trials);

/// The beginning of a file, as much of it as a trial reads.
TextFile BeginningOf(const TextFile& file);

}  // namespace cuewright

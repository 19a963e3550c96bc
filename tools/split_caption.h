#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

/// How loud the film is from a time on, in steps of 10 ms.
struct Loudness {
  static constexpr int kStepMs = 10;

  Ms from = 0;  ///< ms
  std::vector<std::int32_t> levels;
};

/// The quietest time at most `reach` away from `ms`; of several the nearest. `ms` itself where nothing is known of the
/// sound.
Ms QuietestNear(const Loudness& sound, Ms ms, Ms reach);

/// Splits a row in range in two, its text at a place of what the pane shows of it. The time between the two divides
/// the caption as its letters are divided, or lies at a pause nearby. Line ends and blanks at the place go, and so do
/// the dashes of a dialogue of two. A place at either end means the best one near the middle. False, and nothing
/// happens, when one part would be empty.
bool SplitAtPlace(CaptionList& list, Row row, std::size_t place, const Loudness& sound = {});

/// Splits a row in range in two at a time inside it, its text at the best place near the same share of its letters.
/// False, and nothing happens, for a time that isn't inside it, and for a text of one word.
bool SplitAtTime(CaptionList& list, Row row, Ms ms);

}  // namespace cuewright

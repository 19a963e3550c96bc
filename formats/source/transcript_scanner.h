#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "formats/source/source_format.h"

namespace cuewright {

/// An object of a JSON file that has a start, an end and a text.
struct TranscriptSegment {
  Stretch whole;
  Stretch start;  ///< the number
  Stretch end;
  Stretch text;  ///< between the quotes
};

/// What a JSON file holds of segments.
struct Transcript {
  std::vector<TranscriptSegment> segments;
  std::size_t brokenAt = 0;
  bool broken = false;  ///< the file isn't JSON from `brokenAt` on
};

/// Reads a JSON file of any shape. Words of a segment, which look like segments, are none.
Transcript ScanTranscript(std::string_view bytes);

}  // namespace cuewright

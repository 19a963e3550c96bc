#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "formats/source/source_format.h"

namespace cuewright {

/// How an object of a JSON file tells its times and its text.
enum class SegmentShape {
  Flat,    ///< "start" and "end" or "duration", under one of several names, and "text"
  List,    ///< "timestamp": [start, end], and "text"
  Ranges,  ///< "offsets": {"from", "to"} in ms, the same under "timestamps" as clock times, and "text"
  Events,  ///< "tStartMs", "dDurationMs" and "segs": [{"utf8"}]
};

/// An object of a JSON file that has a start, an end and a text. Strings lie between their quotes.
struct TranscriptSegment {
  Stretch whole;
  Stretch start;
  Stretch end;         ///< or the duration
  Stretch text;        ///< empty: its pieces stand in a list
  Stretch pieces;      ///< that list with its brackets
  Stretch startClock;  ///< the same times once more, as a clock shows them
  Stretch endClock;
  SegmentShape shape = SegmentShape::Flat;
  bool lasts = false;  ///< the end is a duration
};

/// What a JSON file holds of segments.
struct Transcript {
  std::vector<TranscriptSegment> segments;
  std::size_t brokenAt = 0;
  bool broken = false;  ///< the file isn't JSON from `brokenAt` on
  bool lines = false;   ///< the file isn't one value: segments stand one behind the other
};

/// Reads a JSON file of any shape, or one of JSON lines. Words of a segment, which look like segments, are none.
Transcript ScanTranscript(std::string_view bytes);

/// The strings under "utf8" in a list of pieces, as they stand in the file.
std::vector<std::string_view> PiecesIn(std::string_view list);

/// The file begins as JSON does.
bool BeginsAsJson(std::string_view bytes);

}  // namespace cuewright

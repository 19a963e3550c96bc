#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/ms.h"
#include "voice/offset_scores.h"
#include "voice/voice_likeness.h"

namespace cuewright {

/// Captions that move together.
struct SyncSegment {
  Row first = 1;
  Row last = 1;
  Ms offset = 0;          ///< ms that are added to a time that was multiplied by the ratio
  double confidence = 0;  ///< 0 to 1, higher the worse the second best place is
  bool doubtful = false;
};

/// Where captions that were made for another cut or rate belong.
struct SyncResult {
  bool belongs = false;  ///< true: the captions fit the voice better than by chance
  TimeRatio ratio;
  std::vector<SyncSegment> segments;  ///< in ascending order; each row lies in exactly one

  /// True when at least one time changes.
  bool Changes() const;
};

/// Finds ratio, shift and cuts by which captions, row 1 first, lie on a voice. Rows without times belong to the segment
/// of the row before. Where the voice was made of other captions, `exact` are these: their starts give the
/// milliseconds.
SyncResult Synchronise(std::span<const CaptionTimes> captions, const VoiceTrack& voice,
                       std::span<const CaptionTimes> exact = {});

}  // namespace cuewright

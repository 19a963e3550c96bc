#pragma once

#include <cstdint>

#include "core/caption_list.h"

namespace cuewright {

enum class JoinAs : std::uint8_t {
  Lines,     ///< the texts below each other
  Dialogue,  ///< a line each, behind a dash
};

/// Makes one caption of the rows from `first` to `last`, both in range. It lasts from the first start to the last end,
/// and keeps the styles that each had as a whole. False, and nothing happens, when there is nothing to join.
bool JoinCaptions(CaptionList& list, Row first, Row last, JoinAs as);

/// Lets a caption end where the next row starts. False, and nothing happens, unless both have times in this order.
bool MeetNext(CaptionList& list, Row row);

/// The texts of a caption and the next one change places; their times stay. False when there is no next one.
bool SwapTextWithNext(CaptionList& list, Row row);

}  // namespace cuewright

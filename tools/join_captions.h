#pragma once

#include <cstdint>

#include "core/caption_list.h"

namespace cuewright {

enum class JoinAs : std::uint8_t {
  Lines,     ///< the texts below each other
  Dialogue,  ///< each text on a line of its own, behind a dash
};

/// Makes one caption of these rows, in the place of the first. It lasts from the first start to the last end, and keeps
/// the styles that each caption had as a whole. False, and nothing happens, unless there are two rows or more and all
/// are in range.
bool JoinCaptions(CaptionList& list, const RowSet& rows, JoinAs as);

/// Lets a caption end where the next row starts. False, and nothing happens, unless both have times in this order.
bool MeetNext(CaptionList& list, Row row);

/// The texts of a caption and the next one change places; their times stay. False when there is no next one.
bool SwapTextWithNext(CaptionList& list, Row row);

}  // namespace cuewright

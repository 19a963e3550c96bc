#pragma once

#include <cstdint>

#include "core/caption_list.h"

namespace cuewright {

/// How many timed captions would start before 0 when all are shifted by `delay` ms.
int CountBelowZero(const CaptionList& list, Ms delay);

/// Shifts every timed caption by `delay` ms. One that would start before 0 loses its timing; untimed rows stay as they
/// are. One change of the list, in time linear in its length.
void ShiftCaptions(CaptionList& list, Ms delay);

/// Start and end of every caption become 0, as one change.
void ClearAllTiming(CaptionList& list);

}  // namespace cuewright

#pragma once

#include <cstdint>

#include "core/ms.h"
#include "text/text.h"

namespace cuewright {

/// A time in ms as "HH:MM:SS,mmm"; zero and negative times give "00:00:00,000". Run-time error 6 from 256 hours on.
Text MsToTimeText(Ms time);

/// Milliseconds of the fixed places of "HH:MM:SS,mmm"; the separators aren't looked at, and a group that
/// is no number counts as 0.
Ms TimeTextToMs(TextView text);

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <optional>

#include "core/ms.h"
#include "text/text.h"

namespace cuewright {

/// The ms of a time as a user types it: seconds with up to three decimals behind a point or a comma, with minutes and
/// hours in front where wanted ("1.5", ".5", "2:03.25", "1:00:02,500"). Empty for any other text and from 596 hours on.
std::optional<Ms> TypedTime(TextView text);

/// The number of a text of one to nine digits; empty for any other text.
std::optional<std::int32_t> TypedNumber(TextView text);

}  // namespace cuewright

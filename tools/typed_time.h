#pragma once

#include <cstdint>
#include <optional>

#include "core/ms.h"
#include "text/text.h"

namespace cuewright {

/// The ms of a time as one types it: seconds with up to three decimals behind a point or a comma, with minutes and
/// hours in front of them if need be ("1.5", ".5", "2:03.25", "1:00:02,500"). Empty for any other text and from 596
/// hours on.
std::optional<Ms> TypedTime(TextView text);

/// The number of a text that is a whole one without a sign and has up to nine digits; empty for any other text.
std::optional<std::int32_t> TypedNumber(TextView text);

}  // namespace cuewright

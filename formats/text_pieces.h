#pragma once

#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// `count` characters from the 1-based place on, as many as there are; run-time error 5 for a place below 1 or a
/// negative count.
TextView Middle(TextView text, std::ptrdiff_t place, std::ptrdiff_t count);
/// All characters from the place on.
TextView Middle(TextView text, std::ptrdiff_t place);
/// The first `count` characters; run-time error 5 for a negative count.
TextView Beginning(TextView text, std::ptrdiff_t count);

}  // namespace cuewright

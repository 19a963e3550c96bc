#pragma once

#include "text/text.h"

namespace cuewright {

/// How many characters a reader sees: marks that stand on others and characters without width count for nothing, wide
/// ones for two where that is asked.
int VisibleLength(TextView text, bool wideLetters);

}  // namespace cuewright

#pragma once

#include "text/text.h"

namespace cuewright {

/// How many characters a reader sees: combining marks and characters without width count for nothing; with
/// `wideLetters` the wide characters of East Asian scripts count for two.
int VisibleLength(TextView text, bool wideLetters);

}  // namespace cuewright

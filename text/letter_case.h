#pragma once

#include "text/text.h"

namespace cuewright {

/// How the letters of a text are written.
enum class LetterCase { Upper, Lower, Sentence };

/// The text in letters of the wanted case; its length stays. `Sentence` is lower case, but for the first letter of each
/// sentence and of each line that begins with a dash. Lines are parted by LF.
Text InCase(TextView text, LetterCase wanted);

}  // namespace cuewright

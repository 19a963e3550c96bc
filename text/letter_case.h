#pragma once

#include "text/text.h"

namespace cuewright {

/// How the letters of a text are written.
enum class LetterCase { Upper, Lower, Sentence };

/// The text in such letters; its length stays. As in a sentence: small letters, but for the first one of each sentence
/// and of each line that begins with a dash. Lines are parted by LF.
Text InCase(TextView text, LetterCase wanted);

}  // namespace cuewright

#pragma once

#include "text/text.h"

namespace cuewright {

/// Writes the characters of a cue that stand by name as themselves, but for those that would be taken for a mark.
void DecodeCueText(Text& text);

/// The opposite: "&", "<" and ">" that belong to no mark are written by name, and so are hard blanks when asked for.
Text EncodeCueText(TextView text, bool namesHardBlanks = false);

}  // namespace cuewright

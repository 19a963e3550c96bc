#pragma once

#include "text/text.h"

namespace cuewright {

/// Writes the characters that stand in a text by name or number ("&lt;", "&#39;") as themselves, but for those that
/// would be taken for a mark.
void DecodeNames(Text& text);

/// The same for all characters.
void DecodeAllNames(Text& text);

/// The name or number of a character ("&lt;") that the text begins with; empty when it begins with none.
TextView NameAtBeginning(TextView text);

/// The opposite of `DecodeCharacters`: "&", "<" and ">" that belong to no mark are written by name, and so are hard
/// blanks when asked for.
Text EncodeNames(TextView text, bool namesHardBlanks = false);

/// Every "&", "<" and ">" is written by name.
Text EncodeAllNames(TextView text);

}  // namespace cuewright

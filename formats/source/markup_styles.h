#pragma once

#include "formats/source/markup.h"

namespace cuewright {

/// The text without the marks that switch bold, italic or underline (`letter` is "b", "i" or "u") on or off for parts
/// of it. A mark that sets more than this style keeps the rest.
Text WithoutStyleMarks(TextView text, MarkKind kind, char16_t letter, TextView separator);

}  // namespace cuewright

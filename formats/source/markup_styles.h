#pragma once

#include "formats/source/markup.h"

namespace cuewright {

/// The text without the marks that give bold, italic or underline (`letter` is "b", "i" or "u") to parts of it or take
/// it from them. Marks that tell more than that tell the rest.
Text WithoutStyleMarks(TextView text, MarkKind kind, char16_t letter, TextView separator);

}  // namespace cuewright

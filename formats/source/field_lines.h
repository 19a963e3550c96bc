#pragma once

#include "formats/source/source_format.h"
#include "text/text.h"

namespace cuewright {

/// The text of a field of several lines, whatever ends them: lines without the blanks around them, parted by the
/// separator.
Text FieldToText(Text field, TextView separator);

/// The opposite: the field with a line end for each separator.
Text TextToField(Text text, TextView separator, TextView lineEnd);

}  // namespace cuewright

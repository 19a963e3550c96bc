#pragma once

#include "formats/source/source_format.h"
#include "text/text.h"

namespace cuewright {

inline Stretch MakeStretch(std::size_t at, std::size_t size) {
  return {static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(size)};
}

/// The text of a field of several lines, whatever ends them: lines without the blanks around them, parted by the
/// separator.
Text FieldToText(Text field, TextView separator);

/// The way back: a line end for each separator.
Text TextToField(Text text, TextView separator, TextView lineEnd);

}  // namespace cuewright

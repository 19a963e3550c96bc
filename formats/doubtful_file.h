#pragma once

#include "formats/source/source_map.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// True when the reader understood less than half of the file's lines that aren't blank: the file may be of another
/// format.
bool IsDoubtful(const SourceMap& map);

/// The file's first lines, as a box can show them.
Text FirstLines(const TextFile& file);

}  // namespace cuewright

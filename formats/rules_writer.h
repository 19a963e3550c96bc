#pragma once

#include "formats/caption_writers.h"
#include "formats/source/losses.h"
#include "formats/source/markup.h"

namespace cuewright {

/// Writes the captions that aren't blank as a new file by the published rules of the job's format. Their texts have
/// marks of the kind `from`; `lost` counts what the format can't hold.
void WriteByRules(const WriteJob& job, MarkKind from, Losses& lost, LineSink& sink);

}  // namespace cuewright

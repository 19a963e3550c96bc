#pragma once

#include "formats/caption_writers.h"
#include "formats/source/losses.h"
#include "formats/source/source_map.h"

namespace cuewright {

/// Writes the captions that aren't blank as a new file by the published rules of the job's format. Their texts are
/// those of the file `source`, null for none; `lost` counts what the format can't hold.
void WriteByRules(const WriteJob& job, const SourceMap* source, Losses& lost, LineSink& sink);

}  // namespace cuewright

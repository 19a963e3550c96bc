#pragma once

#include <vector>

#include "formats/source/markup.h"

namespace cuewright {

/// The runs in the marks of a kind; `lost` gets what it can't hold.
Text WriteRuns(const std::vector<StyledRun>& runs, MarkKind kind, TextView separator, LossSet& lost);

}  // namespace cuewright

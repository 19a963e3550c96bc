#pragma once

#include <cstdint>
#include <optional>

#include "core/caption_list.h"

namespace cuewright {

enum class Side : std::uint8_t { Above, Below };

/// Puts a caption without text above or below a row in range, beside it in time: as long as suits a line of text, but
/// never over the next caption with times. It has no times where the row has none or no room is left. The new row.
Row InsertBeside(CaptionList& list, Row row, Side side);

/// Puts a caption without text where it belongs by its start, which is this time in ms. Nothing happens when another
/// stands there already or begins at once.
std::optional<Row> InsertAt(CaptionList& list, Ms ms);

/// Puts a caption without text where it belongs by its start, with these times. The new row.
Row InsertStretchAt(CaptionList& list, CaptionTimes times);

/// Puts a copy of a row in range below it.
void DuplicateCaption(CaptionList& list, Row row);

}  // namespace cuewright

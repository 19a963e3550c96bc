#pragma once

#include <cstdint>
#include <optional>

#include "core/caption_list.h"

namespace cuewright {

enum class Side : std::uint8_t { Above, Below };

/// Inserts a caption without text above or below a row in range, right before or after it in time: as long as suits a
/// line of text, but not into the next caption with times. It gets no times where the row has none or no room is left.
/// Returns the new row.
Row InsertBeside(CaptionList& list, Row row, Side side);

/// Inserts a caption without text that starts at this time in ms, at the row where it belongs by its start. Nothing
/// happens when another caption is there at that time or begins right behind it.
std::optional<Row> InsertAt(CaptionList& list, Ms ms);

/// Inserts a caption without text with these times, at the row where it belongs by its start. Returns the new row.
Row InsertStretchAt(CaptionList& list, CaptionTimes times);

/// Inserts a copy of a row in range below that row.
void DuplicateCaption(CaptionList& list, Row row);

}  // namespace cuewright

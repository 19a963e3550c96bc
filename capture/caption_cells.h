#pragma once

#include <cstdint>
#include <vector>

#include "capture/list_columns.h"
#include "core/caption_list.h"
#include "core/frame_rate.h"
#include "core/styled_text.h"

namespace cuewright {

/// What stands in the list for a line break inside a caption.
inline constexpr TextView kBreakSign = u"\u21b5";

/// How the list shows times.
enum class TimeForm : std::uint8_t { Clock, Milliseconds, Frames };
struct TimesShown {
  TimeForm form = TimeForm::Clock;
  FrameRate rate;  ///< of the frames; without a usual one they are shown as a clock

  bool operator==(const TimesShown&) const = default;
};

/// A time of the film: "1:02:03.456", "3723456" or "1:02:03:11".
Text TimeCell(Ms ms, const TimesShown& shown);
/// A stretch of time: "1.250", "1250" or "30".
Text LengthCell(std::int64_t ms, const TimesShown& shown);

/// The times that the cells of a row tell: its own and those of the row behind it, which has none at the list's end.
struct CellTimes {
  CaptionTimes own;
  CaptionTimes next;
};
/// Reads the times of a row and the one behind it from the captions.
CellTimes TimesOfCells(const CaptionList& list, Row row);

/// What a column shows of a row in range; the text is that of `TextCell` without its styles. Empty where a caption has
/// no such value, such as the duration of one without an end.
Text CaptionCell(const CaptionList& list, Row row, ListColumn column, const TimesShown& shown, const CellTimes& times);

/// The text of a row in range as a viewer sees it, on one line with `kBreakSign` for each line break; when the user
/// wants to see the marks, the stored text.
std::vector<StyledRun> TextCell(const CaptionList& list, Row row);

/// Characters a second of a row in range with these times; 0 when they have no duration.
double ReadingSpeed(const CaptionList& list, Row row, const CaptionTimes& times);

}  // namespace cuewright

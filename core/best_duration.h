#pragma once

#include <cstdint>
#include <optional>

#include "core/caption_list.h"

namespace cuewright {

/// Index of the length class of a caption of `length` counted characters: 0 up to 5, 1 up to 15, 2 above.
std::size_t LengthClass(int length);

/// Gives a caption the end that suits its length: start plus the class's ms for each counted character. A duration
/// below 1 ms first becomes 100 ms, which stays when nothing is left to count. The result is the duration given,
/// empty when none was. Run-time error 6 when it doesn't fit 16 bits; then the end is left.
std::optional<std::int16_t> SetBestDuration(CaptionList& list, Row row);

/// The ms that suit a text of so many counted characters, by the settings.
Ms DurationOfLength(const AppOptions& options, int length);

}  // namespace cuewright

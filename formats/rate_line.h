#pragma once

#include "core/frame_rate.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// The rate of a file that tells none, and of a film whose own isn't known.
inline constexpr int kUsualRate = 25;

/// The beginning of a MicroDVD line that tells the frame rate.
inline constexpr TextView kRateLine = u"{1}{1}";

/// The rate of a line such as "{1}{1}23.976" or "{0}{0}25"; none for any other line and for a rate that nobody uses.
FrameRate RateOfLine(TextView line);

/// The rate that the first line of the file tells. The file must be at its beginning, and is again afterwards.
FrameRate RateInFirstLine(TextFile& file);

/// The line that tells a rate; empty for 25, which a file without the line is taken to have.
Text LineOfRate(const FrameRate& rate);

}  // namespace cuewright

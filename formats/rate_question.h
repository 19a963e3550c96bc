#pragma once

#include "core/frame_rate.h"
#include "formats/line_import.h"
#include "text/text.h"

namespace cuewright {

/// What the question for the rate of a file depends on.
struct RateQuestion {
  Text format;         ///< the name of the file's format
  FrameRate film;      ///< of the film that is open; none: it isn't known
  bool exact = false;  ///< rates of 1 to 240 with three digits, and the film's own is offered; else 15 to below 31
};

/// Asks for a frame rate until one is typed that is taken; none when the user cancels.
FrameRate AskFrameRate(const FormatTalk& talk, const RateQuestion& question);

}  // namespace cuewright

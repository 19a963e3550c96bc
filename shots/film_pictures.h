#pragma once

#include <functional>
#include <string>

#include "core/frame_rate.h"
#include "core/ports/processes.h"
#include "shots/shot_measures.h"
#include "text/text.h"

namespace cuewright {

/// What came of reading a film.
struct FilmReading {
  std::string problem;  ///< why the film wasn't read whole; empty when it was
  bool cancelled = false;
};

/// Reads a film's pictures by FFmpeg, shrunk, with their presentation times, from its first one to the last, and
/// measures them. `goOn` is asked about ten times a second with the number of pictures so far; false gives up.
FilmReading MeasureFilm(Processes& processes, TextView film, ShotMeasurer& measurer,
                        const std::function<bool(std::size_t)>& goOn);

/// The film's rate as its container tells it; none when it can't be read or has no pictures.
FrameRate RateOfFilm(Processes& processes, TextView film);

}  // namespace cuewright

#pragma once

#include <functional>
#include <memory>
#include <optional>
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

/// A film's pictures that FFmpeg decodes and shrinks in a process of its own, measured as they come.
class FilmPictures {
 public:
  /// Begins to read; `gently` leaves the machine to others. Run-time error 53 without FFmpeg. The measurer outlives
  /// this; the reading ends with this object at the latest.
  FilmPictures(Processes& processes, TextView film, ShotMeasurer& measurer, bool gently);
  ~FilmPictures();

  /// Measures what has come since the last call and never waits. What came of it as soon as the film has ended; its
  /// last pictures are measured then.
  std::optional<FilmReading> Poll();
  /// Returns when there may be more, at the latest after `ms`.
  void Wait(int ms);
  std::size_t Count() const;
  /// The presentation time of the last picture in seconds.
  double Seconds() const;

 private:
  class Joiner;
  ShotMeasurer& measurer_;
  std::unique_ptr<Joiner> joiner_;
  std::unique_ptr<ChildProcess> child_;
};

/// Reads a film's pictures by FFmpeg, shrunk, with their presentation times, from its first one to the last, and
/// measures them. `goOn` is asked about ten times a second with the number of pictures so far; false gives up.
FilmReading MeasureFilm(Processes& processes, TextView film, ShotMeasurer& measurer,
                        const std::function<bool(std::size_t)>& goOn);

/// The film's rate as its container tells it; none when it can't be read or has no pictures.
FrameRate RateOfFilm(Processes& processes, TextView film);

}  // namespace cuewright

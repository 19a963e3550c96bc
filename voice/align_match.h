#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "voice/align_features.h"
#include "voice/align_spread.h"

namespace cuewright {

/// The frames from `first` up to the one before `behind`.
struct FrameRange {
  std::size_t first = 0;
  std::size_t behind = 0;

  std::size_t Count() const { return behind - first; }
};

/// For each frame of a window: the worth of a line that ends with it, and the best frame for that line to begin with.
struct LineMatch {
  std::vector<float> worth;
  std::vector<std::int32_t> start;  ///< counted in the window
};

/// Lays spoken lines over a film's sound, slower or faster as it fits. A worth above 0 means that the film sounds more
/// like the line than like other speech or silence.
class LineMatcher {
 public:
  /// Speech in general is taken from `lines`.
  LineMatcher(const FilmFeatures& film, std::span<const SpokenFrames> lines, const LineSpread& spread);

  /// `taken` is called at each frame of the line, with all up to it in `match`.
  void Match(const SpokenFrames& line, const FrameRange& window, LineMatch& match,
             const std::function<void()>& taken = {});

  /// Learns how the frames of a line sound in the place where it is said.
  void Teach(const SpokenFrames& line, const FrameRange& place, LineSpread& spread);

 private:
  using Bands = FilmFeatures::Bands;

  /// The distance of a line's frame, drowned in the noise there, from each frame of a window.
  void Measure(const Bands& frame, const FrameRange& window, std::vector<float>& distances);
  void Compare(const Bands& frame, const FrameRange& window);
  void Advance(LineMatch& match);

  const FilmFeatures& film_;
  const LineSpread& spread_;
  std::array<std::vector<float>, SoundTable::kBands>
      scaled_;                   ///< the film, in the coordinates in which distances are measured
  std::vector<float> anything_;  ///< how well each frame of the film fits speech in general
  std::vector<float> scores_;    ///< of a frame of the line in the window
  LineMatch fresh_;
};

}  // namespace cuewright

#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "voice/align_features.h"
#include "voice/align_spread.h"

namespace cuewright {

/// Frames `first` up to, not with, `behind`.
struct FrameRange {
  std::size_t first = 0;
  std::size_t behind = 0;

  std::size_t Count() const { return behind - first; }
};

/// What a line is worth that ends with each frame of a window, and the frame with which it then begins best.
struct LineMatch {
  std::vector<float> worth;
  std::vector<std::int32_t> start;  ///< counted in the window
};

/// Lays spoken lines over a film's sound, slower or faster as it fits. What is worth more than 0 sounds more like the
/// line than like anything else that is said, or than silence.
class LineMatcher {
 public:
  /// `lines` tell what speech in general sounds like.
  LineMatcher(const FilmFeatures& film, std::span<const SpokenFrames> lines, const LineSpread& spread);

  /// `taken` is called at each frame of the line, with all up to it in `match`.
  void Match(const SpokenFrames& line, const FrameRange& window, LineMatch& match,
             const std::function<void()>& taken = {});

  /// Teaches what the frames of a line are heard as that is said in a place.
  void Teach(const SpokenFrames& line, const FrameRange& place, LineSpread& spread);

 private:
  using Bands = FilmFeatures::Bands;

  /// How far a frame, drowned in what is around, lies from each frame of a window.
  void Measure(const Bands& frame, const FrameRange& window, std::vector<float>& distances);
  void Compare(const Bands& frame, const FrameRange& window);
  void Advance(LineMatch& match);

  const FilmFeatures& film_;
  const LineSpread& spread_;
  std::array<std::vector<float>, SoundTable::kBands> scaled_;  ///< the film, as distances are measured
  std::vector<float> anything_;  ///< how well each frame of the film fits speech in general
  std::vector<float> scores_;    ///< of a frame of the line in the window
  LineMatch fresh_;
};

}  // namespace cuewright

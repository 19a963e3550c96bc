#pragma once

#include <array>
#include <cstddef>

#include "voice/align_features.h"

namespace cuewright {

/// How what is heard of a line differs from what a synthesiser makes of it, frame by frame, in dB. At first that of
/// any two voices; that of a film's own voices and noise is learned from lines that were found.
class LineSpread {
 public:
  using Bands = FilmFeatures::Bands;

  LineSpread();

  /// Takes in a frame that was found: what is heard, and what it was taken for.
  void Learn(const Bands& heard, const Bands& spoken);
  /// Goes by what was learned from now on; by what any two voices have where that was little.
  void Settle();

  /// What is heard of a synthesiser's frame, but for noise.
  Bands Heard(const Bands& spoken) const;
  /// Coordinates in which squares of distances tell how unlike two frames are.
  Bands Scaled(const Bands& bands) const;

 private:
  using Square = std::array<Bands, SoundTable::kBands>;

  void Divide(const Square& spread);

  Bands shift_{};
  Square root_{};  ///< lower triangle whose square is the spread
  double count_ = 0;
  std::array<double, SoundTable::kBands> sums_{};
  std::array<std::array<double, SoundTable::kBands>, SoundTable::kBands> products_{};
};

}  // namespace cuewright

#pragma once

#include <array>
#include <cstddef>

#include "voice/align_features.h"

namespace cuewright {

/// How the sound of a line in a film differs from the synthesiser's, frame by frame, in dB. At first it is the
/// difference between any two voices; that of the film's own voices and noise is learned from lines that were found.
class LineSpread {
 public:
  using Bands = FilmFeatures::Bands;

  LineSpread();

  /// Learns from a frame of a line that was found: what is heard there, and what the synthesiser has.
  void Learn(const Bands& heard, const Bands& spoken);
  /// Uses what was learned from now on, and the difference of any two voices where little was learned.
  void Settle();

  /// How a synthesiser's frame would be heard in the film without noise.
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

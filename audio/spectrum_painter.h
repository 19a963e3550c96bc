#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "audio/fine_spectrum.h"
#include "audio/pixel_canvas.h"
#include "audio/wave_scale.h"
#include "sound/sound_table.h"

namespace cuewright {

/// Paints what a sound is made of: low sounds below, high ones above, the louder the brighter. Between the bands of the
/// table, and between its steps where pixels are shorter, colours go over smoothly. Columns of `FineSpectrum` go before
/// the table.
class SpectrumPainter {
 public:
  SpectrumPainter();

  /// `loudest` is the sample that is brightest.
  void Paint(const PixelCanvas& canvas, const RowBand& band, const WaveScale& scale, const SoundTable& table,
             const FineSpectrum& fine, std::int32_t loudest);

 private:
  static constexpr int kShades = 256;
  using Column = std::array<std::int16_t, SoundTable::kBands>;

  Column Measure(const WaveScale& scale, const SoundTable& table, int x) const;
  void MeasureLines(const WaveScale& scale, const SoundTable& table, const FineSpectrum& fine, int width);

  std::array<std::uint32_t, kShades> shades_;
  /// The loudness of each pixel of a row of `FineSpectrum`, row by row.
  std::vector<std::int16_t> lines_;
};

}  // namespace cuewright

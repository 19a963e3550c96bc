#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "audio/pixel_canvas.h"
#include "audio/wave_scale.h"
#include "sound/sound_table.h"

namespace cuewright {

/// Paints what a sound is made of: low sounds below, high ones above, the louder the brighter. Between the bands of the
/// table, and between its steps where pixels are finer, it is smooth.
class SpectrumPainter {
 public:
  SpectrumPainter();

  /// `loudest` is the sample that is brightest.
  void Paint(const PixelCanvas& canvas, const RowBand& band, const WaveScale& scale, const SoundTable& table,
             std::int32_t loudest);

 private:
  static constexpr int kShades = 256;
  using Column = std::array<std::int16_t, SoundTable::kBands>;

  Column Measure(const WaveScale& scale, const SoundTable& table, int x) const;

  std::array<std::uint32_t, kShades> shades_;
  std::vector<Column> columns_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>

#include "audio/wave_peaks.h"
#include "audio/wave_surface.h"

namespace cuewright {

/// How the peaks of a wave are shown: one column of 10 ms a pixel.
struct WaveView {
  std::int32_t scrollPos = 0;  ///< column at the picture's left edge
  std::int32_t height = 0;     ///< of the picture, taken at each repaint
  std::int32_t columns = 0;    ///< how far each paint runs: the width of the screen, taken at each repaint
  std::int32_t color = 0;
  std::int32_t tickColor = 0;  ///< of the columns of whole seconds
  std::int32_t backColor = 0;
  std::int32_t scale = 0;   ///< the sample that fills the height
  bool fullHeight = false;  ///< around the middle; else the maximum upward from the bottom

  /// Takes a colour and derives those of ticks and background.
  void SetColor(std::int32_t wanted);
  /// The colour of a column of the picture.
  std::int32_t ColumnColor(std::int32_t x) const;

  /// The lines of whole seconds.
  void DrawGrid(WaveSurface& surface) const;
  /// All columns of the picture from column `first` of the wave on. Run-time error 11 for a scale of 0.
  void DrawColumns(WaveSurface& surface, const WavePeaks& peaks, std::int32_t first) const;
};

}  // namespace cuewright

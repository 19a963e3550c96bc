#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "audio/board_captions.h"
#include "audio/pixel_canvas.h"
#include "audio/spectrum_painter.h"
#include "audio/wave_pyramid.h"
#include "audio/wave_scale.h"
#include "core/ms.h"

namespace cuewright {

/// What of the sound is shown.
enum class BoardLook : std::uint8_t { Wave, Spectrogram, Both };

/// The colours of the picture, 0xFFRRGGBB, after the two that the user may choose.
struct BoardColors {
  std::uint32_t wave = 0;
  std::uint32_t back = 0;

  /// Colours as the settings have them, 0x00BBGGRR.
  static BoardColors Of(std::int32_t wave, std::int32_t back);
};

/// Where the parts of the picture stand.
struct BoardBands {
  RowBand ruler;
  RowBand captions;
  RowBand sound;  ///< the wave, and below it the spectrogram
  RowBand wave;
  RowBand spectrum;

  static constexpr int kLane = 19;  ///< height of a row of captions
  static BoardBands For(int height, bool twoLanes, BoardLook look);
};

/// Everything that a picture of the wave shows but words.
struct BoardScene {
  const WaveScale& scale;
  const WavePyramid& peaks;
  const SoundTable& table;
  const FineSpectrum& fine;  ///< prepared for this picture
  const BoardCaptions& captions;
  BoardBands bands;
  BoardColors colors;
  std::int32_t loudest = 23000;  ///< the sample that fills the height
  bool bothHalves = false;       ///< the wave around its middle; else its upper half
  std::optional<CaptionTimes> stretch{};
  std::span<const Ms> shots{};
  std::vector<Ms> held{};    ///< the edges that keys move
  std::optional<Ms> snap{};  ///< the time that is snapped to
};

/// Time between two labels of the ruler for a scale, in ms.
Ms RulerStep(double msAPixel);

/// Paints pictures of the wave. What is painted costs what its size does, whatever the scale.
class BoardPainter {
 public:
  void Paint(const PixelCanvas& canvas, const BoardScene& scene);

 private:
  /// How a column of the wave is painted.
  struct Column {
    std::uint32_t fore = 0;
    std::uint32_t back = 0;
    int top = 0;
    int bottom = -1;
  };

  void Prepare(const PixelCanvas& canvas, const BoardScene& scene);
  void Measure(const BoardScene& scene);
  void PaintRuler(const PixelCanvas& canvas, const BoardScene& scene) const;
  void PaintBlocks(const PixelCanvas& canvas, const BoardScene& scene) const;
  void PaintWave(const PixelCanvas& canvas, const BoardScene& scene) const;
  void PaintMarks(const PixelCanvas& canvas, const BoardScene& scene) const;

  std::vector<Column> columns_;
  SpectrumPainter spectrum_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>

namespace cuewright {

/// A picture that is painted in pixels. Colours are 0x00BBGGRR; what lies outside the picture is left out.
class WaveSurface {
 public:
  virtual ~WaveSurface() = default;

  /// What the user sees of it, in pixels; the picture itself may be wider.
  virtual int InnerWidth() const = 0;
  virtual int InnerHeight() const = 0;

  /// Paints all of it in a colour; a picture with a scale of its own shows that instead.
  virtual void Clear(std::int32_t color) = 0;
  virtual void SetPixel(int x, int y, std::int32_t color) = 0;
  /// A line along a row or a column, both ends included.
  virtual void DrawLine(int x1, int y1, int x2, int y2, std::int32_t color) = 0;
};

/// The Audio bar in the window.
class AudioBarView {
 public:
  virtual ~AudioBarView() = default;

  virtual WaveSurface& Wave() = 0;
  virtual WaveSurface& Level() = 0;
  /// Width of the whole screen in pixels.
  virtual int ScreenWidth() const = 0;
  /// Left of the wave's picture in pixels of the window.
  virtual int WaveLeft() const = 0;
};

}  // namespace cuewright

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace cuewright {

/// A picture in memory, 0xFFRRGGBB a pixel.
struct PixelCanvas {
  std::uint32_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;  ///< pixels from a row to the next one
  int width = 0;
  int height = 0;

  /// A row of the picture.
  std::span<std::uint32_t> Row(int y) const { return std::span<std::uint32_t>(pixels + y * stride, width); }
};

/// A stretch of rows of a picture: from `top` up to, not with, `bottom`.
struct RowBand {
  int top = 0;
  int bottom = 0;

  int Height() const { return bottom - top; }
  bool Holds(int y) const { return y >= top && y < bottom; }
};

}  // namespace cuewright

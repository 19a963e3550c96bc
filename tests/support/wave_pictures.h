#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "audio/wave_surface.h"

namespace cuewright::testing {

/// A picture whose pixels can be asked.
class PixelSurface final : public WaveSurface {
 public:
  static constexpr std::int32_t kScale = -2;  ///< what `Clear` leaves on a picture with a scale of its own

  PixelSurface(int inner, int width, int height, bool hasScale)
      : inner_(inner), width_(width), height_(height), hasScale_(hasScale) {
    pixels_.assign(static_cast<std::size_t>(width * height), -1);
  }

  int InnerWidth() const override { return inner_; }
  int InnerHeight() const override { return height_; }
  void Clear(std::int32_t color) override {
    ++clears;
    pixels_.assign(pixels_.size(), hasScale_ ? kScale : color);
  }
  void SetPixel(int x, int y, std::int32_t color) override { Put(x, y, color); }
  void DrawLine(int x1, int y1, int x2, int y2, std::int32_t color) override {
    ++lines;
    for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x) {
      for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y) Put(x, y, color);
    }
  }
  std::int32_t At(int x, int y) const { return pixels_[static_cast<std::size_t>(y * width_ + x)]; }
  /// Pixels of a column that have the colour.
  int Count(int x, std::int32_t color) const {
    int count = 0;
    for (int y = 0; y < height_; ++y) count += At(x, y) == color ? 1 : 0;
    return count;
  }
  void SetInner(int width) { inner_ = width; }

  int clears = 0;
  int lines = 0;

 private:
  void Put(int x, int y, std::int32_t color) {
    if (x >= 0 && x < width_ && y >= 0 && y < height_) pixels_[static_cast<std::size_t>(y * width_ + x)] = color;
  }
  int inner_;
  int width_;
  int height_;
  bool hasScale_;
  std::vector<std::int32_t> pixels_;
};

/// An Audio bar of 400 pixels on a screen of 600.
struct PixelView final : AudioBarView {
  WaveSurface& Wave() override { return wave; }
  WaveSurface& Level() override { return level; }
  int ScreenWidth() const override { return 600; }
  int WaveLeft() const override { return 31; }

  PixelSurface wave{400, 601, 73, false};
  PixelSurface level{21, 21, 73, true};
};

}  // namespace cuewright::testing

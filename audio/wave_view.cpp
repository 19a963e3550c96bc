#include "audio/wave_view.h"

#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::int32_t kColumnsASecond = 100;
constexpr std::int32_t kGridColor = 0x808080;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kBlack = 0;
constexpr std::int32_t kTickStep = 80;
constexpr double kDarkest = 55;

template <class Change>
std::int32_t EachByte(std::int32_t color, Change change) {
  std::int32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) result |= change(color >> shift & 0xFF) << shift;
  return result;
}

}  // namespace

void WaveView::SetColor(std::int32_t wanted) {
  const std::int32_t sum = (wanted & 0xFF) + (wanted >> 8 & 0xFF) + (wanted >> 16 & 0xFF);
  const bool dark = sum / 3.0 <= kDarkest;
  backColor = dark ? kWhite : kBlack;
  tickColor = EachByte(wanted, [&](std::int32_t c) {
    if (dark) return c >= 255 - kTickStep ? 255 : c + kTickStep;
    return c <= kTickStep ? 0 : c - kTickStep;
  });
  color = wanted;
}

std::int32_t WaveView::ColumnColor(std::int32_t x) const {
  return (scrollPos % kColumnsASecond + x) % kColumnsASecond == 0 ? tickColor : color;
}

void WaveView::DrawGrid(WaveSurface& surface) const {
  for (std::int32_t x = kColumnsASecond - scrollPos % kColumnsASecond; x <= columns; x += kColumnsASecond) {
    surface.DrawLine(x, 0, x, height, kGridColor);
  }
}

void WaveView::DrawColumns(WaveSurface& surface, const WavePeaks& peaks, std::int32_t first) const {
  if (scale == 0) throw RuntimeError{11, u"Division by zero"};
  const std::int32_t half = height / 2;
  for (std::int32_t x = 0; x <= columns; ++x) {
    const std::int32_t entry = 2 * (x + first);
    const std::int32_t ink = ColumnColor(x);
    if (entry - 1 >= peaks.UpperBound()) {
      const std::int32_t y = fullHeight ? half : height - 1;
      surface.DrawLine(x, y, columns, y, ink);
      return;
    }
    const std::int32_t maximum = peaks.At(entry);
    if (fullHeight) {
      const std::int32_t minimum = peaks.At(entry + 1);
      const std::int32_t top = half - maximum * half / scale;
      const std::int32_t bottom = half - minimum * half / scale;
      if (top == bottom) {
        surface.SetPixel(x, top, ink);
      } else {
        surface.DrawLine(x, top, x, bottom, ink);
      }
      continue;
    }
    const std::int32_t y = height - maximum * height / scale;
    if (y == height) {
      surface.SetPixel(x, height - 1, ink);
    } else {
      surface.DrawLine(x, height, x, y, ink);
    }
  }
}

}  // namespace cuewright

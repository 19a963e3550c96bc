#include "audio/spectrum_painter.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

/// Steps of the table that are looked at for one pixel.
constexpr std::size_t kMostSteps = 12;
/// Half decibels from the darkest to the brightest.
constexpr int kRange = 100;
/// A full sine, in units of the table.
constexpr int kFull = 174;
constexpr double kFullSample = 32768;
constexpr int kFine = 256;  ///< parts between two bands

struct Stop {
  int at;
  int red, green, blue;
};
/// Dark blue by violet and orange to light yellow: lighter all the way, so that it can be told without its colours.
constexpr std::array<Stop, 5> kStops = {
    {{0, 4, 6, 24}, {70, 50, 20, 110}, {140, 170, 40, 100}, {205, 245, 140, 30}, {255, 255, 250, 200}}};

std::uint32_t ShadeOf(int value) {
  std::size_t next = 1;
  while (kStops[next].at < value) ++next;
  const Stop& a = kStops[next - 1];
  const Stop& b = kStops[next];
  const auto between = [&](int from, int to) -> std::uint32_t {
    return from + (to - from) * (value - a.at) / (b.at - a.at);
  };
  return 0xFF000000 | between(a.red, b.red) << 16 | between(a.green, b.green) << 8 | between(a.blue, b.blue);
}

}  // namespace

SpectrumPainter::SpectrumPainter() : shades_() {
  for (int i = 0; i < kShades; ++i) shades_[i] = ShadeOf(i);
}

SpectrumPainter::Column SpectrumPainter::Measure(const WaveScale& scale, const SoundTable& table, int x) const {
  Column column{};
  const double first = scale.MsOf(x) / SoundTable::kStepMs;
  const double last = scale.MsOf(x + 1) / SoundTable::kStepMs;
  const auto from = static_cast<std::size_t>(std::max(first, 0.0));
  if (from >= table.Steps()) return column;
  if (last - first < 1) {
    // The pixel is shorter than a step: its value lies between those of two steps.
    const SoundTable::Step& a = table.At(from);
    const SoundTable::Step& b = table.At(std::min(from + 1, table.Steps() - 1));
    const double part = first - static_cast<double>(from);
    for (std::size_t band = 0; band < column.size(); ++band) {
      column[band] = static_cast<std::int16_t>(std::lround(a[band] + (b[band] - a[band]) * part));
    }
    return column;
  }
  const std::size_t to = std::min(static_cast<std::size_t>(last), table.Steps());
  const std::size_t stride = std::max<std::size_t>((to - from) / kMostSteps, 1);
  int count = 0;
  std::array<int, SoundTable::kBands> sums{};
  for (std::size_t step = from; step < std::max(to, from + 1); step += stride, ++count) {
    for (std::size_t band = 0; band < sums.size(); ++band) sums[band] += table.At(step)[band];
  }
  for (std::size_t band = 0; band < sums.size(); ++band) column[band] = static_cast<std::int16_t>(sums[band] / count);
  return column;
}

void SpectrumPainter::MeasureLines(const WaveScale& scale, const SoundTable& table, const FineSpectrum& fine,
                                   int width) {
  constexpr int kRows = FineSpectrum::kRows;
  lines_.resize(width * kRows);
  for (int x = 0; x < width; ++x) {
    if (const FineSpectrum::Column* const column = fine.At(scale.MsOf(x))) {
      for (int row = 0; row < kRows; ++row) lines_[row * width + x] = (*column)[row];
      continue;
    }
    const Column column = Measure(scale, table, x);
    for (int row = 0; row < kRows; ++row) {
      const int place = row * (SoundTable::kBands - 1) * kFine / (kRows - 1);
      const int lower = std::min(place / kFine, SoundTable::kBands - 2);
      const int part = place - lower * kFine;
      lines_[row * width + x] =
          static_cast<std::int16_t>((column[lower] * (kFine - part) + column[lower + 1] * part) / kFine);
    }
  }
}

void SpectrumPainter::Paint(const PixelCanvas& canvas, const RowBand& band, const WaveScale& scale,
                            const SoundTable& table, const FineSpectrum& fine, std::int32_t loudest) {
  const int height = band.Height();
  if (height < 2) return;
  const std::size_t width = canvas.width;
  MeasureLines(scale, table, fine, canvas.width);
  constexpr double kUnitsATenfold = 40;  // of amplitude
  const double quieter = kUnitsATenfold * std::log10(kFullSample / std::max<double>(loudest, 1));
  const int brightest = kFull - static_cast<int>(quieter);
  for (int y = band.top; y < std::min(band.bottom, canvas.height); ++y) {
    // The middle of the lowest band is the lowest row.
    const int place = (band.bottom - 1 - y) * (FineSpectrum::kRows - 1) * kFine / (height - 1);
    const int lower = std::min(place / kFine, FineSpectrum::kRows - 2);
    const int part = place - lower * kFine;
    const std::int16_t* const below = &lines_[lower * width];
    const std::int16_t* const above = below + width;
    const auto row = canvas.Row(y);
    for (std::size_t x = 0; x < width; ++x) {
      const int value = (below[x] * (kFine - part) + above[x] * part) / kFine;
      const int shade = (value - brightest + kRange) * (kShades - 1) / kRange;
      row[x] = shades_[std::clamp(shade, 0, kShades - 1)];
    }
  }
}

}  // namespace cuewright

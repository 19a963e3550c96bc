#include "audio/board_painter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kRuler = 17;
constexpr std::uint32_t kBlock = 0xFF3A6EA5;
constexpr std::uint32_t kSelected = 0xFF4FA3FF;
constexpr std::uint32_t kFound = 0xFFE8A020;
constexpr std::uint32_t kOverlap = 0xFFE04040;
constexpr std::uint32_t kShot = 0xFFD060E0;
constexpr std::uint32_t kSnap = 0xFF60F060;
constexpr std::uint32_t kStretch = 0xFFB0B0B0;

/// A colour with so many hundredths of another.
std::uint32_t Mix(std::uint32_t color, std::uint32_t other, std::uint32_t hundredths) {
  std::uint32_t mixed = 0xFF000000;
  for (int shift = 0; shift < 24; shift += 8) {
    const std::uint32_t part = (color >> shift & 0xFF) * (100 - hundredths) + (other >> shift & 0xFF) * hundredths;
    mixed |= part / 100 << shift;
  }
  return mixed;
}

std::uint32_t RgbOf(std::int32_t bgr) {
  const std::uint32_t color = bgr;
  return 0xFF000000 | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

/// The colour that stands out from the background: white on black.
std::uint32_t Contrast(std::uint32_t back) { return back ^ 0xFFFFFF; }

bool Hatched(int x, int y) { return (x + y) % 6 < 2; }

BoardSpan CutTo(int width, int left, int right) { return {std::clamp(left, 0, width), std::clamp(right, 0, width)}; }

void Fill(const PixelCanvas& canvas, const RowBand& band, const BoardSpan& span, std::uint32_t color) {
  for (int y = band.top; y < std::min(band.bottom, canvas.height); ++y) {
    const auto row = canvas.Row(y);
    std::fill(row.begin() + span.left, row.begin() + span.right, color);
  }
}

void Hatch(const PixelCanvas& canvas, const RowBand& band, const BoardSpan& span, std::uint32_t color) {
  for (int y = band.top; y < std::min(band.bottom, canvas.height); ++y) {
    const auto row = canvas.Row(y);
    for (int x = span.left; x < span.right; ++x) {
      if (Hatched(x, y)) row[x] = color;
    }
  }
}

void DrawColumn(const PixelCanvas& canvas, const RowBand& band, int x, std::uint32_t color, int dash = 0) {
  if (x < 0 || x >= canvas.width) return;
  for (int y = band.top; y < std::min(band.bottom, canvas.height); ++y) {
    if (dash == 0 || y / dash % 2 == 0) canvas.Row(y)[x] = color;
  }
}

int PixelOf(const WaveScale& scale, Ms ms) {
  return static_cast<int>(std::clamp(std::floor(scale.XOf(ms)), -1.0, scale.Width() + 1.0));
}

}  // namespace

BoardColors BoardColors::Of(std::int32_t wave, std::int32_t back) { return {RgbOf(wave), RgbOf(back)}; }

BoardBands BoardBands::For(int height, bool twoLanes, BoardLook look) {
  BoardBands bands;
  bands.ruler = {0, std::min(kRuler, height)};
  bands.captions = {bands.ruler.bottom, std::min(bands.ruler.bottom + (twoLanes ? 2 : 1) * kLane, height)};
  bands.sound = {bands.captions.bottom, height};
  bands.wave = bands.spectrum = bands.sound;
  const int middle = (bands.sound.top + bands.sound.bottom) / 2;
  if (look == BoardLook::Both) bands.wave.bottom = bands.spectrum.top = middle;
  if (look == BoardLook::Wave) bands.spectrum.top = bands.spectrum.bottom;
  if (look == BoardLook::Spectrogram) bands.wave.bottom = bands.wave.top;
  return bands;
}

Ms RulerStep(double msAPixel) {
  constexpr double kLeastPixels = 90;
  constexpr std::array<Ms, 16> kSteps = {50,    100,   200,   500,    1000,   2000,   5000,    10000,
                                         15000, 30000, 60000, 120000, 300000, 600000, 1800000, 3600000};
  const auto* const step = std::ranges::find_if(kSteps, [&](Ms ms) { return ms.Count() / msAPixel >= kLeastPixels; });
  return step == kSteps.end() ? kSteps.back() : *step;
}

void BoardPainter::Paint(const PixelCanvas& canvas, const BoardScene& scene) {
  columns_.assign(std::max(canvas.width, 0), {});
  Prepare(canvas, scene);
  Measure(scene);
  PaintRuler(canvas, scene);
  PaintBlocks(canvas, scene);
  PaintWave(canvas, scene);
  spectrum_.Paint(canvas, scene.bands.spectrum, scene.scale, scene.table, scene.fine, scene.loudest);
  PaintMarks(canvas, scene);
}

void BoardPainter::Prepare(const PixelCanvas& canvas, const BoardScene& scene) {
  const BoardColors& colors = scene.colors;
  for (Column& column : columns_) column.fore = colors.wave, column.back = colors.back;
  const std::uint32_t inside = Mix(colors.back, kBlock, 45);
  const std::uint32_t chosen = Mix(colors.back, kSelected, 55);
  const auto tint = [&](const BoardSpan& span, std::uint32_t color) {
    for (int x = span.left; x < span.right; ++x) columns_[x].back = color;
  };
  for (const BoardBlock& block : scene.captions.Blocks()) {
    const BoardSpan span = CutTo(canvas.width, block.left, block.right);
    // Of several in one pixel the selected one is seen.
    for (int x = span.left; x < span.right; ++x) {
      std::uint32_t& back = columns_[x].back;
      if (block.selected || back != chosen) back = block.selected ? chosen : inside;
    }
  }
  if (scene.stretch) {
    tint(CutTo(canvas.width, PixelOf(scene.scale, scene.stretch->start), PixelOf(scene.scale, scene.stretch->end)),
         Mix(colors.back, kStretch, 45));
  }
}

void BoardPainter::Measure(const BoardScene& scene) {
  const RowBand& band = scene.bands.wave;
  if (band.Height() < 2) return;
  const int half = band.Height() / 2;
  const int middle = band.top + half;
  const auto height = [&](int sample, int room) {
    return std::clamp(sample * room / std::max(scene.loudest, 1), -room, room);
  };
  Ms from = Ms::Nearest(std::floor(scene.scale.Left()));
  for (int x = 0; x < CountOf(columns_); ++x) {
    const Ms next = Ms::Nearest(std::floor(scene.scale.MsOf(x + 1)));
    const Ms to = std::max(next, from + 1);
    if (from >= scene.peaks.Length()) return;
    const WavePeak peak = scene.peaks.Of(from, to);
    Column& column = columns_[x];
    if (scene.bothHalves) {
      column.top = middle - height(peak.maximum, half);
      column.bottom = std::min(middle - height(peak.minimum, half), band.bottom - 1);
    } else {
      column.bottom = band.bottom - 1;
      column.top = column.bottom - std::max(height(peak.maximum, band.Height() - 1), 0);
    }
    from = next;
  }
}

void BoardPainter::PaintRuler(const PixelCanvas& canvas, const BoardScene& scene) const {
  const std::uint32_t ink = Mix(scene.colors.back, Contrast(scene.colors.back), 55);
  Fill(canvas, scene.bands.ruler, {0, canvas.width}, Mix(scene.colors.back, Contrast(scene.colors.back), 14));
  Fill(canvas, scene.bands.captions, {0, canvas.width}, Mix(scene.colors.back, Contrast(scene.colors.back), 7));
  constexpr int kParts = 5;
  const double part = RulerStep(scene.scale.MsAPixel()).Count() / double{kParts};
  for (auto i = static_cast<int>(scene.scale.Left() / part); i * part < scene.scale.Right(); ++i) {
    const RowBand& ruler = scene.bands.ruler;
    const int height = i % kParts == 0 ? ruler.Height() : ruler.Height() / 4;
    DrawColumn(canvas, {ruler.bottom - height, ruler.bottom}, PixelOf(scene.scale, static_cast<std::int32_t>(i * part)),
               ink);
  }
}

void BoardPainter::PaintBlocks(const PixelCanvas& canvas, const BoardScene& scene) const {
  const RowBand& band = scene.bands.captions;
  for (const BoardBlock& block : scene.captions.Blocks()) {
    const int top = band.top + (block.lower ? BoardBands::kLane : 0);
    const RowBand lane{top + 1, std::min(top + BoardBands::kLane - 1, band.bottom)};
    const BoardSpan span = CutTo(canvas.width, block.left, block.right);
    const std::uint32_t color = block.selected ? kSelected : kBlock;
    Fill(canvas, lane, span, color);
    if (block.found) {
      // A stripe below the words, hatched, so that it isn't told by its colour alone.
      Hatch(canvas, {lane.bottom - 4, lane.bottom}, span, kFound);
      Fill(canvas, {lane.top, lane.top + 2}, span, kFound);
    }
    if (block.Width() < 3) continue;
    DrawColumn(canvas, lane, block.left, Mix(color, 0xFFFFFFFF, 60));
    DrawColumn(canvas, lane, block.right - 1, Mix(color, 0xFF000000, 50));
  }
}

void BoardPainter::PaintWave(const PixelCanvas& canvas, const BoardScene& scene) const {
  const RowBand& band = scene.bands.wave;
  for (int y = band.top; y < std::min(band.bottom, canvas.height); ++y) {
    std::uint32_t* const row = canvas.Row(y).data();
    for (std::size_t x = 0; x < columns_.size(); ++x) {
      const Column& column = columns_[x];
      row[x] = y >= column.top && y <= column.bottom ? column.fore : column.back;
    }
  }
}

void BoardPainter::PaintMarks(const PixelCanvas& canvas, const BoardScene& scene) const {
  const RowBand& sound = scene.bands.sound;
  for (const BoardSpan& span : scene.captions.Overlaps()) {
    Hatch(canvas, sound, CutTo(canvas.width, span.left, span.right), kOverlap);
  }
  for (const Ms shot : scene.shots) {
    if (scene.scale.Shows(shot)) DrawColumn(canvas, sound, PixelOf(scene.scale, shot), kShot, 4);
  }
  for (const BoardBlock& block : scene.captions.Blocks()) {
    if (block.Width() < 3) continue;
    const std::uint32_t color = block.selected ? kSelected : Mix(kBlock, Contrast(scene.colors.back), 30);
    DrawColumn(canvas, sound, block.left, color);
    DrawColumn(canvas, sound, block.right - 1, color);
  }
  if (scene.stretch) {
    DrawColumn(canvas, sound, PixelOf(scene.scale, scene.stretch->start), Contrast(scene.colors.back));
    DrawColumn(canvas, sound, PixelOf(scene.scale, scene.stretch->end), Contrast(scene.colors.back));
  }
  for (const Ms held : scene.held) {
    const int x = PixelOf(scene.scale, held);
    for (const int beside : {x - 1, x, x + 1}) DrawColumn(canvas, sound, beside, Contrast(scene.colors.back));
  }
  if (scene.snap) {
    const int x = PixelOf(scene.scale, *scene.snap);
    const RowBand all{scene.bands.captions.top, sound.bottom};
    DrawColumn(canvas, all, x, kSnap);
    DrawColumn(canvas, all, x - 1, kSnap, 3);
    DrawColumn(canvas, all, x + 1, kSnap, 3);
  }
}

}  // namespace cuewright

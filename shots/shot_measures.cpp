#include "shots/shot_measures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <span>

namespace cuewright {
namespace {

using Shape = ShotMeasurer::Shape;
constexpr std::size_t kShapeRow = ShotMeasurer::kShapeRow;

constexpr int kUnit = 32;          ///< of a shape: its contrast
constexpr int kMiddle = 128;       ///< of a shape: its mean
constexpr double kNoise = 3;       ///< levels of luma that a still picture may differ by
constexpr std::size_t kBins = 32;  ///< of a plane's histogram
constexpr int kLevelsABin = 8;
constexpr float kChromaWeight = 2;
constexpr std::size_t kPicturesBefore = 6;
constexpr std::size_t kPicturesBehind = 5;
constexpr float kLeastShape = 0.08F;
constexpr float kLeastColours = 6;

void TakeShape(const Thumbnail& thumbnail, Shape& shape) {
  const std::uint8_t* luma = thumbnail.Luma();
  std::int64_t sum = 0;
  std::int64_t squares = 0;
  for (std::size_t i = 0; i < Thumbnail::kLuma; ++i) {
    sum += luma[i];
    squares += std::int64_t{luma[i]} * luma[i];
  }
  const double mean = static_cast<double>(sum) / Thumbnail::kLuma;
  const double variance = static_cast<double>(squares) / Thumbnail::kLuma - mean * mean;
  const double scale = kUnit / (std::sqrt(std::max(variance, 0.0)) + kNoise);
  std::array<std::uint8_t, 256> shapeOf;
  for (std::size_t level = 0; level < shapeOf.size(); ++level) {
    const double value = kMiddle + (static_cast<double>(level) - mean) * scale;
    shapeOf[level] = static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
  }
  for (std::size_t y = 0; y < Thumbnail::kHeight; ++y) {
    std::uint8_t* row = shape.data() + y * kShapeRow;
    for (std::size_t x = 0; x < Thumbnail::kWidth; ++x) row[x + 1] = shapeOf[*luma++];
    row[0] = row[1];
    row[Thumbnail::kWidth + 1] = row[Thumbnail::kWidth];
  }
}

void TakeLevels(std::span<const std::uint8_t> plane, float* cumulated) {
  std::array<int, kBins> counts{};
  for (const std::uint8_t level : plane) ++counts[level / kLevelsABin];
  int below = 0;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    below += counts[bin];
    cumulated[bin] = static_cast<float>(below) / static_cast<float>(plane.size());
  }
}

/// Mean difference of two shapes when one of them is moved by up to a sample.
float ShapeChange(const Shape& one, const Shape& other) {
  constexpr std::size_t kWidth = Thumbnail::kWidth;
  constexpr std::size_t kHeight = Thumbnail::kHeight;
  std::int32_t least = std::numeric_limits<std::int32_t>::max();
  for (std::size_t down = 0; down <= 2; ++down) {
    for (std::size_t right = 0; right <= 2; ++right) {
      std::int32_t sum = 0;
      for (std::size_t y = 1; y < kHeight - 1; ++y) {
        const std::uint8_t* a = one.data() + y * kShapeRow + 1;
        const std::uint8_t* b = other.data() + (y + down - 1) * kShapeRow + right;
        for (std::size_t x = 0; x < kWidth; ++x) sum += std::abs(a[x] - b[x]);
      }
      least = std::min(least, sum);
    }
  }
  return static_cast<float>(least) / (kUnit * kWidth * (kHeight - 2));
}

float ColourChange(const std::array<float, 3 * kBins>& one, const std::array<float, 3 * kBins>& other) {
  float moved = 0;
  for (std::size_t i = 0; i < one.size(); ++i) {
    moved += std::abs(one[i] - other[i]) * (i < kBins ? 1.0F : kChromaWeight);
  }
  return moved * kLevelsABin;
}

}  // namespace

ShotMeasurer::ShotMeasurer() : pictures_(kKept) {}

void ShotMeasurer::Add(const Thumbnail& thumbnail, std::int64_t us) {
  const std::size_t number = measures_.size();
  Picture& picture = pictures_[number % kKept];
  TakeShape(thumbnail, picture.shape);
  TakeLevels({thumbnail.Luma(), Thumbnail::kLuma}, picture.levels.data());
  TakeLevels({thumbnail.Blue(), Thumbnail::kChroma}, picture.levels.data() + kBins);
  TakeLevels({thumbnail.Red(), Thumbnail::kChroma}, picture.levels.data() + 2 * kBins);
  measures_.push_back({});
  measures_.back().us = us;
  if (number > 0) {
    measures_.back().step = ShapeChange(At(number - 1).shape, picture.shape);
    measures_.back().colourStep = ColourChange(At(number - 1).levels, picture.levels);
  }
  if (number >= kPicturesBehind + 1) MeasureBreak(number - kPicturesBehind, number);
  fades_.Add(thumbnail, measures_);
}

void ShotMeasurer::Finish() {
  const std::size_t count = measures_.size();
  for (std::size_t behind = kPicturesBehind; behind > 0; --behind) {
    if (count > behind) MeasureBreak(count - behind, count - 1);
  }
  fades_.Finish(measures_);
}

void ShotMeasurer::MeasureBreak(std::size_t picture, std::size_t last) {
  float shape = measures_[picture].step;
  float colours = measures_[picture].colourStep;
  // Nothing that is less is looked at; most pictures of a film are like the one before.
  if (shape < kLeastShape && colours < kLeastColours) return;
  for (std::size_t before = 1; before <= kPicturesBefore && before <= picture; ++before) {
    for (std::size_t behind = picture; behind <= last; ++behind) {
      const Picture& a = At(picture - before);
      const Picture& b = At(behind);
      shape = std::min(shape, ShapeChange(a.shape, b.shape));
      colours = std::min(colours, ColourChange(a.levels, b.levels));
    }
  }
  measures_[picture].break_ = shape;
  measures_[picture].colourBreak = colours;
}

}  // namespace cuewright

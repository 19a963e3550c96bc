#include "shots/shot_measures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include "core/counting.h"
#include "shots/cut_strength.h"

namespace cuewright {
namespace {

using Shape = ShotMeasurer::Shape;
constexpr std::size_t kShapeRow = ShotMeasurer::kShapeRow;

constexpr int kUnit = 32;          ///< of a shape: its contrast
constexpr int kMiddle = 128;       ///< of a shape: its mean
constexpr double kNoise = 5;       ///< levels of luma that a still picture may differ by
constexpr std::size_t kBins = 32;  ///< of a plane's histogram
constexpr int kLevelsABin = 8;
constexpr int kLevelUnit = 16000;  ///< of a cumulated histogram: all samples of the plane
constexpr int kChromaWeight = 2;
constexpr float kMostShape = 255.0F / kUnit;
constexpr std::size_t kPicturesBefore = 6;
constexpr std::size_t kPicturesBehind = 5;

void TakeShape(const Thumbnail& thumbnail, Shape& shape) {
  const std::uint8_t* luma = thumbnail.Luma();
  std::int32_t sum = 0;
  std::int32_t squares = 0;
  for (std::size_t i = 0; i < Thumbnail::kLuma; ++i) {
    sum += luma[i];
    squares += luma[i] * luma[i];
  }
  constexpr double kSamples = Thumbnail::kLuma;
  const double mean = sum / kSamples;
  const double variance = squares / kSamples - mean * mean;
  const double scale = kUnit / (std::sqrt(std::max(variance, 0.0)) + kNoise);
  std::array<std::uint8_t, 256> shapeOf;
  for (int level = 0; level < CountOf(shapeOf); ++level) {
    const double value = kMiddle + (level - mean) * scale;
    shapeOf[level] = static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
  }
  for (std::size_t y = 0; y < Thumbnail::kHeight; ++y) {
    std::uint8_t* row = shape.data() + y * kShapeRow;
    for (std::size_t x = 0; x < Thumbnail::kWidth; ++x) row[x + 1] = shapeOf[*luma++];
    row[0] = row[1];
    row[Thumbnail::kWidth + 1] = row[Thumbnail::kWidth];
  }
}

/// A level counts in the two bins that it lies between, or one level more would move all of a plain colour by a bin.
void TakeLevels(std::span<const std::uint8_t> plane, int weight, std::int16_t* cumulated) {
  std::array<int, 256> counts{};
  for (const std::uint8_t level : plane) ++counts[level];
  std::array<int, kBins + 1> bins{};
  for (int level = 0; level < CountOf(counts); ++level) {
    const int part = level % kLevelsABin;
    bins[level / kLevelsABin] += counts[level] * (kLevelsABin - part);
    bins[level / kLevelsABin + 1] += counts[level] * part;
  }
  const float unit = static_cast<float>(kLevelUnit * weight) / static_cast<float>(kLevelsABin * plane.size());
  int below = 0;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    below += bins[bin];
    cumulated[bin] = static_cast<std::int16_t>(static_cast<float>(below) * unit);
  }
}

/// Mean difference of two shapes when one of them is moved by up to a sample; `most` when it is no less.
float ShapeChange(const Shape& one, const Shape& other, float most) {
  constexpr std::size_t kWidth = Thumbnail::kWidth;
  constexpr std::size_t kHeight = Thumbnail::kHeight;
  constexpr float kWhole = kUnit * kWidth * (kHeight - 2);
  const auto limit = static_cast<std::int32_t>(std::min(most, kMostShape) * kWhole);
  std::int32_t least = limit;
  for (std::size_t down = 0; down <= 2; ++down) {
    for (std::size_t right = 0; right <= 2; ++right) {
      std::int32_t sum = 0;
      for (std::size_t y = 1; y < kHeight - 1 && sum < least; ++y) {
        const std::uint8_t* a = one.data() + y * kShapeRow + 1;
        const std::uint8_t* b = other.data() + (y + down - 1) * kShapeRow + right;
        for (std::size_t x = 0; x < kWidth; ++x) sum += std::abs(a[x] - b[x]);
      }
      least = std::min(least, sum);
    }
  }
  return least < limit ? static_cast<float>(least) / kWhole : most;
}

float ColourChange(const ShotMeasurer::Levels& one, const ShotMeasurer::Levels& other) {
  std::int32_t moved = 0;
  for (std::size_t i = 0; i < one.size(); ++i) moved += std::abs(one[i] - other[i]);
  return static_cast<float>(moved * kLevelsABin) / kLevelUnit;
}

}  // namespace

ShotMeasurer::ShotMeasurer() : pictures_(kKept) {}

void ShotMeasurer::Add(const Thumbnail& thumbnail, std::int64_t us) {
  const std::size_t number = measures_.size();
  Picture& picture = pictures_[number % kKept];
  TakeShape(thumbnail, picture.shape);
  TakeLevels({thumbnail.Luma(), Thumbnail::kLuma}, 1, picture.levels.data());
  TakeLevels({thumbnail.Blue(), Thumbnail::kChroma}, kChromaWeight, picture.levels.data() + kBins);
  TakeLevels({thumbnail.Red(), Thumbnail::kChroma}, kChromaWeight, picture.levels.data() + 2 * kBins);
  measures_.push_back({});
  measures_.back().us = us;
  if (number > 0) {
    measures_.back().step = ShapeChange(At(number - 1).shape, picture.shape, kMostShape);
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

bool ShotMeasurer::MayBeCut(std::size_t picture) const {
  // What is usual around it is no less than that, whatever follows.
  const auto usual = [&](float PictureMeasure::*step) {
    const std::size_t end = std::min(picture + 1 + kPicturesBehind, measures_.size());
    return std::max(UsualOf(measures_, picture > kAround ? picture - kAround : 1, picture, step).middle,
                    UsualOf(measures_, picture + 1, end, step).middle);
  };
  const PictureMeasure& measure = measures_[picture];
  if (StrengthOf(measure.step, 0, measure.colourStep, 0) * kMostSensitivity < 1) return false;
  return StrengthOf(measure.step, usual(&PictureMeasure::step), measure.colourStep,
                    usual(&PictureMeasure::colourStep)) *
             kMostSensitivity >=
         1;
}

void ShotMeasurer::MeasureBreak(std::size_t picture, std::size_t last) {
  if (!MayBeCut(picture)) return;
  float shape = measures_[picture].step;
  float colours = measures_[picture].colourStep;
  for (std::size_t before = 1; before <= kPicturesBefore && before <= picture; ++before) {
    for (std::size_t behind = picture; behind <= last; ++behind) {
      const Picture& a = At(picture - before);
      const Picture& b = At(behind);
      shape = ShapeChange(a.shape, b.shape, shape);
      colours = std::min(colours, ColourChange(a.levels, b.levels));
    }
  }
  measures_[picture].break_ = shape;
  measures_[picture].colourBreak = colours;
}

}  // namespace cuewright

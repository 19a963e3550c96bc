#include "shots/shot_measures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <span>

namespace cuewright {
namespace {

constexpr int kUnit = 64;     ///< of a shape: its contrast
constexpr double kNoise = 3;  ///< levels of luma that a still picture may differ by
constexpr int kLargest = 4 * kUnit;
constexpr std::size_t kBins = 32;  ///< of a plane's histogram
constexpr int kLevelsABin = 8;
constexpr float kChromaWeight = 2;
constexpr std::size_t kPicturesBefore = 4;
constexpr std::size_t kPicturesBehind = 3;
constexpr float kLeastShape = 0.08F;
constexpr float kLeastColours = 6;
constexpr std::array<std::size_t, 5> kSpans = {8, 12, 20, 32, 48};

using Shape = std::array<std::int16_t, Thumbnail::kLuma>;

/// Luma without its mean, in units of its contrast.
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
  for (std::size_t i = 0; i < Thumbnail::kLuma; ++i) {
    const double value = (luma[i] - mean) * scale;
    shape[i] = static_cast<std::int16_t>(std::clamp(value, -double{kLargest}, double{kLargest}));
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

/// Mean difference of two shapes when one of them is moved by up to a pixel.
float ShapeChange(const Shape& one, const Shape& other) {
  constexpr int kWidth = Thumbnail::kWidth;
  constexpr int kHeight = Thumbnail::kHeight;
  std::int32_t least = std::numeric_limits<std::int32_t>::max();
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      std::int32_t sum = 0;
      for (int y = 1; y < kHeight - 1; ++y) {
        const std::int16_t* a = one.data() + y * kWidth;
        const std::int16_t* b = other.data() + (y + dy) * kWidth + dx;
        for (int x = 1; x < kWidth - 1; ++x) sum += std::abs(a[x] - b[x]);
      }
      least = std::min(least, sum);
    }
  }
  return static_cast<float>(least) / (kUnit * (kWidth - 2) * (kHeight - 2));
}

float ColourChange(const std::array<float, 3 * kBins>& one, const std::array<float, 3 * kBins>& other) {
  float moved = 0;
  for (std::size_t i = 0; i < one.size(); ++i) {
    moved += std::abs(one[i] - other[i]) * (i < kBins ? 1.0F : kChromaWeight);
  }
  return moved * kLevelsABin;
}

/// How a picture lies between two others.
struct Mixture {
  double part = 0;  ///< of the first one, by least squares
  double rest = 0;  ///< what that leaves over, measured by the distance between the two
};

Mixture MixtureOf(const Thumbnail& from, const Thumbnail& to, const Thumbnail& between) {
  std::int64_t distance = 0;
  std::int64_t along = 0;
  std::int64_t squares = 0;
  const auto add = [&](std::size_t first, std::size_t end) {
    std::int32_t way = 0, step = 0, both = 0;
    for (std::size_t i = first; i < end; ++i) {
      const std::int32_t whole = from.bytes[i] - to.bytes[i];
      const std::int32_t part = between.bytes[i] - to.bytes[i];
      way += whole * whole;
      both += whole * part;
      step += part * part;
    }
    distance += way;
    along += both;
    squares += step;
  };
  add(0, Thumbnail::kLuma);
  add(Thumbnail::kLuma, Thumbnail::kBytes);
  const double whole = static_cast<double>(distance) + kNoise * kNoise * Thumbnail::kBytes;
  Mixture mixture;
  mixture.part = static_cast<double>(along) / whole;
  mixture.rest =
      std::sqrt(std::max(static_cast<double>(squares) - mixture.part * static_cast<double>(along), 0.0) / whole);
  return mixture;
}

}  // namespace

ShotMeasurer::ShotMeasurer() : pictures_(kKept) {}

void ShotMeasurer::Add(const Thumbnail& thumbnail, std::int64_t us) {
  const std::size_t number = measures_.size();
  Picture& picture = pictures_[number % kKept];
  picture.thumbnail = thumbnail;
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
  for (const std::size_t span : kSpans) {
    if (number >= span) MeasureMix(number, span);
  }
}

void ShotMeasurer::Finish() {
  const std::size_t count = measures_.size();
  for (std::size_t behind = kPicturesBehind; behind > 0; --behind) {
    if (count > behind) MeasureBreak(count - behind, count - 1);
  }
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

/// Looks whether the pictures between the last one and that `span` before it go over from one to the other.
void ShotMeasurer::MeasureMix(std::size_t picture, std::size_t span) {
  constexpr float kOther = 0.4F;  // shapes this far apart are different pictures
  constexpr float kOtherColours = 30;
  const Picture& from = At(picture - span);
  const Picture& to = At(picture);
  // A light that is turned up shows the same shape all the time.
  const bool other = ShapeChange(from.shape, to.shape) > kOther || ColourChange(from.levels, to.levels) > kOtherColours;
  if (!other) return;
  constexpr double kLeastStep = 0.06;
  constexpr float kLeastMix = 0.2F;
  double before = 1;
  double rest = 0;
  for (const std::size_t quarter : {1, 2, 3}) {
    const Mixture mixture = MixtureOf(from.thumbnail, to.thumbnail, At(picture - span + span * quarter / 4).thumbnail);
    if (mixture.part > before - kLeastStep) return;
    before = mixture.part;
    rest = std::max(rest, mixture.rest);
  }
  if (before < kLeastStep) return;
  PictureMeasure& middle = measures_[picture - span / 2];
  const auto mix = static_cast<float>(1 - 2 * rest);
  middle.mix = std::max(middle.mix, mix);
  if (mix > kLeastMix) middle.span = std::max(middle.span, static_cast<std::int32_t>(span));
}

}  // namespace cuewright

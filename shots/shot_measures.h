#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "shots/fade_measures.h"
#include "shots/picture_measure.h"
#include "shots/thumbnail.h"

namespace cuewright {

/// Measures a film's pictures as they come.
class ShotMeasurer {
 public:
  /// Luma without its mean, in units of its contrast. Each row repeats its first and its last sample, so that it can
  /// be compared with one that is moved by a sample.
  static constexpr std::size_t kShapeRow = Thumbnail::kWidth + 2;
  using Shape = std::array<std::uint8_t, kShapeRow * Thumbnail::kHeight>;

  /// Cumulated histograms of the three planes, those of chroma with their weight.
  using Levels = std::array<std::int16_t, 96>;

  ShotMeasurer();

  void Add(const Thumbnail& thumbnail, std::int64_t us);
  /// Measures what waited for pictures that don't come any more. `Add` isn't called after this.
  void Finish();

  const std::vector<PictureMeasure>& Measures() const { return measures_; }

 private:
  static constexpr std::size_t kKept = 16;  ///< pictures that are held; a power of two

  struct Picture {
    Shape shape;
    Levels levels;
  };

  const Picture& At(std::size_t picture) const { return pictures_[picture % kKept]; }
  /// False when a picture's changes are no cut at any sensitivity, however it differs from those around.
  bool MayBeCut(std::size_t picture) const;
  void MeasureBreak(std::size_t picture, std::size_t last);

  std::vector<Picture> pictures_;
  std::vector<PictureMeasure> measures_;
  FadeMeasurer fades_;
};

}  // namespace cuewright

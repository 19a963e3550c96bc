#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "shots/thumbnail.h"

namespace cuewright {

/// What is measured at a picture of a film. Shots are decided from these alone, so that another sensitivity needs no
/// second reading. Shapes are compared without regard to brightness and contrast: 0 is the same, about 1 is another
/// picture. Colours are compared by how far the levels of one have to be moved to get the other.
struct PictureMeasure {
  std::int64_t us = 0;    ///< presentation time in microseconds
  float step = 0;         ///< shape, against the picture before
  float break_ = 0;       ///< the least change of shape between the pictures just before and those from here on
  float colourStep = 0;   ///< colours, against the picture before
  float colourBreak = 0;  ///< the least change of colours between the same pictures
  float mix = 0;          ///< how well this picture is a mixture of two others, 0 to 1
  std::int32_t span =
      0;  ///< pictures from the one to the other, where they are furthest apart; this one is in the middle
};

/// Measures a film's pictures as they come.
class ShotMeasurer {
 public:
  ShotMeasurer();

  void Add(const Thumbnail& thumbnail, std::int64_t us);
  /// Measures what waited for pictures that don't come any more. `Add` isn't called after this.
  void Finish();

  const std::vector<PictureMeasure>& Measures() const { return measures_; }

 private:
  static constexpr std::size_t kKept = 64;  ///< pictures that are held; a power of two

  struct Picture {
    Thumbnail thumbnail;
    std::array<std::int16_t, Thumbnail::kLuma> shape;
    std::array<float, 96> levels;  ///< cumulated histograms of the three planes
  };

  const Picture& At(std::size_t picture) const { return pictures_[picture % kKept]; }
  void MeasureBreak(std::size_t picture, std::size_t last);
  void MeasureMix(std::size_t picture, std::size_t span);

  std::vector<Picture> pictures_;
  std::vector<PictureMeasure> measures_;
};

}  // namespace cuewright

#pragma once

#include <cstddef>
#include <vector>

#include "shots/picture_measure.h"

namespace cuewright {

/// Pictures on each side whose usual change a cut has to exceed.
constexpr std::size_t kAround = 6;
/// The greatest sensitivity that what is measured is enough for.
constexpr float kMostSensitivity = 4;

/// Pictures on each side that are looked at for changes which come again and again with pictures between them that
/// repeat, as where a film shows fewer pictures than it has.
constexpr std::size_t kAroundRepeated = 12;

/// The changes at some pictures: the middle one and the second largest one.
struct Usual {
  float middle = 0;
  float large = 0;
};

/// The usual of a change at the pictures from `first` up to `end`, of which there are `kAroundRepeated` at most.
Usual UsualOf(const std::vector<PictureMeasure>& measures, std::size_t first, std::size_t end,
              float PictureMeasure::*change);

/// How much changes of shape and of colours stand out of what is usual around them; 1 is just enough.
float StrengthOf(float shape, float usualShape, float colours, float usualColours);

}  // namespace cuewright

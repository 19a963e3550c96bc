#pragma once

#include <cstdint>
#include <vector>

#include "shots/shot_measures.h"

#include "core/ms.h"

namespace cuewright {

enum class ShotKind : std::uint8_t { Cut, Fade };

/// A change of shot: the first picture of the new one, or the middle of a fade.
struct Shot {
  std::int32_t frame = 0;  ///< counted from 0
  std::int64_t us = 0;     ///< presentation time of that picture, in microseconds
  ShotKind kind = ShotKind::Cut;

  Ms At() const { return Ms::OfPicture(us); }
};

/// The changes of shot in what was measured, in order. A sensitivity of 1 is the usual one, 2 asks for half as much.
std::vector<Shot> FindShots(const std::vector<PictureMeasure>& measures, double sensitivity = 1);

}  // namespace cuewright

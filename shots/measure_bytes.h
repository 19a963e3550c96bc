#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shots/shot_measures.h"

namespace cuewright {

/// What was measured of a film as bytes to be kept, 32 a picture.
std::string BytesOf(const std::vector<PictureMeasure>& measures);
/// False, with nothing measured, when the bytes aren't those of `BytesOf`, whole.
bool ReadMeasures(std::string_view bytes, std::vector<PictureMeasure>& measures);

}  // namespace cuewright

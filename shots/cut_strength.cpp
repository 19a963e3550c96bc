#include "shots/cut_strength.h"

#include <algorithm>
#include <array>

namespace cuewright {

Usual UsualOf(const std::vector<PictureMeasure>& measures, std::size_t first, std::size_t end,
              float PictureMeasure::*change) {
  std::array<float, kAroundRepeated> values{};
  std::size_t count = 0;
  for (std::size_t i = first; i < end; ++i) values[count++] = measures[i].*change;
  if (count == 0) return {};
  std::sort(values.begin(), values.begin() + count);
  return {values[count / 2], values[count > 1 ? count - 2 : 0]};
}

float StrengthOf(float shape, float usualShape, float colours, float usualColours) {
  const float byShape = shape / (0.16F + 1.7F * usualShape);
  const float byColours = colours / (14.0F + 2.2F * usualColours);
  return std::max({byShape, byColours, (byShape + byColours) / 1.5F});
}

}  // namespace cuewright

#include "audio/wave_scale.h"

#include <algorithm>
#include <cmath>

namespace cuewright {

void WaveScale::SetWidth(int pixels) {
  width_ = std::max(pixels, 1);
  Settle();
}

void WaveScale::SetLength(Ms ms) {
  length_ = std::max<Ms>(ms, 0);
  Settle();
}

void WaveScale::SetMsAPixel(double ms, double x) {
  const double held = MsOf(x);
  msAPixel_ = std::clamp(ms, kFinest, kCoarsest);
  left_ = held - x * msAPixel_;
  Settle();
}

void WaveScale::ShowFrom(double ms) {
  left_ = ms;
  Settle();
}

void WaveScale::Settle() {
  const double last = std::max(length_.Count() - width_ * msAPixel_, 0.0);
  left_ = std::round(std::clamp(left_, 0.0, last) / msAPixel_) * msAPixel_;
}

}  // namespace cuewright

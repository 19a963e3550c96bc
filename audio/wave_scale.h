#pragma once

#include <cstdint>

#include "core/ms.h"

namespace cuewright {

/// What stretch of a film a picture of the wave shows: the time of its left edge and how long a pixel is. The left edge
/// stands at a whole number of pixels from the film's beginning, so that the wave stays the same while it scrolls.
class WaveScale {
 public:
  static constexpr double kFinest = 1;       ///< ms a pixel
  static constexpr double kCoarsest = 1000;  ///< the same

  int Width() const { return width_; }
  void SetWidth(int pixels);
  /// How long the film is; what lies behind its end isn't scrolled to.
  void SetLength(Ms ms);
  Ms Length() const { return length_; }

  double MsAPixel() const { return msAPixel_; }
  double Left() const { return left_; }
  double Right() const { return left_ + width_ * msAPixel_; }
  double XOf(double ms) const { return (ms - left_) / msAPixel_; }
  double XOf(Ms ms) const { return XOf(static_cast<double>(ms.Count())); }
  double MsOf(double x) const { return left_ + x * msAPixel_; }
  bool Shows(double ms) const { return ms >= left_ && ms < Right(); }
  bool Shows(Ms ms) const { return Shows(static_cast<double>(ms.Count())); }

  /// Pixels of another length, cut to what there is; the time at `x` stays where it is as nearly as that can be.
  void SetMsAPixel(double ms, double x);
  /// The picture begins with this time, as far as there is film to fill it.
  void ShowFrom(double ms);

 private:
  void Settle();

  int width_ = 1;
  Ms length_ = 0;
  double msAPixel_ = 10;
  double left_ = 0;
};

}  // namespace cuewright

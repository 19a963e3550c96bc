#pragma once

#include <kiss_fftr.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "core/counting.h"

namespace cuewright {

/// Bins of a transform that follow each other, and how much of each belongs to something.
struct BinShares {
  int first = 0;
  std::vector<float> shares;

  float PowerIn(std::span<const float> powers) const;
};

/// Measures the powers of the frequencies in windows of a sound.
class PowerSpectrum {
 public:
  /// Windows of so many samples, at least 2.
  explicit PowerSpectrum(std::size_t length);

  int Length() const { return CountOf(window_); }
  /// Samples of the transform, a power of two; bin i stands for i times the rate by this.
  int Size() const { return CountOf(input_); }
  /// The power in each bin from 0 to half of `Size`, of `Length` samples; all of them add up to the mean square of the
  /// sound, in 16-bit units. They hold until the next call.
  std::span<const float> Measure(std::span<const std::int16_t> samples);

 private:
  struct Release {
    void operator()(kiss_fftr_state* state) const;
  };

  std::vector<float> window_;
  std::vector<float> input_;
  std::vector<kiss_fft_cpx> spectrum_;
  std::vector<float> powers_;
  std::unique_ptr<kiss_fftr_state, Release> transform_;
};

}  // namespace cuewright

#pragma once

#include <kiss_fft.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace cuewright {

/// The sum of products with as many other numbers.
float DotOf(std::span<const float> one, const float* other);

/// Measures the powers of the frequencies in windows of a sound.
class PowerSpectrum {
 public:
  /// Windows of so many samples, at least 2.
  explicit PowerSpectrum(std::size_t length);

  std::size_t Length() const { return window_.size(); }
  /// Samples of the transform, a power of two; bin i stands for i times the rate by this.
  std::size_t Size() const { return 2 * input_.size(); }
  /// The power in each bin from 0 to half of `Size`, of `Length` samples; all of them add up to the mean square of the
  /// sound, in 16-bit units. They hold until the next call.
  std::span<const float> Measure(std::span<const std::int16_t> samples);

 private:
  struct Release {
    void operator()(kiss_fft_state* state) const;
  };

  /// The powers of a real transform, from one of half its size whose real parts are the even samples.
  void TakePowers();

  std::vector<float> window_;
  std::vector<kiss_fft_cpx> input_;
  std::vector<kiss_fft_cpx> spectrum_;
  std::vector<float> real_, imaginary_;  ///< of the spectrum, and its first bin again behind the last
  std::vector<float> cosines_, sines_;   ///< by which the odd samples are turned in a bin
  std::vector<float> powers_;
  std::unique_ptr<kiss_fft_state, Release> transform_;
};

}  // namespace cuewright

#include "sound/power_spectrum.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>

namespace cuewright {
namespace {

/// A Hann window, scaled so that the squares of the transform's lower half add up to the mean square of the sound: the
/// squares of all bins add up to `size` times those of the input.
std::vector<float> ScaledWindow(std::size_t length, std::size_t size) {
  std::vector<double> shape(length);
  double squares = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const double phase = 2 * std::numbers::pi * (static_cast<double>(i) + 0.5) / static_cast<double>(length);
    shape[i] = 0.5 - 0.5 * std::cos(phase);
    squares += shape[i] * shape[i];
  }
  const double scale = 1 / std::sqrt(squares * static_cast<double>(size) / 2);
  std::vector<float> window(length);
  std::ranges::transform(shape, window.begin(), [&](double value) { return static_cast<float>(value * scale); });
  return window;
}

}  // namespace

float DotOf(std::span<const float> one, const float* other) {
  constexpr std::size_t kAtOnce = 8;
  // Several sums side by side, which a processor adds at once.
  std::array<float, kAtOnce> sums{};
  std::size_t i = 0;
  for (; i + kAtOnce <= one.size(); i += kAtOnce) {
    for (std::size_t lane = 0; lane < kAtOnce; ++lane) sums[lane] += one[i + lane] * other[i + lane];
  }
  float rest = 0;
  for (; i < one.size(); ++i) rest += one[i] * other[i];
  return std::accumulate(sums.begin(), sums.end(), rest);
}

void PowerSpectrum::Release::operator()(kiss_fft_state* state) const { kiss_fft_free(state); }

PowerSpectrum::PowerSpectrum(std::size_t length) {
  const std::size_t size = std::bit_ceil(length);
  const std::size_t half = size / 2;
  window_ = ScaledWindow(length, size);
  input_.resize(half);
  spectrum_.resize(half);
  real_.resize(half + 1);
  imaginary_.resize(half + 1);
  powers_.resize(half + 1);
  for (std::size_t bin = 0; bin <= half; ++bin) {
    const double turn = std::numbers::pi * static_cast<double>(bin) / static_cast<double>(half);
    cosines_.push_back(static_cast<float>(std::cos(turn)));
    sines_.push_back(static_cast<float>(std::sin(turn)));
  }
  transform_.reset(kiss_fft_alloc(static_cast<int>(half), 0, nullptr, nullptr));
}

std::span<const float> PowerSpectrum::Measure(std::span<const std::int16_t> samples) {
  // Its numbers lie in pairs, the real part first.
  auto* const input = reinterpret_cast<float*>(input_.data());
  for (std::size_t i = 0; i < window_.size(); ++i) input[i] = static_cast<float>(samples[i]) * window_[i];
  kiss_fft(transform_.get(), input_.data(), spectrum_.data());
  TakePowers();
  return powers_;
}

void PowerSpectrum::TakePowers() {
  const std::size_t half = spectrum_.size();
  for (std::size_t i = 0; i < half; ++i) {
    real_[i] = spectrum_[i].r;
    imaginary_[i] = spectrum_[i].i;
  }
  real_[half] = real_[0];
  imaginary_[half] = imaginary_[0];
  const float* const real = real_.data();
  const float* const imaginary = imaginary_.data();
  for (std::size_t i = 0; i <= half; ++i) {
    const float evenReal = real[i] + real[half - i];
    const float evenImaginary = imaginary[i] - imaginary[half - i];
    const float oddReal = imaginary[i] + imaginary[half - i];
    const float oddImaginary = real[half - i] - real[i];
    const float r = evenReal + cosines_[i] * oddReal + sines_[i] * oddImaginary;
    const float j = evenImaginary + cosines_[i] * oddImaginary - sines_[i] * oddReal;
    powers_[i] = (r * r + j * j) / 4;
  }
}

}  // namespace cuewright

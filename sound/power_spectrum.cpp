#include "sound/power_spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>

namespace cuewright {
namespace {

/// A Hann window, scaled so that the squares of the transform's lower half add up to the mean square of the sound: the
/// squares of all bins add up to `size` times those of the input.
std::vector<float> ScaledWindow(int length, int size) {
  std::vector<double> shape(length);
  double squares = 0;
  for (int i = 0; i < length; ++i) {
    const double phase = 2 * std::numbers::pi * (i + 0.5) / length;
    shape[i] = 0.5 - 0.5 * std::cos(phase);
    squares += shape[i] * shape[i];
  }
  const double scale = 1 / std::sqrt(squares * size / 2);
  std::vector<float> window(length);
  std::ranges::transform(shape, window.begin(), [&](double value) { return static_cast<float>(value * scale); });
  return window;
}

}  // namespace

float BinShares::PowerIn(std::span<const float> powers) const {
  return std::inner_product(shares.begin(), shares.end(), powers.begin() + first, 0.0F);
}

void PowerSpectrum::Release::operator()(kiss_fftr_state* state) const { kiss_fftr_free(state); }

PowerSpectrum::PowerSpectrum(std::size_t length) : input_(std::bit_ceil(length)) {
  window_ = ScaledWindow(static_cast<int>(length), Size());
  spectrum_.resize(input_.size() / 2 + 1);
  powers_.resize(spectrum_.size());
  transform_.reset(kiss_fftr_alloc(Size(), 0, nullptr, nullptr));
}

std::span<const float> PowerSpectrum::Measure(std::span<const std::int16_t> samples) {
  std::ranges::transform(samples, window_, input_.begin(),
                         [](std::int16_t sample, float weight) { return sample * weight; });
  kiss_fftr(transform_.get(), input_.data(), spectrum_.data());
  std::ranges::transform(spectrum_, powers_.begin(),
                         [](const kiss_fft_cpx& bin) { return bin.r * bin.r + bin.i * bin.i; });
  return powers_;
}

}  // namespace cuewright

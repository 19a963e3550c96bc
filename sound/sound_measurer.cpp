#include "sound/sound_measurer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>

namespace cuewright {
namespace {

constexpr int kMsPerSecond = 1000;
constexpr int kWindowMs = 20;
constexpr float kMostUnits = 255;

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

/// The sum of products, by several sums side by side, which a processor adds at once.
float Dot(const std::vector<float>& one, const float* other) {
  constexpr std::size_t kAtOnce = 8;
  std::array<float, kAtOnce> sums{};
  std::size_t i = 0;
  for (; i + kAtOnce <= one.size(); i += kAtOnce) {
    for (std::size_t lane = 0; lane < kAtOnce; ++lane) sums[lane] += one[i + lane] * other[i + lane];
  }
  float rest = 0;
  for (; i < one.size(); ++i) rest += one[i] * other[i];
  return std::accumulate(sums.begin(), sums.end(), rest);
}

}  // namespace

void SoundMeasurer::Release::operator()(kiss_fft_state* state) const { kiss_fft_free(state); }

SoundMeasurer::SoundMeasurer(SoundTable& table, int samplesASecond) : table_(table), rate_(samplesASecond) {
  const auto length = static_cast<std::size_t>(rate_ * kWindowMs / kMsPerSecond);
  const std::size_t size = std::bit_ceil(length);
  const std::size_t half = size / 2;
  input_.resize(half);
  window_ = ScaledWindow(length, size);
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
  const double width = static_cast<double>(rate_) / static_cast<double>(size);
  for (std::size_t bin = 0; bin <= half; ++bin) {
    const double low = (static_cast<double>(bin) - 0.5) * width;
    for (int number = 0; number < SoundTable::kBands; ++number) {
      const double common =
          std::min(low + width, SoundTable::EdgeHz(number + 1)) - std::max(low, SoundTable::EdgeHz(number));
      if (common <= 0) continue;
      Band& band = bands_[static_cast<std::size_t>(number)];
      if (band.shares.empty()) band.first = bin;
      band.shares.push_back(static_cast<float>(common / width));
    }
  }
  begin_ = WindowBegin(0);
  samples_.assign(static_cast<std::size_t>(-begin_), 0);
}

SoundMeasurer::~SoundMeasurer() = default;

std::int64_t SoundMeasurer::WindowBegin(std::size_t step) const {
  const std::int64_t middle =
      (2 * static_cast<std::int64_t>(step) + 1) * SoundTable::kStepMs * rate_ / (2 * kMsPerSecond);
  return middle - static_cast<std::int64_t>(window_.size() / 2);
}

void SoundMeasurer::Add(std::span<const std::int16_t> samples) {
  samples_.insert(samples_.end(), samples.begin(), samples.end());
  given_ += static_cast<std::int64_t>(samples.size());
  MeasureReady();
}

void SoundMeasurer::Finish() {
  const std::int64_t perStep = std::int64_t{SoundTable::kStepMs} * rate_;
  const auto whole = static_cast<std::size_t>((given_ * kMsPerSecond + perStep - 1) / perStep);
  if (whole <= step_) return;
  const std::int64_t needed = WindowBegin(whole - 1) + static_cast<std::int64_t>(window_.size()) - begin_;
  samples_.resize(std::max(samples_.size(), static_cast<std::size_t>(needed)));
  MeasureReady();
}

void SoundMeasurer::MeasureReady() {
  for (;; ++step_) {
    const auto from = static_cast<std::size_t>(WindowBegin(step_) - begin_);
    if (from + window_.size() > samples_.size()) break;
    Measure(std::span(samples_).subspan(from, window_.size()));
  }
  const auto done = static_cast<std::size_t>(WindowBegin(step_) - begin_);
  const auto unused = static_cast<std::ptrdiff_t>(std::min(done, samples_.size()));
  samples_.erase(samples_.begin(), samples_.begin() + unused);
  begin_ += unused;
}

void SoundMeasurer::Measure(std::span<const std::int16_t> samples) {
  // Its numbers lie in pairs, the real part first.
  auto* const input = reinterpret_cast<float*>(input_.data());
  for (std::size_t i = 0; i < samples.size(); ++i) input[i] = static_cast<float>(samples[i]) * window_[i];
  kiss_fft(transform_.get(), input_.data(), spectrum_.data());
  TakePowers();
  SoundTable::Step step{};
  std::ranges::transform(bands_, step.begin(), [&](const Band& band) {
    const float power = std::max(Dot(band.shares, &powers_[band.first]), 1.0F);
    const float units = 10 * std::log10(power) / SoundTable::kDbPerUnit;
    // Never negative, so that this rounds.
    return static_cast<std::uint8_t>(std::min(units + 0.5F, kMostUnits));
  });
  table_.Append(step);
}

void SoundMeasurer::TakePowers() {
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

#include "sound/sound_measurer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

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

}  // namespace

void SoundMeasurer::Release::operator()(kiss_fftr_state* state) const { kiss_fftr_free(state); }

SoundMeasurer::SoundMeasurer(SoundTable& table, int samplesASecond) : table_(table), rate_(samplesASecond) {
  const auto length = static_cast<std::size_t>(rate_ * kWindowMs / kMsPerSecond);
  input_.resize(std::bit_ceil(length));
  window_ = ScaledWindow(length, input_.size());
  spectrum_.resize(input_.size() / 2 + 1);
  transform_.reset(kiss_fftr_alloc(static_cast<int>(input_.size()), 0, nullptr, nullptr));
  const double width = static_cast<double>(rate_) / static_cast<double>(input_.size());
  for (std::size_t bin = 0; bin <= input_.size() / 2; ++bin) {
    const double low = (static_cast<double>(bin) - 0.5) * width;
    for (int band = 0; band < SoundTable::kBands; ++band) {
      const double common =
          std::min(low + width, SoundTable::EdgeHz(band + 1)) - std::max(low, SoundTable::EdgeHz(band));
      if (common <= 0) continue;
      shares_.push_back({bin, static_cast<std::size_t>(band), static_cast<float>(common / width)});
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
  std::ranges::transform(samples, window_, input_.begin(),
                         [](std::int16_t sample, float weight) { return sample * weight; });
  kiss_fftr(transform_.get(), input_.data(), spectrum_.data());
  std::array<float, SoundTable::kBands> powers{};
  for (const Share& share : shares_) {
    const kiss_fft_cpx& bin = spectrum_[share.bin];
    powers[share.band] += share.amount * (bin.r * bin.r + bin.i * bin.i);
  }
  SoundTable::Step step{};
  std::ranges::transform(powers, step.begin(), [](float power) {
    const float units = 10 * std::log10(std::max(power, 1.0F)) / SoundTable::kDbPerUnit;
    return static_cast<std::uint8_t>(std::min(std::round(units), kMostUnits));
  });
  table_.Append(step);
}

}  // namespace cuewright

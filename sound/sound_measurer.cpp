#include "sound/sound_measurer.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr int kMsPerSecond = 1000;
constexpr int kWindowMs = 20;

}  // namespace

SoundMeasurer::SoundMeasurer(SoundTable& table, int samplesASecond)
    : table_(table), rate_(samplesASecond), spectrum_(static_cast<std::size_t>(rate_ * kWindowMs / kMsPerSecond)) {
  const std::size_t size = spectrum_.Size();
  const double width = static_cast<double>(rate_) / static_cast<double>(size);
  for (std::size_t bin = 0; bin <= size / 2; ++bin) {
    const double low = (static_cast<double>(bin) - 0.5) * width;
    for (int number = 0; number < SoundTable::kBands; ++number) {
      const double common =
          std::min(low + width, SoundTable::EdgeHz(number + 1)) - std::max(low, SoundTable::EdgeHz(number));
      if (common <= 0) continue;
      BinShares& band = bands_[static_cast<std::size_t>(number)];
      if (band.shares.empty()) band.first = bin;
      band.shares.push_back(static_cast<float>(common / width));
    }
  }
  begin_ = WindowBegin(0);
  samples_.assign(static_cast<std::size_t>(-begin_), 0);
}

std::int64_t SoundMeasurer::WindowBegin(std::size_t step) const {
  const std::int64_t middle =
      (2 * static_cast<std::int64_t>(step) + 1) * SoundTable::kStepMs * rate_ / (2 * kMsPerSecond);
  return middle - static_cast<std::int64_t>(spectrum_.Length() / 2);
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
  const std::int64_t needed = WindowBegin(whole - 1) + static_cast<std::int64_t>(spectrum_.Length()) - begin_;
  samples_.resize(std::max(samples_.size(), static_cast<std::size_t>(needed)));
  MeasureReady();
}

void SoundMeasurer::MeasureReady() {
  for (;; ++step_) {
    const auto from = static_cast<std::size_t>(WindowBegin(step_) - begin_);
    if (from + spectrum_.Length() > samples_.size()) break;
    Measure(std::span(samples_).subspan(from, spectrum_.Length()));
  }
  const auto done = static_cast<std::size_t>(WindowBegin(step_) - begin_);
  const auto unused = static_cast<std::ptrdiff_t>(std::min(done, samples_.size()));
  samples_.erase(samples_.begin(), samples_.begin() + unused);
  begin_ += unused;
}

void SoundMeasurer::Measure(std::span<const std::int16_t> samples) {
  const std::span<const float> powers = spectrum_.Measure(samples);
  SoundTable::Step step{};
  std::ranges::transform(bands_, step.begin(),
                         [&](const BinShares& band) { return SoundTable::UnitsOf(band.PowerIn(powers)); });
  table_.Append(step);
}

}  // namespace cuewright

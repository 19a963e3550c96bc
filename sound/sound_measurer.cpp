#include "sound/sound_measurer.h"

#include <algorithm>
#include <iterator>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kMsPerSecond = 1000;
constexpr int kWindowMs = 20;

}  // namespace

SoundMeasurer::SoundMeasurer(SoundTable& table, int samplesASecond)
    : table_(table), rate_(samplesASecond), spectrum_(rate_ * kWindowMs / kMsPerSecond) {
  const double rate = rate_;
  const double width = rate / spectrum_.Size();
  for (int bin = 0; bin <= spectrum_.Size() / 2; ++bin) {
    const double low = (bin - 0.5) * width;
    for (int number = 0; number < SoundTable::kBands; ++number) {
      const double common =
          std::min(low + width, SoundTable::EdgeHz(number + 1)) - std::max(low, SoundTable::EdgeHz(number));
      if (common <= 0) continue;
      BinShares& band = bands_[number];
      if (band.shares.empty()) band.first = bin;
      band.shares.push_back(static_cast<float>(common / width));
    }
  }
  begin_ = WindowBegin(0);
  samples_.assign(-begin_, 0);
}

std::int64_t SoundMeasurer::WindowBegin(std::int64_t step) const {
  return (2 * step + 1) * SoundTable::kStepMs * rate_ / (2 * kMsPerSecond) - spectrum_.Length() / 2;
}

void SoundMeasurer::Add(std::span<const std::int16_t> samples) {
  samples_.insert(samples_.end(), samples.begin(), samples.end());
  given_ += CountOf(samples);
  MeasureReady();
}

void SoundMeasurer::Finish() {
  const std::int64_t perStep = std::int64_t{SoundTable::kStepMs} * rate_;
  const std::int64_t whole = (given_ * kMsPerSecond + perStep - 1) / perStep;
  if (whole <= step_) return;
  const std::int64_t needed = WindowBegin(whole - 1) + spectrum_.Length() - begin_;
  samples_.resize(std::max(std::ssize(samples_), needed));
  MeasureReady();
}

void SoundMeasurer::MeasureReady() {
  for (;; ++step_) {
    const std::int64_t from = WindowBegin(step_) - begin_;
    if (from + spectrum_.Length() > std::ssize(samples_)) break;
    Measure(std::span(samples_).subspan(from, spectrum_.Length()));
  }
  const std::int64_t unused = std::min(WindowBegin(step_) - begin_, std::ssize(samples_));
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

#include "audio/fine_spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "core/counting.h"
#include "core/runtime_error.h"
#include "sound/sound_table.h"

namespace cuewright {
namespace {

constexpr std::uint32_t kLeastRate = 16000;
constexpr int kMsASecond = 1000;
/// The longest window; its samples are a power of two, so that it is more than half as long.
constexpr std::uint32_t kWindowMs = 16;

/// The frequency in the middle of a row; half a row less is its lower edge, half a row more its upper one.
double HzOf(double row) {
  constexpr double kBands = SoundTable::kBands;
  const double band = 0.5 + (kBands - 1) * row / (FineSpectrum::kRows - 1);
  return SoundTable::kLowestHz * std::pow(SoundTable::kHighestHz / SoundTable::kLowestHz, band / kBands);
}

}  // namespace

void FineSpectrum::Open(std::unique_ptr<FileReader> file, const WaveLayout& layout) {
  Forget();
  if (layout.begin == 0 || layout.bits != 16 || layout.rate < kLeastRate || layout.frameBytes < Sample16::kBytes)
    return;
  file_ = std::move(file);
  layout_ = layout;
  spectrum_ = std::make_unique<PowerSpectrum>(std::bit_floor(layout.rate * kWindowMs / kMsASecond));
  MakeRows();
}

void FineSpectrum::Forget() {
  file_.reset();
  spectrum_.reset();
  kept_.clear();
  stepMs_ = 0;
  unfinished_ = false;
}

void FineSpectrum::MakeRows() {
  const double rate = layout_.rate;
  const double width = rate / spectrum_->Size();
  for (int number = 0; number < kRows; ++number) {
    BinShares& row = rows_[number];
    row.shares.clear();
    const double low = HzOf(number - 0.5) / width;
    const double high = HzOf(number + 0.5) / width;
    const double middle = HzOf(number) / width;
    if (high - low < 1) {
      // The row is narrower than a bin: its power lies between those of two bins.
      row.first = static_cast<int>(middle);
      const auto part = static_cast<float>(middle - std::floor(middle));
      row.shares = {1 - part, part};
      continue;
    }
    row.first = static_cast<int>(std::max(low + 0.5, 0.0));
    for (double bin = row.first; bin - 0.5 < high; ++bin) {
      row.shares.push_back(static_cast<float>(std::min(bin + 0.5, high) - std::max(bin - 0.5, low)));
    }
  }
}

std::int64_t FineSpectrum::StepAt(double ms) const { return static_cast<std::int64_t>(std::floor(ms / stepMs_)); }

void FineSpectrum::Prepare(const WaveScale& scale) {
  unfinished_ = false;
  CarryOn step;
  if (!step([&] { PrepareUnsafely(scale); })) Forget();
}

void FineSpectrum::PrepareUnsafely(const WaveScale& scale) {
  const int before = stepMs_;
  stepMs_ = 0;
  if (!file_ || scale.MsAPixel() > kCoarsest) return;
  stepMs_ = static_cast<int>(std::bit_floor(static_cast<unsigned>(scale.MsAPixel())));
  if (stepMs_ != before || kept_.empty()) kept_.assign(kKept, {});
  std::vector<std::int64_t> wanted;
  for (int x = 0; x < scale.Width() && !unfinished_; ++x) {
    const std::int64_t step = StepAt(scale.MsOf(x));
    if (kept_[step % kKept].step == step) continue;
    unfinished_ = CountOf(wanted) == kMostAtOnce;
    if (!unfinished_ && (wanted.empty() || wanted.back() != step)) wanted.push_back(step);
  }
  if (wanted.empty()) return;
  ReadSamples(wanted.front(), wanted.back());
  for (const std::int64_t step : wanted) {
    Kept& kept = kept_[step % kKept];
    kept.step = step;
    Measure(step, kept.column);
  }
}

void FineSpectrum::ReadSamples(std::int64_t first, std::int64_t last) {
  const int length = spectrum_->Length();
  firstSample_ = first * stepMs_ * layout_.rate / kMsASecond - length;
  const std::int64_t end = (last + 1) * stepMs_ * layout_.rate / kMsASecond + length;
  const std::int64_t from = std::max<std::int64_t>(firstSample_, 0);
  // Before the sound and behind it there is silence.
  samples_.assign(from - firstSample_, 0);
  const std::uint64_t at = layout_.begin + from * layout_.frameBytes;
  if (at < layout_.end) ReadFrames(at, (end - from) * layout_.frameBytes);
  samples_.resize(end - firstSample_);
}

void FineSpectrum::ReadFrames(std::uint64_t at, std::uint64_t wanted) {
  bytes_.resize(std::min(wanted, layout_.end - at));
  const std::size_t read = file_->ReadAt(at, bytes_.data(), bytes_.size());
  MixFrames(std::span(bytes_).first(read), layout_.frameBytes, samples_);
}

void FineSpectrum::Measure(std::int64_t step, Column& column) {
  const std::int64_t middle = (2 * step + 1) * stepMs_ * layout_.rate / (2 * kMsASecond);
  const std::int64_t from = middle - spectrum_->Length() / 2 - firstSample_;
  const std::span<const float> powers = spectrum_->Measure(std::span(samples_).subspan(from, spectrum_->Length()));
  std::ranges::transform(rows_, column.begin(),
                         [&](const BinShares& row) { return SoundTable::UnitsOf(row.PowerIn(powers)); });
}

const FineSpectrum::Column* FineSpectrum::At(double ms) const {
  if (stepMs_ == 0) return nullptr;
  const std::int64_t step = StepAt(ms);
  const Kept& kept = kept_[step % kKept];
  return kept.step == step ? &kept.column : nullptr;
}

}  // namespace cuewright

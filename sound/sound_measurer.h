#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "sound/power_spectrum.h"
#include "sound/sound_table.h"

namespace cuewright {

/// Measures samples as they come and appends what they are made of to a table. Each step is measured by a window of
/// 20 ms around its middle; before the first and behind the last sample is silence.
class SoundMeasurer {
 public:
  /// The rate is at least 16,000, so that the highest band can be heard.
  SoundMeasurer(SoundTable& table, int samplesASecond);

  void Add(std::span<const std::int16_t> samples);
  /// Ends the sound: appends the steps whose windows reach beyond it, and the last one even when it isn't full.
  void Finish();

 private:
  /// The place of the first sample of a step's window; before the sound for the first steps.
  std::int64_t WindowBegin(std::int64_t step) const;
  void MeasureReady();
  void Measure(std::span<const std::int16_t> samples);

  SoundTable& table_;
  int rate_;
  PowerSpectrum spectrum_;
  std::array<BinShares, SoundTable::kBands> bands_;
  std::vector<std::int16_t> samples_;  // from place `begin_` of the sound on
  std::int64_t begin_ = 0;
  std::int64_t given_ = 0;  // samples of the sound so far
  std::int64_t step_ = 0;   // the next one, counted from where this measurer began
};

}  // namespace cuewright

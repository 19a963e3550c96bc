#pragma once

#include <kiss_fft.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "sound/sound_table.h"

namespace cuewright {

/// Measures samples as they come and appends what they are made of to a table. Each step is measured by a window of
/// 20 ms around its middle; before the first and behind the last sample is silence.
class SoundMeasurer {
 public:
  /// The rate is at least 16,000, so that the highest band can be heard.
  SoundMeasurer(SoundTable& table, int samplesASecond);
  ~SoundMeasurer();

  void Add(std::span<const std::int16_t> samples);
  /// Appends the steps that wait for what follows; a last step that has begun counts.
  void Finish();

 private:
  /// The bins of the transform that lie in a band, and how much of each.
  struct Band {
    std::size_t first = 0;
    std::vector<float> shares;
  };
  struct Release {
    void operator()(kiss_fft_state* state) const;
  };

  /// The place of the first sample of a step's window; before the sound for the first steps.
  std::int64_t WindowBegin(std::size_t step) const;
  void MeasureReady();
  void Measure(std::span<const std::int16_t> samples);
  /// The powers of the bins of a real transform, from one of half its size whose real parts are the even samples.
  void TakePowers();

  SoundTable& table_;
  int rate_;
  std::vector<float> window_;
  std::vector<kiss_fft_cpx> input_;
  std::vector<kiss_fft_cpx> spectrum_;
  std::vector<float> real_, imaginary_;  ///< of the spectrum, and its first bin again behind the last
  std::vector<float> cosines_, sines_;   ///< by which the odd samples are turned in a bin
  std::vector<float> powers_;
  std::array<Band, SoundTable::kBands> bands_;
  std::unique_ptr<kiss_fft_state, Release> transform_;
  std::vector<std::int16_t> samples_;  // from place `begin_` of the sound on
  std::int64_t begin_ = 0;
  std::int64_t given_ = 0;  // samples of the sound so far
  std::size_t step_ = 0;    // the next one, counted from where this measurer began
};

}  // namespace cuewright

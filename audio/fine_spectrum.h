#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "audio/wave_samples.h"
#include "audio/wave_scale.h"
#include "core/ports/files.h"
#include "sound/power_spectrum.h"

namespace cuewright {

/// What a sound is made of in more rows and more often than its table tells, measured from the wave file where a
/// picture shows it, and kept as long as pictures do.
class FineSpectrum {
 public:
  static constexpr int kRows = 48;
  /// The loudness in each row, in half decibels as in the table, the lowest frequency first. The first row stands for
  /// the middle of the table's lowest band, the last one for that of its highest.
  using Column = std::array<std::uint8_t, kRows>;

  /// Pixels longer than this, in ms, don't show more than the table.
  static constexpr double kCoarsest = 6;
  /// Columns that are measured for one picture, so that it is painted at once.
  static constexpr int kMostAtOnce = 1200;

  /// Measures from the samples of 16 bits of a file from now on; of any other there is nothing.
  void Open(std::unique_ptr<FileReader> file, const WaveLayout& layout);
  void Forget();

  /// Measures what a picture of this scale shows, as much as can be done at once. A file that can't be read any more is
  /// let go.
  void Prepare(const WaveScale& scale);
  /// The last picture wants more than could be measured at once.
  bool Unfinished() const { return unfinished_; }
  /// The column at a time in ms of the picture that was prepared; null when it wasn't measured, or shows nothing more.
  const Column* At(double ms) const;

 private:
  struct Kept {
    std::int64_t step = -1;
    Column column{};
  };
  static constexpr std::size_t kKept = 8192;

  void MakeRows();
  /// The step whose column stands at a time.
  std::int64_t StepAt(double ms) const;
  void ReadSamples(std::int64_t first, std::int64_t last);
  void ReadFrames(std::uint64_t at, std::uint64_t wanted);
  void Measure(std::int64_t step, Column& column);
  void PrepareUnsafely(const WaveScale& scale);

  std::unique_ptr<FileReader> file_;
  WaveLayout layout_;
  std::unique_ptr<PowerSpectrum> spectrum_;
  std::array<BinShares, kRows> rows_;
  std::vector<Kept> kept_;
  int stepMs_ = 0;  ///< of the picture that was prepared; 0: it shows nothing more than the table
  bool unfinished_ = false;
  std::vector<char> bytes_;
  std::vector<std::int16_t> samples_;  ///< of the picture, from `firstSample_` on
  std::int64_t firstSample_ = 0;
};

}  // namespace cuewright

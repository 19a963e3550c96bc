#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "audio/wave_peaks.h"
#include "core/ports/files.h"

namespace cuewright {

/// What happens around a load while it runs.
class WaveLoadSteps {
 public:
  virtual ~WaveLoadSteps() = default;

  /// The file is a wave: what was loaded before is forgotten.
  virtual void OnHeader() = 0;
  /// The wave's measures are known, and its samples come next.
  virtual void OnBegin() = 0;
  /// The column after which the first screenful is complete.
  virtual std::int32_t ScreenColumns() const = 0;
  virtual void OnScreenful() = 0;
  /// After every 500 columns: the position in the file, counted from 1, and the size of the samples, in bytes. True to
  /// give the load up.
  virtual bool OnProgress(std::int64_t position, std::int64_t size) = 0;
};

enum class WaveLoadResult { Loaded, Failed, GivenUp };

/// Reads the peaks of a wave file of PCM samples with 8 or 16 bits. The samples are taken to fill the end of the file,
/// and one in every 16, 32 or 64 bytes is looked at, by the length of the sound.
class WaveReader {
 public:
  explicit WaveReader(WavePeaks& peaks) : peaks_(peaks) {}

  /// Peaks that were read before a failure stay. Run-time errors of the steps fail the load as those of the file do.
  WaveLoadResult Load(FileReader& file, WaveLoadSteps& steps);

 private:
  struct Format;
  struct Course;
  class Pieces;

  static Format ReadHeader(Pieces& pieces);
  WaveLoadResult Measure(Pieces& pieces, const Format& format, WaveLoadSteps& steps);
  template <class Samples>
  WaveLoadResult Walk(Pieces& pieces, Course course, WaveLoadSteps& steps);

  WavePeaks& peaks_;
};

}  // namespace cuewright

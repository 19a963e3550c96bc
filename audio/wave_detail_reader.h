#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "audio/wave_pyramid.h"
#include "audio/wave_samples.h"
#include "core/ports/files.h"
#include "sound/sound_measurer.h"
#include "sound/sound_table.h"

namespace cuewright {

/// Reads all samples of a wave file once, piece by piece, into peaks of 1 ms. The file may still be growing: what isn't
/// there yet is read later. PCM of 8 or 16 bits with any number of channels, of which the peaks are those of all.
class WaveDetailReader {
 public:
  explicit WaveDetailReader(WavePyramid& peaks) : peaks_(peaks) {}

  /// Begins with a file. What was read before is forgotten.
  void Begin(std::unique_ptr<FileReader> file);
  void Forget();
  bool Open() const { return file_ != nullptr; }
  /// Measures into a table what the file that was begun is made of, as far as its samples allow.
  void Measure(SoundTable& table) { table_ = &table; }
  /// Lets the file go; the peaks stay.
  void Close() { file_.reset(); }

  enum class Result {
    Read,     ///< there is more now
    Nothing,  ///< there is no more, at least for now
    NoWave    ///< it isn't a wave that can be read
  };
  /// Reads up to so many bytes more. Run-time error when the file can't be read.
  Result Read(std::size_t most);
  /// Where the file's samples lie, as soon as some were read; it stays until another file is begun.
  WaveLayout Layout() const { return {dataBegin_, end_, rate_, frameBytes_, bits_}; }
  /// Ends the file: the last samples, which don't fill a ms, make a peak of their own.
  void Finish();

 private:
  enum class Header { Read, Missing, NoWave };
  Header ReadHeader();
  template <class Sample>
  void Take(const char* bytes, std::size_t frames);
  /// Measures samples of 16 bits, all channels as one.
  void Mix(std::span<const char> bytes);

  WavePyramid& peaks_;
  SoundTable* table_ = nullptr;
  std::unique_ptr<SoundMeasurer> measurer_;
  std::vector<std::int16_t> mixed_;
  std::unique_ptr<FileReader> file_;
  std::vector<char> buffer_;
  std::uint64_t position_ = 0;  ///< of the next sample in the file; 0: the header wasn't read yet
  std::uint64_t dataBegin_ = 0;
  std::uint64_t end_ = 0;  ///< of the samples
  std::uint32_t rate_ = 0;
  std::uint32_t frameBytes_ = 0;
  int bits_ = 0;
  std::uint64_t frame_ = 0;  ///< number of the next sample
  std::uint64_t msEnd_ = 0;  ///< of the first sample behind the ms that is being filled
  WavePeak peak_;
  bool begun_ = false;  ///< `peak_` has a sample
};

}  // namespace cuewright

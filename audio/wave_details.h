#pragma once

#include "audio/fine_spectrum.h"
#include "audio/wave_detail_reader.h"
#include "audio/wave_pyramid.h"
#include "capture/main_window.h"
#include "core/ports/files.h"
#include "core/signal.h"
#include "sound/sound_table.h"

namespace cuewright {

/// What is known of the sound that the Audio bar shows: its fine peaks, and what it is made of. A file is read between
/// other events, that of a film already while its decoder still writes it.
class WaveDetails {
 public:
  WaveDetails(MainWindow& window, Files& files);

  const WavePyramid& Peaks() const { return peaks_; }
  const SoundTable& Table() const { return table_; }
  /// The spectrum for pictures of a fine scale; it is empty until the sound was read whole.
  FineSpectrum& Fine() { return fine_; }
  /// True while a file is read, so that more peaks may come.
  bool Reading() const { return reader_.Open(); }

  /// Reads a wave file that is whole, unless that has been done already. What it is made of is taken from the table
  /// beside it, or measured.
  void Open(TextView path);
  void Forget();

  /// The decoder of a film begins to write the wave file that will be called `path`.
  void BeginFilm(TextView path);
  /// Reads what the decoder has written so far, as soon as there is a file.
  void Follow(TextView unfinished);
  /// Reads a piece more of the file; false when there is no more of it for now, or none that can be read.
  bool ReadOn();
  /// The decoder has written all of it, and all of it was read. The table is kept beside the file.
  void EndFilm();

  Signal<WaveDetails> Changed;  ///< there is more, or nothing any more

 private:
  void BeginFile(TextView file);
  bool ReadTable();
  /// The timer runs while there is something to read.
  void ShowTimer();
  void Tick();
  void End();

  MainWindow& window_;
  Files& files_;
  WavePyramid peaks_;
  SoundTable table_;
  WaveDetailReader reader_{peaks_};
  FineSpectrum fine_;
  Text path_;  ///< of the sound; empty: there is none
  bool growing_ = false;
};

}  // namespace cuewright

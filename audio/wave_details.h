#pragma once

#include "audio/wave_detail_reader.h"
#include "audio/wave_pyramid.h"
#include "capture/main_window.h"
#include "core/ports/files.h"
#include "core/signal.h"

namespace cuewright {

/// The fine peaks of the sound that the Audio bar shows. They are read between other events, also while the decoder of
/// a film still writes the file.
class WaveDetails {
 public:
  WaveDetails(MainWindow& window, Files& files);

  const WavePyramid& Peaks() const { return peaks_; }
  /// More may come.
  bool Reading() const { return reader_.Open(); }

  /// Reads a wave file that is whole. Nothing when it is the one that is read, or was read last.
  void Open(TextView path);
  /// Reads what a decoder writes until `Written` or `Forget`; whole, the file will be called `path`.
  void Follow(TextView unfinished, TextView path);
  /// The decoder has written all of it.
  void Written() { growing_ = false; }
  void Forget();

  Signal<WaveDetails> Changed;  ///< there is more, or nothing any more

 private:
  void Begin(TextView file, TextView path);
  void Tick();
  void End();

  MainWindow& window_;
  Files& files_;
  WavePyramid peaks_;
  WaveDetailReader reader_{peaks_};
  Text path_;  ///< of the sound; empty: there is none
  bool growing_ = false;
};

}  // namespace cuewright

#pragma once

#include <memory>
#include <string>

#include "audio/audio_bar.h"
#include "audio/wave_details.h"
#include "core/app_options.h"
#include "core/ports/processes.h"
#include "core/ports/sound_store.h"
#include "core/signal.h"
#include "sound/film_samples.h"

namespace cuewright {

/// What `FilmSound` works on.
struct FilmSoundParts {
  MainWindow& window;
  DocumentState& document;
  const LangStrings& strings;
  Messages& messages;
  Player& player;
  Processes* processes;  ///< null, as the store may be: films are not decoded here
  SoundStore* store;
  AudioBar& bar;
  WaveDetails& details;
  const AppOptions& options;
};

/// Puts the sound of the open film into the Audio bar: it is decoded in the background to a wave in the user's cache,
/// which is there at once the next time. The table of the sound is measured in the same pass.
class FilmSound {
 public:
  explicit FilmSound(FilmSoundParts parts);

  /// Begins with the film that is open; nothing without one or while another is read.
  void Start();
  /// Gives up what is being read.
  void Stop();
  /// The film goes; the next one is read by itself again.
  void ForgetFilm();
  /// Enables the command while a film is open whose sound isn't being read.
  void ShowItem();
  bool Running() const { return question_ || child_; }
  /// The bar shows the sound of the film, not that of another file.
  bool Shown() const { return !path_.empty() && p_.document.WavePath == path_; }

 private:
  /// Reads a film that has just opened when the bar is on; a failure isn't told.
  void StartByItself();
  void Begin();
  void StartSteps();
  void TakeAnswer();
  void StartDecoder();
  void Try(void (FilmSound::*step)());
  void Poll();
  void ShowProgress();
  void Finish(bool whole);
  void Load();
  void Tell();
  void EmptyStore();

  FilmSoundParts p_;
  Connection readMore_;
  std::unique_ptr<TrackQuestion> question_;  ///< comes before the decoder
  std::unique_ptr<ChildProcess> child_;      ///< the decoder
  Text film_;
  Text path_;
  Text unfinished_;  // the file that the decoder writes
  int track_ = -1;
  TrackFacts facts_;
  bool byItself_ = false;
  bool cutOff_ = false;  // the decoder couldn't write all of it
};

}  // namespace cuewright

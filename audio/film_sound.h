#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "audio/audio_bar.h"
#include "core/ports/processes.h"
#include "core/ports/sound_store.h"

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
};

/// Puts the sound of the open film into the Audio bar: it is decoded in the background to a wave in the user's cache,
/// which is there at once the next time.
class FilmSound {
 public:
  explicit FilmSound(FilmSoundParts parts);

  /// Begins with the film that is open; nothing without one or while another is read.
  void Start();
  /// Gives up what is being read.
  void Stop();
  bool Running() const { return child_ != nullptr; }

 private:
  void StartSteps();
  void Poll();
  void ReadProgress();
  void ShowProgress();
  void Finish(bool whole);
  void Load();
  void Tell();
  void EmptyStore();

  FilmSoundParts p_;
  std::unique_ptr<ChildProcess> child_;
  Text film_;
  Text path_;
  std::string output_;     // the line that isn't whole yet
  std::int64_t done_ = 0;  // microseconds
  bool cutOff_ = false;    // the decoder couldn't write all of it
};

}  // namespace cuewright

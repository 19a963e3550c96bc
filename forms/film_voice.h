#pragma once

#include <memory>
#include <string>

#include "core/document.h"
#include "core/ports/files.h"
#include "core/ports/player.h"
#include "core/ports/processes.h"
#include "core/ports/sound_store.h"
#include "sound/film_samples.h"
#include "sound/sound_measurer.h"
#include "sound/sound_table.h"

namespace cuewright {

/// What the sound of the open film is made of. It is taken from what the Audio bar has kept of the film, or read from
/// the film itself in the background, once.
class FilmVoice {
 public:
  FilmVoice(const DocumentState& document, const Player& player, const Files& files, Processes* processes,
            SoundStore* store);

  /// Films can be read here.
  bool Possible() const { return processes_ != nullptr; }
  /// The table of the film that is open, null while it would have to be read. Whoever holds it may go on after the film
  /// has gone.
  std::shared_ptr<const SoundTable> Known();

  /// Begins to read the film that is open; it never waits. A run-time error when the decoder can't be started at once.
  void BeginReading();
  void StopReading();
  bool Reading() const { return question_ || child_; }
  /// Takes what the decoder has given. False when it is being read no longer: then it is known, or it couldn't be read.
  bool Poll();
  /// True when the film that was read, or is being read, is the one that is open.
  bool IsOfOpenFilm() const;

 private:
  bool TakeKept();
  void GoOn();
  void TakeAnswer();
  void StartDecoder();

  const DocumentState& document_;
  const Player& player_;
  const Files& files_;
  Processes* processes_;
  SoundStore* store_;
  Text film_;  ///< whose sound is in `table_` or is being read
  int track_ = -1;
  std::shared_ptr<SoundTable> table_;  ///< null until it is whole
  std::shared_ptr<SoundTable> growing_;
  TrackFacts facts_;  ///< of the track that is being read
  SampleBytes bytes_;
  std::unique_ptr<SoundMeasurer> measurer_;
  std::unique_ptr<TrackQuestion> question_;  ///< comes before the decoder
  std::unique_ptr<ChildProcess> child_;      ///< the decoder
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "audio/film_sound.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/files.h"
#include "core/ports/player.h"
#include "core/ports/processes.h"
#include "core/ports/sound_store.h"
#include "core/signal.h"
#include "shots/film_pictures.h"
#include "shots/shot_marks.h"

namespace cuewright {

/// The shots of the open film: found in the background once it has opened, with the marks that a hand set or took away.
/// What was measured is kept in the user's cache, so that another sensitivity and the next time need no reading; the
/// marks stand beside it.
class FilmShots {
 public:
  /// Without processes nothing is found, without a store nothing is kept.
  FilmShots(Workbench bench, Files& files, Processes* processes, SoundStore* store, const Player& player,
            const FilmSound& sound);

  /// The ms at which shots begin, in order.
  const std::vector<Ms>& Shots() const { return shots_; }
  bool Running() const { return pictures_ != nullptr; }
  /// Tells the shots with another sensitivity, in percent of the usual one.
  void SetSensitivity(int percent);
  /// Sets a mark or takes one away, at a time or where the film is; what it did and where.
  struct Marked {
    ShotMarks::Change change = ShotMarks::Change::Set;
    Ms ms = 0;
  };
  std::optional<Marked> Toggle(Ms ms);
  std::optional<Marked> ToggleAtFilm();

  /// The film goes; what is read of it stops at once.
  void ForgetFilm();

  /// The number of the picture that is shown at a time, from 0, and the ms at which a picture begins; none where the
  /// pictures weren't measured.
  std::optional<std::int32_t> PictureAt(Ms ms) const;
  std::optional<Ms> PictureBegins(std::int32_t picture) const;

  Signal<FilmShots> Changed;  ///< there are other shots

 private:
  void StartByItself();
  /// Takes over what is kept of the film that is open.
  void TakeUp();
  void Begin();
  void Stop();
  void Poll();
  void Finish(const FilmReading& reading);
  void ShowProgress();
  void Decide();
  void Keep(const Text& path, const std::string& bytes);
  std::string Kept(const Text& path) const;

  Workbench bench_;
  Files& files_;
  Processes* processes_;
  SoundStore* store_;
  const Player& player_;
  const FilmSound& sound_;
  std::unique_ptr<ShotMeasurer> measurer_;
  std::unique_ptr<FilmPictures> pictures_;
  Text film_;
  Text path_;  ///< of what is kept, without the ending; empty: nothing is
  std::vector<PictureMeasure> measures_;
  std::vector<Ms> found_;
  std::vector<Ms> shots_;
  ShotMarks marks_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <vector>

#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/ports/player.h"
#include "forms/recent_files.h"
#include "settings/store.h"

namespace cuewright {

/// Films and the subtitles that belong to them: those that were open together last, with the position at which the film
/// was left, else those of one name in one folder. A film opens its subtitle when nothing else is open, a subtitle
/// offers its film.
class FilmPairing {
 public:
  FilmPairing(Workbench bench, SettingsStore& store, const Files& files, Player& player, Messages& messages);

  /// A text or a film has come or gone: looks as soon as no file is read any more.
  void Look() { bench_.window.tmrPairs.SetEnabled(true); }
  /// Keeps what is open together, as one of them is about to go.
  void Remember();

  Signal<FilmPairing, FileKind, const Text&> Wanted;  ///< the other file is to be opened

 private:
  struct Pair {
    Text text;
    Text film;
    Ms ms = 0;
  };
  std::vector<Pair> Kept() const;
  void Keep(const std::vector<Pair>& pairs);
  /// Looks whether something has been opened since the last time.
  void Follow();
  void OnFilm();
  void OnText();
  Text TextBeside(const Text& film) const;
  Text FilmBeside(const Text& text) const;

  Workbench bench_;
  SettingsStore& store_;
  const Files& files_;
  Player& player_;
  Messages& messages_;
  Text film_;  ///< as they were at the last look
  Text text_;
  bool asking_ = false;
};

}  // namespace cuewright

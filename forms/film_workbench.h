#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "core/ports/player.h"
#include "forms/film_shots.h"

namespace cuewright {

/// What one does with the film besides playing it: going to a position that is typed, choosing its sound track, and
/// having it decoded by the graphics card. The classic manner has none of it.
class FilmWorkbench {
 public:
  FilmWorkbench(Workbench bench, Player& player, const FilmShots& shots, Messages& messages);

  /// The items follow what is open.
  void ShowItems();
  /// The ms of a position as one types it: a time, milliseconds, or the number of a frame; empty for any other text.
  std::optional<Ms> TypedPosition(TextView typed) const;

  Signal<FilmWorkbench> TrackChanged;  ///< another sound track of the same film is heard

 private:
  void GoToPosition();
  void ShowTracks();
  void ShowHardware();
  void FollowTrack();

  Workbench bench_;
  Player& player_;
  const FilmShots& shots_;
  Messages& messages_;
  std::vector<SoundTrack> tracks_;
  Text film_;       ///< whose track is known
  int track_ = -1;  ///< that was heard last
};

}  // namespace cuewright

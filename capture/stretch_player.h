#pragma once

#include <cstdint>
#include <optional>

#include "core/ms.h"
#include "core/ports/player.h"
#include "form/controls.h"

namespace cuewright {

/// Plays a stretch of the film and pauses at its end, or plays it again and again. Whatever else moves the film or
/// stops it ends that.
class StretchPlayer {
 public:
  /// The timer is enabled while a stretch plays.
  StretchPlayer(Player& player, Timer& timer);

  /// Seeks to `from` and plays up to `to`, in ms; nothing for an empty stretch.
  void Play(Ms from, Ms to);
  /// The same, again and again, whatever is set for other stretches.
  void Loop(Ms from, Ms to);
  /// Stretches begin again at their end.
  bool Repeats() const { return repeats_; }
  void SetRepeats(bool repeats) { repeats_ = repeats; }
  bool Playing() const { return stretch_.has_value(); }
  /// Ends the stretch; the film goes on or stays paused as it is.
  void Leave();

 private:
  struct Stretch {
    Ms from = 0;
    Ms to = 0;
    bool loops = false;
  };
  void Tick();
  void Begin();

  Player& player_;
  Timer& timer_;
  std::optional<Stretch> stretch_;
  bool repeats_ = false;
  bool seeking_ = false;  ///< the seek that is going on was asked for by this player
  Connection seeks_;
  Connection states_;
};

}  // namespace cuewright

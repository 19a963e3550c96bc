#pragma once

#include <cstdint>

#include "core/ms.h"

namespace cuewright {

/// Where the film was at the last look at the player, in ms: what everything that shows the position goes by. The
/// timing capture takes it anew each tick; a click into the wave sets it at once.
class PlayerSample {
 public:
  Ms PlayerPosMs() const { return ms_; }
  void SetPlayerPosMs(Ms ms) { ms_ = ms; }

 private:
  Ms ms_ = 0;
};

}  // namespace cuewright

#pragma once

#include <cstdint>

namespace cuewright {

/// Where the film was at the last look at the player, in ms: what everything that shows the position goes by. The
/// timing capture takes it anew each tick; a click into the wave sets it at once.
class PlayerSample {
 public:
  std::int32_t PlayerPosMs() const { return ms_; }
  void SetPlayerPosMs(std::int32_t ms) { ms_ = ms; }

 private:
  std::int32_t ms_ = 0;
};

}  // namespace cuewright

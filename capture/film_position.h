#pragma once

#include <cmath>
#include <cstdint>

#include "capture/main_window.h"
#include "core/ports/player.h"

namespace cuewright {

/// Where the film is, in ms; while a key or a button is handled, where it was at the instant at which that went down.
inline std::int32_t FilmPosition(const MainWindow& window, const Player& player) {
  const double seconds = window.inputInstant ? player.PositionAt(*window.inputInstant) : player.CurrentPosition();
  return static_cast<std::int32_t>(std::lround(seconds * 1000));
}

}  // namespace cuewright

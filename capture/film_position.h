#pragma once

#include "capture/main_window.h"
#include "core/ms.h"
#include "core/ports/player.h"

namespace cuewright {

/// Where the film is, in ms; while a key or a button is handled, where it was at the instant at which that went down.
inline Ms FilmPosition(const MainWindow& window, const Player& player) {
  const double seconds = window.inputInstant ? player.PositionAt(*window.inputInstant) : player.CurrentPosition();
  return Ms::OfSeconds(seconds);
}

}  // namespace cuewright

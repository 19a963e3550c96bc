#pragma once

#include "capture/main_window.h"
#include "core/ms.h"
#include "core/ports/player.h"

namespace cuewright {

/// Where the film is, in ms; while a key or a pointer's button is handled, where the film was at the instant when it
/// went down.
inline Ms FilmPosition(const MainWindow& window, const Player& player) {
  const double seconds = window.inputInstant ? player.PositionAt(*window.inputInstant) : player.CurrentPosition();
  return Ms::OfSeconds(seconds);
}

}  // namespace cuewright

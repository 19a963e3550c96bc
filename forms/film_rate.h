#pragma once

#include "core/frame_rate.h"
#include "core/ports/player.h"
#include "formats/format_state.h"

namespace cuewright {

/// The rate by which frames are counted: that of the film, where it isn't known that of the document's file, or none.
inline FrameRate FilmOrFileRate(const Player& player, const FormatState& formats) {
  const FrameRate film = player.FramesPerSecond();
  return film ? film : formats.CurrentFps;
}

}  // namespace cuewright

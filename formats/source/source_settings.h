#pragma once

#include <array>
#include <cstdint>

#include "core/frame_rate.h"
#include "text/text.h"

namespace cuewright {

/// What the rules of a format need to know beside the file.
struct SourceSettings {
  /// For captions that have a start alone: ms that one of their characters may be seen, in short, medium and long ones.
  std::array<std::int16_t, 3> durationPerCharacter = {250, 120, 50};
  /// Of files that count frames and don't tell.
  FrameRate rate = 25.0;
  /// Which of several languages or classes of captions in one file is read; empty: the first.
  Text captionClass;
};

}  // namespace cuewright

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/ports/video_frames.h"

namespace cuewright {

/// How a player is set up.
struct MpvPlayerOptions {
  VideoOutput output = VideoOutput::Software;
  /// Options of the library, by name and value, that come on top of the player's own.
  std::vector<std::pair<std::string, std::string>> extra{};

  /// Takes options of the library from the environment variable CUEWRIGHT_MPV_OPTIONS: "name=value" items with
  /// blanks between, for diagnosis and measurements.
  static MpvPlayerOptions FromEnvironment();
};

}  // namespace cuewright

#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/ports/processes.h"
#include "sound/sound_table.h"
#include "text/text.h"

namespace cuewright {

/// What a synthesiser makes of the captions' texts.
struct SpokenCaptions {
  std::vector<SoundTable> words;  ///< as many as there are texts, or none
  std::string problem;            ///< why there are none
};

/// Has espeak-ng speak the texts, a portion at a time, so that few samples are held at once.
SpokenCaptions SpeakCaptions(Processes& processes, const Text& language, std::span<const Text> texts);

}  // namespace cuewright

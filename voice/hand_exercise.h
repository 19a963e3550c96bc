#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/caption_list.h"
#include "core/ports/processes.h"
#include "text/text.h"

namespace cuewright {

/// Twenty numbers to hold captions for: what a person's hand is measured by.
struct HandExercise {
  std::vector<Text> lines;          ///< the numbers, as they are read
  std::vector<CaptionTimes> truth;  ///< when each is said, in ms
  std::string wave;                 ///< the sound, as the bytes of a wave file
  bool spoken = false;              ///< true: a voice says the numbers; false: tones stand for them
};

/// Has espeak-ng speak the numbers; where it can't be started, tones stand for them. `processes` may be null.
HandExercise MakeHandExercise(Processes* processes, const Text& language);

/// Samples of one channel with 16 bits as a wave file.
std::string WaveFileOf(std::span<const std::int16_t> samples, int samplesASecond);

}  // namespace cuewright

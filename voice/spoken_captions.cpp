#include "voice/spoken_captions.h"

#include <algorithm>

#include "voice/spoken_text.h"

namespace cuewright {

SpokenCaptions SpeakCaptions(Processes& processes, const Text& language, std::span<const Text> texts) {
  constexpr std::size_t kAtOnce = 64;
  SpokenCaptions spoken;
  TextSpeaker speaker(processes, language);
  for (std::size_t first = 0; first < texts.size(); first += kAtOnce) {
    const SpokenLines lines = speaker.Speak(texts.subspan(first, std::min(kAtOnce, texts.size() - first)));
    if (!lines.problem.empty()) return {{}, lines.problem};
    for (const std::vector<std::int16_t>& line : lines.lines) {
      spoken.words.push_back(TableOfSamples(line, lines.samplesASecond));
    }
  }
  return spoken;
}

}  // namespace cuewright

#include "voice/fit_film.h"

#include <algorithm>

#include "sound/film_samples.h"
#include "sound/sound_measurer.h"
#include "voice/spoken_text.h"

namespace cuewright {

HeardFilm HearFilm(Processes& processes, TextView film) {
  HeardFilm heard;
  SoundMeasurer measurer(heard.sound, kSamplesASecond);
  const SoundReading reading = ReadSamples(
      processes, film, -1, [&](std::span<const std::int16_t> samples) { measurer.Add(samples); },
      [](double) { return true; });
  measurer.Finish();
  heard.problem = reading.problem;
  return heard;
}

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

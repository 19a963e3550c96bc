#include "batch/film_sound.h"

#include "core/process_output.h"
#include "platform/child_processes.h"
#include "sound/film_samples.h"
#include "sound/sound_measurer.h"

namespace cuewright {

bool IsFilm(const Text& name) {
  PosixProcesses processes;
  const std::string kinds = OutputOf(
      processes, u"ffprobe",
      {u"-v", u"quiet", u"-show_entries", u"stream=codec_type,codec_name", u"-of", u"csv=p=0", u"-i", u"file:" + name});
  const auto has = [&](const char* word) { return kinds.find(word) != std::string::npos; };
  // Some versions of FFmpeg read plain text as a film of a terminal.
  return has("audio") || (has("video") && !has("ansi"));
}

Text ReadSoundTable(const Text& film, SoundTable& sound) {
  PosixProcesses processes;
  TrackFacts facts = FactsOf(processes, film, -1);
  SoundReading reading;
  do {
    sound.Clear();
    SoundMeasurer measurer(sound, kSamplesASecond);
    reading = ReadSamples(
        processes, film, -1, facts, [&](std::span<const std::int16_t> samples) { measurer.Add(samples); },
        [](double) { return true; });
    measurer.Finish();
  } while (reading.problem.empty() && CentreWasStill(facts, sound));
  return FromUtf8(reading.problem);
}

}  // namespace cuewright

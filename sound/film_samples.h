#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/ports/processes.h"
#include "sound/sound_table.h"
#include "text/text.h"

namespace cuewright {

/// The rate of the samples that a film's sound is read with. Half of what most films have is the cheapest to make.
constexpr int kSamplesASecond = 24000;

/// What came of reading a film's sound.
struct SoundReading {
  std::string problem;  ///< why the sound wasn't read whole; empty when it was
  bool cancelled = false;
};

/// What has to be known of a sound track before it is decoded.
struct TrackFacts {
  /// It has a centre channel of its own, which holds the voices of most films.
  bool centre = false;
  /// The film's first instant is known without a look at its other tracks.
  bool ownStart = false;
};

/// Asks FFmpeg about a sound track of a film (-1: the first), which takes a while on a slow disk.
class TrackQuestion {
 public:
  TrackQuestion(Processes& processes, TextView film, int track);

  /// The answer; empty while there is none yet. It never waits. Where FFmpeg can't be asked nothing is known.
  std::optional<TrackFacts> Answer();

 private:
  std::unique_ptr<ChildProcess> child_;
  std::string told_;
};

/// Asks FFmpeg about a sound track of a film and waits for the answer.
TrackFacts FactsOf(Processes& processes, TextView film, int track);

/// The decoder's arguments for one sound track of a film (-1: the first) as one channel, silence where it begins late,
/// so that the first sample is the film's first instant. Of a track with a centre channel that one alone is taken. The
/// samples go to the decoder's output, with 16 bits, the low byte first.
std::vector<Text> SamplesArguments(TextView film, int track, const TrackFacts& facts);
/// The same samples as a wave file.
std::vector<Text> WaveArguments(TextView film, int track, const TrackFacts& facts, TextView wave);

/// True when a centre channel was read and nothing is in it, as in films whose voices stand on both sides: the track is
/// to be read again then, for which the facts tell of no centre any more.
bool CentreWasStill(TrackFacts& facts, const SoundTable& read);

/// Puts samples together from a decoder's output, which may end within one.
class SampleBytes {
 public:
  /// The samples in what came before and these bytes; they hold until the next call.
  std::span<const std::int16_t> Take(std::string_view bytes);

 private:
  std::vector<std::int16_t> samples_;
  std::string half_;
};

/// Reads the samples of a film's sound by FFmpeg, from the film's first instant to the end of the track (-1: the first
/// one), as one channel. `goOn` is asked about ten times a second with the seconds so
/// far; false gives up.
SoundReading ReadSamples(Processes& processes, TextView film, int track, const TrackFacts& facts,
                         const std::function<void(std::span<const std::int16_t>)>& take,
                         const std::function<bool(double)>& goOn);

}  // namespace cuewright

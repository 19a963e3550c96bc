// Reads the sound of a film as the Audio bar does: the decoder writes the wave, the samples that it gives are measured
// as they come, and the wave is read into peaks of 1 ms. Prints the processor time of all of it, as a ratio to that of
// FFmpeg decoding the track into nothing: the least of some rounds of each, in turns.
//
// bench_film_sound FILM WAVE [ROUNDS]

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "audio/wave_detail_reader.h"
#include "platform/child_processes.h"
#include "platform/posix_files.h"
#include "sound/film_samples.h"
#include "sound/sound_measurer.h"

namespace {

using namespace cuewright;

double SecondsOf(int who) {
  rusage usage{};
  getrusage(who, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Processor time of this process and of the programs that it has waited for.
double Spent() { return SecondsOf(RUSAGE_SELF) + SecondsOf(RUSAGE_CHILDREN); }

bool Run(const std::vector<Text>& arguments, SoundMeasurer& measurer) {
  PosixProcesses processes;
  const auto child = processes.Start(u"ffmpeg", arguments);
  SampleBytes bytes;
  std::optional<int> status;
  while (!status) {
    child->Wait(100);
    status = child->Ended();
    measurer.Add(bytes.Take(child->TakeOutput()));
  }
  measurer.Finish();
  return *status == 0;
}

bool ReadPeaks(const Text& wave) {
  PosixFiles files;
  WavePyramid peaks;
  WaveDetailReader reader(peaks);
  reader.Begin(files.OpenToRead(wave));
  while (reader.Read(1 << 20) == WaveDetailReader::Result::Read) {
  }
  reader.Finish();
  return peaks.Length() > 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const Text film = FromUtf8(argv[1]);
  const Text wave = FromUtf8(argv[2]);
  PosixProcesses processes;
  const std::vector<Text> whole = SamplesArguments(film, -1, HasCentre(processes, film, -1), wave);
  const std::vector<Text> decode = {u"-nostdin", u"-v", u"error", u"-i", film, u"-map", u"0:a:0", u"-f", u"null", u"-"};
  double decoding = std::numeric_limits<double>::max();
  double reading = decoding;
  double ours = decoding;
  for (int round = argc > 3 ? std::atoi(argv[3]) : 5; round > 0; --round) {
    SoundTable table;
    SoundMeasurer measurer(table, kSamplesASecond);
    const double begun = Spent();
    if (!Run(decode, measurer)) return 1;
    decoding = std::min(decoding, Spent() - begun);
    const double between = Spent();
    const double self = SecondsOf(RUSAGE_SELF);
    if (!Run(whole, measurer) || !ReadPeaks(wave)) return 1;
    reading = std::min(reading, Spent() - between);
    ours = std::min(ours, SecondsOf(RUSAGE_SELF) - self);
  }
  std::printf("decoding %.2f s; wave, table and peaks %.2f s, %.2f times that; %.2f s of it outside the decoder\n",
              decoding, reading, reading / decoding, ours);
  return 0;
}

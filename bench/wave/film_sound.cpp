// Reads the sound of a film as the Audio bar does: the decoder is asked about the track, it writes the wave, and that
// is read into peaks of 1 ms and a table while it grows. Prints the processor time of all of it, and the time on the
// clock, as ratios to those of FFmpeg decoding the track into nothing: the least of some rounds of each, in turns. The
// wave is removed first.
//
// bench_film_sound FILM WAVE [ROUNDS]

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <thread>

#include "audio/wave_detail_reader.h"
#include "platform/child_processes.h"
#include "platform/posix_files.h"
#include "sound/film_samples.h"
#include "sound/sound_table.h"

namespace {

using namespace cuewright;

/// How often the window takes samples.
constexpr std::chrono::milliseconds kTick{10};

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

double Clock() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

/// What is made of a wave that a decoder writes, read as far as it has.
class Wave {
 public:
  explicit Wave(Text file) : file_(std::move(file)) {}

  void Follow() {
    if (!reader_.Open() && files_.Exists(file_)) {
      reader_.Begin(files_.OpenToRead(file_));
      reader_.Measure(table_);
    }
    while (reader_.Open() && reader_.Read(1 << 20) == WaveDetailReader::Result::Read) {
    }
  }
  /// True when there are peaks and steps of the table.
  bool Finish() {
    reader_.Finish();
    return peaks_.Length() > 0 && table_.Steps() > 0;
  }

 private:
  Text file_;
  PosixFiles files_;
  WavePyramid peaks_;
  SoundTable table_;
  WaveDetailReader reader_{peaks_};
};

bool Run(const std::vector<Text>& arguments, Wave* wave) {
  PosixProcesses processes;
  const auto child = processes.Start(u"ffmpeg", arguments);
  std::optional<int> status;
  while (!status) {
    // The window's timer takes what has come, and looks once more when the decoder has ended.
    std::this_thread::sleep_for(kTick);
    status = child->Ended();
    if (wave != nullptr) wave->Follow();
  }
  return *status == 0 && (wave == nullptr || wave->Finish());
}

/// The least of what some rounds took, in seconds.
struct Least {
  double processor = std::numeric_limits<double>::max();
  double own = std::numeric_limits<double>::max();  ///< of that, outside the decoder
  double elapsed = std::numeric_limits<double>::max();

  template <class Work>
  bool Measure(const Work& work) {
    const double spent = Spent(), self = SecondsOf(RUSAGE_SELF), clock = Clock();
    const bool done = work();
    processor = std::min(processor, Spent() - spent);
    own = std::min(own, SecondsOf(RUSAGE_SELF) - self);
    elapsed = std::min(elapsed, Clock() - clock);
    return done;
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const Text film = FromUtf8(argv[1]);
  const Text wave = FromUtf8(argv[2]);
  PosixProcesses processes;
  const std::vector<Text> decode = {u"-nostdin", u"-v", u"error", u"-i", film, u"-map", u"0:a:0", u"-f", u"null", u"-"};
  Least decoding, reading;
  for (int round = argc > 3 ? std::atoi(argv[3]) : 5; round > 0; --round) {
    if (!decoding.Measure([&] { return Run(decode, nullptr); })) return 1;
    std::remove(argv[2]);
    const bool read = reading.Measure([&] {
      Wave file(wave);
      return Run(WaveArguments(film, -1, FactsOf(processes, film, -1), wave), &file);
    });
    if (!read) return 1;
  }
  std::printf("processor: decoding %.2f s; wave, table and peaks %.2f s, %.2f times that; %.2f s outside the decoder\n",
              decoding.processor, reading.processor, reading.processor / decoding.processor, reading.own);
  std::printf("elapsed: decoding %.2f s; wave, table and peaks %.2f s, %.2f times that\n", decoding.elapsed,
              reading.elapsed, reading.elapsed / decoding.elapsed);
  return 0;
}

// Compares cuewright-batch with other converters as whole processes: processor time and peak memory of each,
// interleaved in one run over the same generated file.
//
// formats_whole_process BIN_FOLDER WORK_FOLDER [ROUNDS]
// BIN_FOLDER holds cuewright-batch and formats_floor. WORK_FOLDER is filled with the files; when it has
// node_modules/subsrt-ts, that converter takes part. FFmpeg takes part when it is installed.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/formats/captions.h"

extern char** environ;

namespace cuewright::bench {
namespace {

constexpr int kCaptions = 32000;
constexpr double kPeerTarget = 12;
constexpr double kFloorTarget = 1.5;
constexpr long kMemoryTargetKiB = 24 * 1024;

using Command = std::vector<std::string>;

struct Run {
  double ms = 0;
  long peakKiB = 0;
  bool ok = false;
};

double MsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

Run RunOnce(const Command& command) {
  std::vector<char*> argv;
  for (const std::string& argument : command) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions{};
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  Run run;
  pid_t pid = 0;
  if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ) == 0) {
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    run.ms = MsOf(usage.ru_utime) + MsOf(usage.ru_stime);
    run.peakKiB = usage.ru_maxrss;
    run.ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  posix_spawn_file_actions_destroy(&actions);
  return run;
}

struct Format {
  std::string_view identifier;  ///< in our catalogue
  std::string_view extension;   ///< also the name that the others know it by
};
constexpr Format kSubRip{"SUBRIP", "srt"};
constexpr Format kSubStation{"SUBSTATIONALPHA", "ssa"};
constexpr Format kWebVtt{"WEBVTT", "vtt"};
constexpr Format kSami{"SAMI", "smi"};
constexpr Format kMicroDvd{"MICRODVD", "sub"};
constexpr Format kTtml{"TTML", "xml"};

struct Conversion {
  Format from;
  Format to;
};
constexpr std::array kConversions = {
    Conversion{kSubRip, kSubStation}, Conversion{kSubRip, kSubRip}, Conversion{kSubRip, kMicroDvd},
    Conversion{kSubStation, kSubRip}, Conversion{kWebVtt, kSubRip}, Conversion{kSami, kSubRip},
    Conversion{kMicroDvd, kSubRip},   Conversion{kTtml, kSubRip},
};

struct Folders {
  std::string bin;
  std::string work;
  std::string Input(const Format& format) const { return work + "/input." + std::string(format.extension); }
};

Command Ours(const Folders& folders, const Conversion& c, const std::string& out) {
  return {folders.bin + "/cuewright-batch",
          "convert",
          folders.Input(c.from),
          "--to",
          std::string(c.to.identifier),
          "--out",
          out};
}

struct Contestant {
  std::string name;
  std::string output;
  Command command;
  std::vector<double> ms;
  long peakKiB = 0;
  bool ok = true;
};

bool Exists(const std::string& path) { return access(path.c_str(), R_OK) == 0; }

/// Ours first, the floor second, then the peers that can do this conversion.
std::vector<Contestant> ContestantsOf(const Folders& folders, const Conversion& c) {
  const std::string out = folders.work + "/output-";
  const std::string end = "." + std::string(c.to.extension);
  const std::string from(c.from.extension);
  const std::string to(c.to.extension);
  const std::string input = folders.Input(c.from);
  std::vector<Contestant> list;
  const auto add = [&](const std::string& name, const auto& commandFor) {
    const std::string output = out + name + end;
    list.push_back({name, output, commandFor(output), {}, 0, true});
  };
  add("cuewright-batch", [&](const std::string& output) { return Ours(folders, c, output); });
  add("floor", [&](const std::string& output) {
    return Command{folders.bin + "/formats_floor", from, to, input, output};
  });
  // FFmpeg reads MicroDVD but can't encode it. It doesn't read TTML, and gets the same captions in SubRip instead.
  const std::string peerInput = c.from.extension == kTtml.extension ? folders.Input(kSubRip) : input;
  if (c.to.extension != kMicroDvd.extension) {
    add("ffmpeg", [&](const std::string& output) {
      return Command{"ffmpeg", "-nostdin", "-v", "error", "-y", "-i", peerInput, output};
    });
  }
  const std::string script = folders.work + "/node_modules/subsrt-ts/bin/subsrt.js";
  if (Exists(script) && peerInput == input) {
    add("subsrt-ts", [&](const std::string& output) { return Command{"node", script, "convert", input, output}; });
  }
  return list;
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void PrintRow(const Contestant& one, double oursMs, bool isFloor) {
  if (!one.ok) {
    std::printf("  %-16s failed\n", one.name.c_str());
    return;
  }
  const double median = Median(one.ms);
  std::printf("  %-16s %8.1f ms (best %.1f) %7.1f MiB", one.name.c_str(), median, *std::ranges::min_element(one.ms),
              static_cast<double>(one.peakKiB) / 1024);
  if (isFloor) {
    std::printf("   ours takes %.2f times this (at most %.1f): %s", oursMs / median, kFloorTarget,
                oursMs <= kFloorTarget * median ? "met" : "MISSED");
  } else if (median != oursMs) {
    std::printf("   ours is %.1f times faster (at least %.0f): %s", median / oursMs, kPeerTarget,
                median >= kPeerTarget * oursMs ? "met" : "MISSED");
  } else {
    std::printf("   (at most %ld MiB: %s)", kMemoryTargetKiB / 1024,
                one.peakKiB <= kMemoryTargetKiB ? "met" : "MISSED");
  }
  std::printf("\n");
}

void Compare(const Folders& folders, const Conversion& c, int rounds) {
  std::vector<Contestant> list = ContestantsOf(folders, c);
  for (int round = -1; round < rounds; ++round) {  // the first one only warms the caches
    for (Contestant& one : list) {
      ::unlink(one.output.c_str());  // everyone writes a new file
      const Run run = RunOnce(one.command);
      one.ok = one.ok && run.ok;
      if (round < 0) continue;
      one.ms.push_back(run.ms);
      one.peakKiB = std::max(one.peakKiB, run.peakKiB);
    }
  }
  std::printf("%s to %s\n", c.from.identifier.data(), c.to.identifier.data());
  const double oursMs = Median(list.front().ms);
  for (std::size_t i = 0; i < list.size(); ++i) PrintRow(list[i], oursMs, i == 1);
  std::fflush(stdout);
}

/// Writes the generated SubRip file, and its other forms with our own program.
bool MakeInputs(const Folders& folders) {
  const std::string bytes = MakeSubRip(kCaptions);
  std::ofstream(folders.Input(kSubRip), std::ios::binary) << bytes;
  std::printf("%d captions, %.2f MB\n", kCaptions, static_cast<double>(bytes.size()) / 1e6);
  for (const Format& format : {kSubStation, kWebVtt, kSami, kMicroDvd, kTtml}) {
    if (!RunOnce(Ours(folders, {kSubRip, format}, folders.Input(format))).ok) {
      std::printf("cuewright-batch could not write %s\n", format.identifier.data());
      return false;
    }
  }
  return true;
}

}  // namespace
}  // namespace cuewright::bench

int main(int argc, char** argv) {
  using namespace cuewright::bench;
  if (argc < 3) {
    std::fprintf(stderr, "usage: formats_whole_process BIN_FOLDER WORK_FOLDER [ROUNDS]\n");
    return 2;
  }
  const Folders folders{argv[1], argv[2]};
  const int rounds = argc > 3 ? std::max(1, std::atoi(argv[3])) : 9;
  if (!MakeInputs(folders)) return 1;
  for (const Conversion& conversion : kConversions) Compare(folders, conversion, rounds);
  return 0;
}

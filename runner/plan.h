#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "runner/script.h"

namespace cuewright {

/// The program that does the work, looked for as a shell does.
inline constexpr TextView kFfmpeg = u"ffmpeg";

/// The quantizer that films are written with, from 1 (best, largest file) to 31.
inline constexpr int kDefaultQuantizer = 4;

/// How a job is carried out; the later ways are fallbacks for films or systems on which the first one fails.
struct JobWay {
  bool plainEncoder = false;    ///< FFmpeg's own MPEG-4 encoder in place of XviD's
  bool soundDecoded = false;    ///< the sound becomes samples, since the file can't hold it, or its times, as it is
  bool otherContainer = false;  ///< wave: Matroska in place of wave, which can't hold the sound as it is
  int quantizer = kDefaultQuantizer;
  std::optional<std::int64_t>
      duration;  ///< of the film in ms; must be set where the job leaves out something at the end
};

/// FFmpeg's arguments for a job. `part` is the file to write. The subtitle of filter number i is read from
/// "subtitle<i>.ssa" in the working folder. Each name of a file is protected against being read as anything else.
std::vector<Text> FfmpegArguments(const RunJob& job, const JobWay& way, const Text& part);

/// The same for telling about a film: its length comes as `FfmpegLog::Duration`.
std::vector<Text> ProbeArguments(const Text& film);

/// The same for the times of its sound, as `SoundTimes` reads them.
std::vector<Text> SoundTimesArguments(const Text& film);

/// The name of the file in the working folder from which filter number `at` draws its subtitle.
std::string SubtitleName(std::size_t at);

/// The length in ms of the file that a job writes from a film of `duration` ms; never below 0.
std::int64_t LengthOf(const RunJob& job, std::int64_t duration);

/// Follows what FFmpeg writes: its progress and its log, in pieces of any size.
class FfmpegLog {
 public:
  void TakeOutput(std::string_view bytes);
  void TakeErrors(std::string_view bytes);

  /// The film's length in ms; empty while it isn't known.
  std::optional<std::int64_t> Duration() const { return duration_; }
  /// How much of the result is written, in ms.
  std::int64_t Done() const { return done_; }
  /// True when FFmpeg did not write everything, whatever its exit status says: a full disk shows here alone.
  bool CutOff() const { return cutOff_; }
  /// FFmpeg's last 20 errors, each on a line of its own.
  const std::vector<std::string>& Errors() const { return errors_; }
  /// True when one of the errors holds the text.
  bool Says(std::string_view text) const;

 private:
  void TakeLogLine(std::string_view line);

  std::string output_;
  std::string log_;
  std::optional<std::int64_t> duration_;
  std::int64_t done_ = 0;
  bool cutOff_ = false;
  std::vector<std::string> errors_;
};

}  // namespace cuewright

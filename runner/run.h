#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "core/ports/output_files.h"
#include "core/ports/processes.h"
#include "runner/plan.h"
#include "runner/script.h"
#include "runner/sound_times.h"

namespace cuewright {

/// What `ScriptRun` works on.
struct RunParts {
  Files& files;
  Processes& processes;
  OutputFiles& outputs;
  int systemCodePage = 1252;          ///< of subtitle files that name no code page themselves
  int quantizer = kDefaultQuantizer;  ///< of the films that are written
  std::function<bool()> cancelled{};  ///< true once the user wants no more; empty: never
};

/// Carries out the jobs of a script, one after the other, by FFmpeg. A file appears at its target once it is whole; a
/// run that fails or is destroyed leaves no unfinished file.
class ScriptRun {
 public:
  /// There must be at least one job.
  ScriptRun(RunParts parts, std::vector<RunJob> jobs);
  ~ScriptRun();
  ScriptRun(const ScriptRun&) = delete;
  ScriptRun& operator=(const ScriptRun&) = delete;

  enum class State { Running, Done, Failed, Cancelled };

  /// Goes on with the work; waits for at most `waitMs` when there is nothing to do yet. Once the run is cancelled
  /// nothing more is started, and nothing that ends then is kept.
  State Step(int waitMs);

  /// How much of all jobs is done, 0 to 1; empty while that can't be told.
  std::optional<double> Fraction() const;
  /// The file in work, or the last one.
  const Text& Target() const;
  /// Notes for the user that are no failures; each is returned once.
  std::vector<std::string> TakeNotes();
  /// Why the run failed, a sentence.
  const std::string& Failure() const { return failure_; }
  /// The line of the job that failed.
  int FailedLine() const;

 private:
  void StartJob();
  void StartFfmpeg();
  void WriteSubtitles();
  void Start(const std::vector<Text>& arguments);
  void StartNext();
  void StartProbe();
  void StartSoundProbe();
  void TakeAll();
  State EndFfmpeg(int status);
  bool TryAnotherWay();
  State FinishJob();
  State Fail(std::string why);
  bool Cancelled() const { return p_.cancelled && p_.cancelled(); }
  void DropWork();
  std::string ReasonOf(int status) const;

  RunParts p_;
  std::vector<RunJob> jobs_;
  std::size_t at_ = 0;
  JobWay way_;
  bool started_ = false;
  enum class Stage { Length, Sound, Work };
  Stage stage_ = Stage::Work;
  SoundTimes times_;
  FfmpegLog log_;
  std::unique_ptr<WorkFolder> folder_;
  std::unique_ptr<OutputFile> part_;
  std::unique_ptr<ChildProcess> child_;
  std::vector<std::string> notes_;
  std::string failure_;
};

}  // namespace cuewright

#pragma once

#include <vector>

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "core/ports/processes.h"
#include "forms/film_voice.h"
#include "forms/fit_job.h"
#include "forms/fit_marks.h"
#include "forms/house_check.h"
#include "forms/notices.h"
#include "forms/voice_search.h"

namespace cuewright {

/// The commands that move captions to where the open film's voice begins and ends. The sound is read and searched in
/// the background; then all captions move in one step, but for those that were changed meanwhile.
class VoiceFitting {
 public:
  VoiceFitting(Workbench bench, FilmVoice& voice, FitMarks& marks, const HouseCheck& check, Notices& notices,
               Messages& messages);

  /// Programs by which words are spoken; null: none can be started.
  void UseProcesses(Processes* processes) { processes_ = processes; }
  /// The menu shows the commands where the manner in force has them and films can be read.
  void ShowItems();

 private:
  void Start(bool all);
  void Finish(const FitFound& found);
  void Move(const FitResult& result);
  void TellOf(FitProblem problem);
  /// In the strip, or in a box where nobody would see that.
  void Tell(Message message, TextView first = {}, TextView second = {});

  Workbench bench_;
  FilmVoice& voice_;
  FitMarks& marks_;
  const HouseCheck& check_;
  Notices& notices_;
  Messages& messages_;
  Processes* processes_ = nullptr;
  FitJob job_;                        ///< the captions when the command was given
  std::vector<CaptionTimes> before_;  ///< their times then
  VoiceSearch<FitFound> search_;      ///< goes first: it uses what stands above
};

}  // namespace cuewright

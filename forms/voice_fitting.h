#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <vector>

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "core/ports/player.h"
#include "core/ports/processes.h"
#include "forms/notices.h"
#include "sound/film_samples.h"
#include "sound/sound_measurer.h"
#include "sound/sound_table.h"
#include "voice/fit.h"

namespace cuewright {

/// The commands that move captions to where the open film's voice begins and ends. The sound is read and searched in
/// the background; then all captions move in one step, but for those that were changed meanwhile.
class VoiceFitting {
 public:
  VoiceFitting(Workbench bench, Processes* processes, const Player& player, Notices& notices, Messages& messages);
  ~VoiceFitting();

  /// The menu shows the commands where the manner in force has them and films can be read.
  void ShowItems();

 private:
  void Start(bool all);
  void StartReading();
  void Poll();
  void PollReading();
  void Search();
  void Finish();
  void Stop();
  void Move(const FitResult& result);
  void TellOf(FitProblem problem);
  /// In the strip, or in a box where nobody would see that.
  void Tell(Message message, TextView first = {}, TextView second = {});

  Workbench bench_;
  Processes* processes_;
  const Player& player_;
  Notices& notices_;
  Messages& messages_;
  Text film_;  ///< whose sound is in `sound_` or is being read
  SoundTable sound_;
  bool whole_ = false;             ///< `sound_` has all of it
  int track_ = -1;                 ///< the one that it is of
  std::vector<HeldCaption> held_;  ///< the captions when the command was given
  SampleBytes bytes_;
  std::unique_ptr<SoundMeasurer> measurer_;
  std::unique_ptr<ChildProcess> child_;
  std::atomic<bool> giveUp_ = false;
  std::future<FitResult> search_;  ///< goes first: it uses what stands above
};

}  // namespace cuewright

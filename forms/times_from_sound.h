#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "core/ports/processes.h"
#include "forms/film_voice.h"
#include "forms/fit_marks.h"
#include "forms/notices.h"
#include "forms/voice_search.h"
#include "voice/align.h"

namespace cuewright {

/// The command that gives every line of the text its times by the sound of the open film alone. It works in the
/// background, tells how far it is and can be ended by the same command; then all lines get their times in one step.
/// Doubtful ones are marked, for the person to hold.
class TimesFromSound {
 public:
  TimesFromSound(Workbench bench, FilmVoice& voice, FitMarks& marks, Notices& notices, Messages& messages);

  /// Programs by which lines are spoken; null: none can be started.
  void UseProcesses(Processes* processes) { processes_ = processes; }
  void ShowItem();

 private:
  struct Found {
    std::vector<AlignedLine> lines;
    std::string problem;
  };

  void Click();
  void Start();
  Found Run(const SoundTable& sound) const;
  void Finish(const Found& found);
  void Take(const std::vector<AlignedLine>& lines);
  void ShowProgress();
  void Tell(Message message, TextView first = {}, TextView second = {});

  Workbench bench_;
  FilmVoice& voice_;
  FitMarks& marks_;
  Notices& notices_;
  Messages& messages_;
  Processes* processes_ = nullptr;
  Text language_;
  std::vector<Text> texts_;
  std::optional<std::size_t> shown_;  ///< the hundredths that the strip tells
  mutable std::atomic<std::size_t> done_ = 0;
  VoiceSearch<Found> search_;  ///< goes first: it uses what stands above
};

}  // namespace cuewright

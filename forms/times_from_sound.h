#pragma once

#include <atomic>
#include <cstddef>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "core/ports/processes.h"
#include "forms/film_voice.h"
#include "forms/fit_marks.h"
#include "forms/notices.h"
#include "voice/align.h"

namespace cuewright {

/// The command that gives every line of the text its times by the sound of the open film alone. It works in the
/// background, tells how far it is and can be ended by the same command; then all lines get their times in one step.
/// Doubtful ones are marked, for the person to hold.
class TimesFromSound {
 public:
  TimesFromSound(Workbench bench, FilmVoice& voice, FitMarks& marks, Notices& notices, Messages& messages);
  ~TimesFromSound();

  /// Programs by which lines are spoken; null: none can be started.
  void UseProcesses(Processes* processes) { processes_ = processes; }
  void ShowItem();

 private:
  /// What is done in the background, and what comes of it.
  struct Job {
    std::shared_ptr<const SoundTable> sound;
    std::vector<Text> texts;
    Text language;
  };
  struct Found {
    std::vector<AlignedLine> lines;
    std::string problem;
  };

  void Click();
  void Start();
  void Stop();
  void Poll();
  void Search();
  Found Run() const;
  void Finish();
  void Take(const std::vector<AlignedLine>& lines);
  void ShowProgress();
  void Tell(Message message, TextView first = {}, TextView second = {});

  Workbench bench_;
  FilmVoice& voice_;
  FitMarks& marks_;
  Notices& notices_;
  Messages& messages_;
  Processes* processes_ = nullptr;
  Text film_;
  Job job_;
  int shown_ = -1;  ///< the hundredths that the strip tells
  mutable std::atomic<std::size_t> done_ = 0;
  std::atomic<bool> giveUp_ = false;
  std::future<Found> search_;  ///< goes first: it uses what stands above
};

}  // namespace cuewright

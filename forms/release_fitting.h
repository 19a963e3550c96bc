#pragma once

#include <atomic>
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "forms/film_voice.h"
#include "forms/fit_job.h"
#include "forms/fit_marks.h"
#include "forms/house_check.h"
#include "forms/notices.h"

namespace cuewright {

/// Fits captions to the voice after they were held by hand. The times of the hand are stored first, as they were; what
/// is found comes as a step of its own, between two holds. Where the film's sound isn't known the captions move by the
/// person's constant lateness, if that was measured or told.
class ReleaseFitting {
 public:
  ReleaseFitting(Workbench bench, TimingCapture& capture, FilmVoice& voice, FitMarks& marks, const HouseCheck& check,
                 Notices& notices);
  ~ReleaseFitting();

  /// Programs by which words are spoken; null: none can be started.
  void UseProcesses(Processes* processes) { processes_ = processes; }
  /// The menu shows the setting where the manner in force has it.
  void ShowItems();
  /// While the hand is measured nothing is fitted.
  void Rest(bool on) { rests_ = on; }
  /// A document comes or goes: what is being found isn't for it.
  void Forget();
  /// The document goes and was not thrown away: the fits that it was left with tell how late the hand is.
  void Learn();

 private:
  void OnHeld(Row row);
  void Poll();
  void Begin();
  void Finish();
  void MoveByConstant();
  /// The captions that wait for a fit, in order of their rows.
  std::vector<Row> Waiting() const;
  void StopWaiting();
  void TellOnce(Message message, TextView first = {});

  Workbench bench_;
  TimingCapture& capture_;
  FilmVoice& voice_;
  FitMarks& marks_;
  const HouseCheck& check_;
  Notices& notices_;
  Processes* processes_ = nullptr;
  bool rests_ = false;
  std::shared_ptr<const SoundTable> heard_;  ///< the sound that `learned_` is of
  FitMemory learned_;                        ///< in the fits before, so that a single hold costs little
  std::vector<Message> told_;                ///< what the strip has told of this document
  std::vector<std::uint64_t> numbers_;       ///< of the holds in the job, 0 for captions that only tell of the voice
  FitJob job_;
  std::atomic<bool> giveUp_ = false;
  std::future<FitFound> search_;  ///< goes first: it uses what stands above
};

}  // namespace cuewright

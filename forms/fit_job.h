#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/caption_list.h"
#include "core/ports/processes.h"
#include "forms/fit_marks.h"
#include "sound/sound_table.h"
#include "voice/fit.h"

namespace cuewright {

/// All that a fit in the background works on: nothing of it changes meanwhile.
struct FitJob {
  std::shared_ptr<const SoundTable> sound;
  std::vector<HeldCaption> held;
  std::vector<Text> texts;  ///< of the captions, empty for those that aren't wanted
  Text language;            ///< that they are spoken in; empty: their words are of no use
  FitChoice choice;
};

/// What came of it.
struct FitFound {
  FitResult result;
  std::string wordsProblem;  ///< why the words weren't used though a language was told
};

/// Fits by the sound, and by the words where they can be spoken.
FitFound RunFit(const FitJob& job, Processes& processes);

/// Adds a caption to a job.
void AddToJob(FitJob& job, const CaptionList& list, Row row, const CaptionTimes& held, bool wanted);

/// The move that a fitted caption makes.
FitMove MoveOf(Row row, const CaptionTimes& before, const HeldCaption& held, const FittedCaption& fitted);

}  // namespace cuewright

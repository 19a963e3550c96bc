#include "forms/fit_job.h"

#include "voice/spoken_captions.h"

namespace cuewright {

FitFound RunFit(const FitJob& job, Processes& processes) {
  FitFound found;
  SpokenCaptions spoken;
  if (!job.language.empty()) spoken = SpeakCaptions(processes, job.language, job.texts);
  found.wordsProblem = spoken.problem;
  found.result = FitCaptions(*job.sound, job.held, spoken.words, job.choice);
  return found;
}

void AddToJob(FitJob& job, const CaptionList& list, Row row, const CaptionTimes& held, bool wanted) {
  job.held.push_back({held.start, held.end, wanted});
  const bool spoken = wanted && !job.language.empty();
  job.texts.push_back(spoken ? ReplaceAll(list.GetSeenText(row, true), u"\r\n", u" ") : Text());
}

FitMove MoveOf(Row row, const CaptionTimes& before, const HeldCaption& held, const FittedCaption& fitted) {
  FitMove move;
  move.row = row;
  move.before = before;
  move.mark.held = {held.start, held.end};
  move.mark.fitted = {fitted.start, fitted.end};
  move.mark.waits = false;
  move.mark.startMoved = fitted.startMoved;
  move.mark.endMoved = fitted.endMoved;
  move.mark.startConfidence = fitted.startConfidence;
  move.mark.endConfidence = fitted.endConfidence;
  return move;
}

}  // namespace cuewright

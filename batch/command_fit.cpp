#include <cmath>
#include <vector>

#include "batch/commands.h"
#include "batch/edit_file.h"
#include "batch/film_sound.h"
#include "batch/json.h"
#include "batch/stream_files.h"
#include "platform/child_processes.h"
#include "voice/fit.h"
#include "voice/spoken_captions.h"

namespace cuewright {
namespace {

TextView ReasonOf(FitProblem problem) {
  switch (problem) {
    case FitProblem::None:
    case FitProblem::GivenUp:
      return {};
    case FitProblem::NoCaptions:
      return u"No caption was moved: none has times.";
    case FitProblem::Silence:
      return u"No caption was moved: the film is silent.";
    case FitProblem::NoVoice:
      return u"No caption was moved: what is heard during captions can't be told from what is heard between them.";
    case FitProblem::NoReaction:
      return u"No caption was moved: how late the hand was can't be found in the sound; --reaction tells it.";
  }
  return {};
}

/// Two digits, as confidences are printed.
std::string Hundredths(double share) {
  const long whole = std::lround(share * 100);
  const std::string digits = std::to_string(whole % 100);
  return std::to_string(whole / 100) + (digits.size() < 2 ? ".0" : ".") + digits;
}

std::vector<HeldCaption> HeldBy(const CaptionList& captions, const RowRange& rows) {
  std::vector<HeldCaption> held;
  for (Row row = 1; row < captions.Rows(); ++row) {
    const CaptionTimes times = captions.TimesAt(row);
    held.push_back({times.start, times.end, row >= rows.first && row <= rows.last});
  }
  return held;
}

/// What the captions' own words sound like; nothing, after telling why, when they can't be spoken.
std::vector<SoundTable> WordsOf(const Request& request, Session& session) {
  if (request.language.empty()) return {};
  std::vector<Text> texts;
  for (Row row = 1; row < session.Captions().Rows(); ++row) {
    texts.push_back(ReplaceAll(session.Captions().GetSeenText(row, true), u"\r\n", u" "));
  }
  PosixProcesses processes;
  SpokenCaptions spoken = SpeakCaptions(processes, request.language, texts);
  if (!spoken.problem.empty()) {
    session.Boxes().Tell(u"The captions are fitted without their words: " + FromUtf8(spoken.problem) + u".");
  }
  return std::move(spoken.words);
}

int MoveCaptions(CaptionList& list, const FitResult& result) {
  std::vector<CaptionTimes> times;
  int changed = 0;
  for (Row row = 1; row < list.Rows(); ++row) {
    const FittedCaption& fitted = result.captions[row.Index()];
    times.push_back({fitted.start, fitted.end});
    if (times.back() != list.TimesAt(row)) ++changed;
  }
  if (changed > 0) list.Retime(1, times);
  return changed;
}

void PrintRows(const FitResult& result, const std::vector<HeldCaption>& held, Console& console) {
  for (std::size_t place = 0; place < held.size(); ++place) {
    const FittedCaption& fitted = result.captions[place];
    console.Out(JsonObject()
                    .Add("row", place + 1)
                    .Add("start", fitted.start.Count())
                    .Add("end", fitted.end.Count())
                    .Add("old_start", held[place].start.Count())
                    .Add("old_end", held[place].end.Count())
                    .AddRaw("confidence", Hundredths(fitted.Confidence()))
                    .Line());
  }
}

void PrintSummary(const FitResult& result, Console& console) {
  int wanted = 0;
  int starts = 0;
  int ends = 0;
  for (const FittedCaption& fitted : result.captions) {
    wanted += int{fitted.wanted};
    starts += int{fitted.startMoved};
    ends += int{fitted.endMoved};
  }
  const auto ms = [](double value) { return std::to_string(std::lround(value)) + " ms"; };
  console.Out(std::to_string(starts) + " starts and " + std::to_string(ends) + " ends of " + std::to_string(wanted) +
              " captions fitted to the voice; the hand was late by " + ms(result.reaction.start) + " at starts and " +
              ms(result.reaction.end) + " at ends\n");
}

}  // namespace

int RunFit(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  if (IsStandardOutput(*request.out)) console.ResultsToErrors();
  if (!session.Load(request.files.front())) return kExitFailed;
  SoundTable sound;
  if (const Text problem = ReadSoundTable(*request.film, sound); !problem.empty()) {
    session.Boxes().Tell(*request.film + u": " + problem);
    return kExitFailed;
  }
  const std::vector<HeldCaption> held = HeldBy(session.Captions(), request.rows);
  const std::vector<SoundTable> words = WordsOf(request, session);
  FitChoice choice;
  choice.startLate = request.fit.reaction;
  const FitResult result = FitCaptions(sound, held, words, choice);
  if (result.problem != FitProblem::None) session.Boxes().Tell(Text(ReasonOf(result.problem)));
  MoveCaptions(session.Captions(), result);
  const bool written = WriteEdited(request, session);
  if (request.json) {
    PrintRows(result, held, console);
  } else if (result.problem == FitProblem::None) {
    PrintSummary(result, console);
  }
  return written && !session.LoadedWithTrouble() ? kExitDone : kExitFailed;
}

}  // namespace cuewright

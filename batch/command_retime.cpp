#include "batch/commands.h"
#include "batch/edit_file.h"
#include "batch/stream_files.h"
#include "core/numbers.h"
#include "tools/retime.h"

namespace cuewright {
namespace {

/// The times that the points of the call ask for; `problem` is why there are none.
TimeMap MapOfPoints(const std::vector<RetimeChoice::Point>& asked, const CaptionList& captions, std::string& problem) {
  std::vector<TimePoint> points;
  for (const RetimeChoice::Point& point : asked) {
    const std::string name = "caption " + std::to_string(point.row.Number());
    if (!captions.InRange(point.row)) {
      problem = "--point: there is no " + name + "; the file has " + std::to_string(captions.Count());
      return {};
    }
    const CaptionTimes times = captions.TimesAt(point.row);
    if (times.start == 0 && times.end == 0) {
      problem = "--point: " + name + " has no times";
      return {};
    }
    points.push_back({times.start, point.ms});
  }
  TimeMap map;
  const TimeMap::Fault fault = TimeMap::Through(std::move(points), map);
  if (fault == TimeMap::Fault::SameTime) problem = "--point: two of the captions begin at the same time";
  if (fault == TimeMap::Fault::TurnedRound)
    problem = "--point: the captions would come in another order or at the same time";
  return map;
}

TimeMap MapOf(const RetimeChoice& choice, const CaptionList& captions, std::string& problem) {
  if (choice.shift) return TimeMap::Shift(*choice.shift);
  if (choice.speed) return TimeMap::Scale(*choice.speed);
  if (choice.fpsFrom) return TimeMap::Scale(SpeedRatio::OfRates(choice.fpsFrom, choice.fpsTo));
  return MapOfPoints(choice.points, captions, problem);
}

}  // namespace

int RunRetime(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  if (IsStandardOutput(*request.out)) console.ResultsToErrors();
  EditOutcome outcome;
  outcome.read = session.Load(request.files.front());
  if (outcome.read) {
    std::string problem;
    const TimeMap map = MapOf(request.retime, session.Captions(), problem);
    if (!problem.empty()) {
      console.Complain("cuewright-batch: " + problem + ".");
      return kExitUsage;
    }
    const RetimeResult result = RetimeCaptions(session.Captions(), {request.rows}, map);
    outcome.changed = result.changed;
    if (result.belowZero != 0) {
      session.Boxes().Tell(Decimal(result.belowZero) + (result.belowZero == 1 ? u" caption" : u" captions") +
                           u" would begin before 0; what lies before 0 is at 0 now.");
    }
    outcome.written = WriteEdited(request, session);
  }
  return ReportEdit(request, session, console, outcome);
}

}  // namespace cuewright

#include "batch/commands.h"
#include "batch/json.h"
#include "batch/stream_files.h"

namespace cuewright {
namespace {

/// The report as its window shows it: the heading, the text, the total. CR LF inside becomes a plain line end.
std::string AsText(const Session& session, ReportForm form) {
  const RuleReport& report = session.Report();
  Text text = ReportHeading(report, session.Strings(), true) + u"\n\n" + ReportText(report, form);
  if (report.RuleEntryCount() > 0) text += u"\n";
  text += ReportTotal(report, session.Strings()) + u"\n";
  return DisplayUtf8(ReplaceAll(text, kLineEnd, u"\n"));
}

std::string AsJson(const Request& request, Session& session, const Text& readAs, int captions, bool written) {
  const RuleReport& report = session.Report();
  std::vector<Text> entries;
  for (std::size_t at = 0; at < report.Size(); ++at) {
    entries.push_back(request.detailed ? report.Detailed(at) : report.OneLine(at));
  }
  JsonObject object;
  object.Add("file", request.files.front())
      .Add("format", readAs)
      .Add("captions", captions)
      .Add("split", report.LinesSplit())
      .Add("collisions", report.Collisions())
      .Add("durations", report.DurationsOutsideRange())
      .Add("removed", report.LinesRemoved())
      .Add("total", report.RuleEntryCount())
      .AddRaw("entries", JsonList(entries));
  if (request.out) object.Add("to", request.to).Add("out", *request.out).Add("written", written);
  return object.AddRaw("messages", JsonList(session.Boxes().Shown())).Line();
}

}  // namespace

int RunRules(const Request& request, Session& session, Console& console) {
  const int format = request.out ? session.Catalogue().IndexOf(request.to) : 0;
  if (format < 0) {
    console.Complain("cuewright-batch: the catalogue has no format '" + ToUtf8(request.to) +
                     "'; 'cuewright-batch formats' lists them.");
    return kExitUsage;
  }
  if (!session.Load(request.files.front())) return kExitFailed;
  session.ApplyRules();
  const Text readAs = session.Format();
  const int captions = session.Captions().Count();
  const bool whole = !session.LoadedWithTrouble();
  Text objection;
  if (request.out) {
    if (IsStandardOutput(*request.out)) console.ResultsToErrors();
    objection = ObjectionToSource(request.files.front(), *request.out, whole);
  }
  if (!objection.empty()) session.Boxes().Tell(objection);
  const bool written = objection.empty() && (!request.out || session.Save(*request.out, format, true));
  const ReportForm form = request.detailed ? ReportForm::Detailed : ReportForm::Standard;
  console.Out(request.json ? AsJson(request, session, readAs, captions, written) : AsText(session, form));
  return written && whole ? kExitDone : kExitFailed;
}

}  // namespace cuewright

#include "batch/commands.h"
#include "batch/edit_file.h"
#include "batch/stream_files.h"
#include "tools/replace_text.h"

namespace cuewright {
namespace {

using Fault = TextReplacer::Fault;

/// What is wrong with the order; empty when nothing is.
std::string ProblemOf(Fault fault, const Request& request) {
  const std::string find = "'" + DisplayUtf8(request.replace.find) + "'";
  switch (fault) {
    case Fault::None:
      return {};
    case Fault::NothingToFind:
      return "--find takes a text";
    case Fault::BadPattern:
      return "--find " + find + " is no regular expression";
    case Fault::BadReplacement:
      return "--with '" + DisplayUtf8(request.replace.with) + "' names a group that " + find + " doesn't have";
    case Fault::TooSlow:
      return "--find " + find + " takes too long; nothing was replaced";
  }
  return {};
}

}  // namespace

int RunReplace(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  TextReplacer replacer(request.replace, session.Captions().Options().lineSeparator);
  const auto complain = [&] { console.Complain("cuewright-batch: " + ProblemOf(replacer.Problem(), request) + "."); };
  if (replacer.Problem() != Fault::None) {
    complain();
    return kExitUsage;
  }
  if (IsStandardOutput(*request.out)) console.ResultsToErrors();
  EditOutcome outcome;
  outcome.read = session.Load(request.files.front());
  if (outcome.read) {
    outcome.changed = ReplaceInCaptions(session.Captions(), request.rows, replacer);
    if (replacer.Problem() != Fault::None) {
      complain();
      return replacer.Problem() == Fault::TooSlow ? kExitFailed : kExitUsage;
    }
    outcome.written = WriteEdited(request, session);
  }
  return ReportEdit(request, session, console, outcome);
}

}  // namespace cuewright

#include "batch/commands.h"
#include "batch/convert_jobs.h"
#include "batch/edit_file.h"
#include "batch/json.h"
#include "core/ports/files.h"
#include "text/text_file.h"

namespace cuewright {
namespace {

std::string AsJson(const Text& input, const Outcome& outcome) {
  JsonObject object;
  object.Add("file", input);
  if (outcome.format.empty()) {
    object.AddNull("format");
  } else {
    object.Add("format", outcome.format);
  }
  object.Add("captions", outcome.captions);
  if (outcome.to.empty()) {
    object.AddNull("to");
  } else {
    object.Add("to", outcome.to);
  }
  return object.Add("out", outcome.out)
      .Add("written", outcome.written)
      .AddRaw("messages", JsonList(outcome.messages))
      .Line();
}

/// What became of all files, as the last line of a run says it.
struct Summary {
  std::size_t files = 0;
  std::size_t written = 0;
  std::size_t notWhole = 0;  ///< written, but less than the file holds

  std::string Line() const {
    std::string line = std::to_string(files) + (files == 1 ? " file, " : " files, ") + std::to_string(written) +
                       " written, " + std::to_string(files - written) + " failed";
    if (notWhole != 0) line += ", " + std::to_string(notWhole) + " not read whole";
    return line;
  }
};

/// The files of the call and those that a file names, a name a line; nothing, after telling why, when that can't be
/// read.
std::optional<std::vector<Text>> AllFiles(const Request& request, const Session& session, Console& console) {
  std::vector<Text> files = request.files;
  if (!request.filesFrom) return files;
  CarryOn errors;
  std::string names;
  errors([&] { names = session.FileSystem().Read(*request.filesFrom, kLargestTextFile); });
  if (errors.Last()) {
    console.Complain("cuewright-batch: --files-from: " + DisplayUtf8(errors.Last()->description));
    return {};
  }
  for (const Text& line : Split(FromUtf8(names), u"\n")) {
    const TextView name = line.ends_with(u'\r') ? TextView(line).substr(0, line.size() - 1) : TextView(line);
    if (!name.empty()) files.emplace_back(name);
  }
  return files;
}

}  // namespace

int RunConvert(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  const std::optional<std::vector<Text>> files = AllFiles(request, session, console);
  if (!files) return kExitUsage;
  if (request.out && IsStandardOutput(*request.out)) console.ResultsToErrors();
  const int format = request.to.empty() ? -1 : session.Catalogue().IndexOf(request.to);
  ConvertJobs jobs(request, *files, session, format);
  Summary summary{files->size()};
  for (std::size_t i = 0; i < files->size(); ++i) {
    console.Progress(i, files->size());
    const Outcome outcome = jobs.Next(console);
    if (outcome.written) ++summary.written;
    if (outcome.written && !outcome.whole) ++summary.notWhole;
    if (request.json) console.Out(AsJson((*files)[i], outcome));
  }
  if (files->size() > 1 || request.filesFrom) console.Say(summary.Line());
  return summary.written == summary.files && summary.notWhole == 0 ? kExitDone : kExitFailed;
}

}  // namespace cuewright

// The reader of the runner's scripts: whatever it takes can be carried out, whatever it refuses is told with a line.
#include <algorithm>
#include <string>

#include "fuzz/engine.h"
#include "runner/plan.h"
#include "runner/progress.h"
#include "runner/script.h"

using namespace cuewright;
using cuewright::fuzz::Demand;

namespace {

/// The chain of filters in the program's arguments; empty when there is none.
Text FiltersIn(const std::vector<Text>& words) {
  const auto at = std::find(words.begin(), words.end(), u"-vf");
  return at == words.end() ? Text() : *(at + 1);
}

/// A job with other names of files and all else the same.
RunJob Renamed(RunJob job) {
  job.source = job.target = u"/other";
  for (PictureFilter& filter : job.filters) filter.subtitle = u"/other";
  return job;
}

void CheckJob(const RunJob& job) {
  Demand(!job.source.empty() && !job.target.empty(), "a job without its files");
  Demand(job.line > 0 && job.rangeStart >= 0 && job.rangeEnd >= 0, "a job out of its limits");
  JobWay way;
  way.duration = 600000;
  const std::vector<Text> words = FfmpegArguments(job, way, u"/part");
  Demand(std::count(words.begin(), words.end(), Text(u"file:/part")) == 1, "the part isn't written once");
  // A wave asks for the whole film in a second output behind its own, which goes nowhere.
  const bool film = job.kind == RunJob::Kind::Avi;
  Demand(words.back() == (film ? u"file:/part" : u"-"), "the part isn't what is written");
  Demand(film || words[words.size() - 2] == u"null", "the second output goes somewhere");
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (words[i] == u"-i") Demand(words[i + 1] == u"file:" + job.source, "the film isn't what is read");
  }
  Demand(std::count(words.begin(), words.end(), u"-vf") <= 1, "two chains of filters");
  Demand(FiltersIn(words) == FiltersIn(FfmpegArguments(Renamed(job), way, u"/part")),
         "a text of the script in a filter");
  for (const PictureFilter& filter : job.filters) {
    Demand(job.kind == RunJob::Kind::Wave || filter.configured, "a filter without its values");
    Demand(filter.mode >= 0 && filter.mode < 4, "a mode out of its limits");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const Script script = ReadScript(bytes);
  Demand(script.problem.has_value() == script.jobs.empty(), "neither jobs nor a problem");
  if (script.problem) {
    Demand(script.problem->line > 0 && !script.problem->problem.empty(), "a problem without its line");
  }
  for (const RunJob& job : script.jobs) CheckJob(job);
  FfmpegLog log;
  log.TakeErrors(bytes);
  log.TakeOutput(bytes);
  for (const char c : Printable(bytes, true)) Demand(c == '\n' || static_cast<unsigned char>(c) >= 0x20, "a control");
  const auto line = ReadWindowLine(bytes);
  if (line && line->kind == WindowLine::Kind::Progress && line->progress.fraction) {
    Demand(*line->progress.fraction >= 0 && *line->progress.fraction <= 1, "a fraction out of its limits");
  }
  return 0;
}

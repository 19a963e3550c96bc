#include <algorithm>
#include <cstdio>
#include <vector>

#include "batch/commands.h"
#include "batch/edit_file.h"
#include "batch/film_sound.h"
#include "batch/stream_files.h"
#include "core/paths.h"
#include "platform/child_processes.h"
#include "voice/align.h"
#include "voice/spoken_captions.h"

namespace cuewright {
namespace {

std::string AsNumber(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3f", number);
  return text;
}

std::string AsLine(Row row, const AlignedLine& line) {
  return std::to_string(row.Number()) + '\t' + std::to_string(line.start.Count()) + '\t' +
         std::to_string(line.end.Count()) + '\t' + AsNumber(line.confidence) + '\t' +
         (line.doubtful ? "doubtful" : "sure") + '\n';
}

std::string AsJson(Row row, const AlignedLine& line) {
  return JsonObject()
      .Add("row", row.Number())
      .Add("start", line.start.Count())
      .Add("end", line.end.Count())
      .AddRaw("confidence", AsNumber(line.confidence))
      .Add("doubtful", line.doubtful)
      .Line();
}

/// The first format with times whose files end as this one does; SubRip when none does.
int FormatOfName(TextView name, const Session& session) {
  const FormatCatalogue& catalogue = session.Catalogue();
  const Text ending = ToLower(Text(name.substr(StripExtension(name).size())));
  for (int index = 1; index < catalogue.CountToWrite(session.InForce()); ++index) {
    for (const Text& extension : Split(catalogue.ReadIni(catalogue.Identifier(index), u"extension", u"txt"), u",")) {
      if (ending == u"." + extension) return index;
    }
  }
  return catalogue.IndexOf(kSubRip);
}

/// What each line of the document sounds like; nothing, after telling why, when nobody can speak it.
std::vector<SoundTable> SpokenLinesOf(const Request& request, Session& session) {
  std::vector<Text> lines;
  for (Row row = 1; session.Captions().InRange(row); ++row) lines.push_back(session.Captions().GetSeenText(row, true));
  PosixProcesses processes;
  SpokenCaptions spoken = SpeakCaptions(processes, request.language, lines);
  if (!spoken.problem.empty()) session.Boxes().Tell(FromUtf8(spoken.problem));
  return std::move(spoken.words);
}

void Store(const std::vector<AlignedLine>& lines, CaptionList& captions) {
  std::vector<CaptionTimes> times;
  times.reserve(lines.size());
  for (const AlignedLine& line : lines) times.push_back({line.start, line.end});
  const EditScope scope(captions, EditKind::Retime);
  captions.Retime(1, times);
  captions.SetModified();
}

}  // namespace

int RunAlign(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  if (IsStandardOutput(*request.out)) console.ResultsToErrors();
  if (!session.Load(request.files.front())) return kExitFailed;
  const bool whole = !session.LoadedWithTrouble();
  SoundTable sound;
  const Text problem = session.FileSystem().Exists(*request.film)
                           ? ReadSoundTable(*request.film, sound)
                           : Fill(session.Strings()[Message::FileNotFound], *request.film);
  if (!problem.empty()) {
    session.Boxes().Begin(*request.film);
    session.Boxes().Tell(problem);
    return kExitFailed;
  }
  const std::vector<SoundTable> spoken = SpokenLinesOf(request, session);
  if (spoken.empty()) return kExitFailed;
  const std::vector<AlignedLine> lines = AlignLines(spoken, sound);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Row row = Row::OfIndex(i);
    console.Out(request.json ? AsJson(row, lines[i]) : AsLine(row, lines[i]));
  }
  if (std::ranges::all_of(lines, &AlignedLine::doubtful)) {
    session.Boxes().Tell(u"No line was surely found: '" + *request.film +
                         u"' is silent, or nobody says the text in it.");
  }
  Store(lines, session.Captions());
  const Text objection = ObjectionToSource(request.files.front(), *request.out, false);
  if (!objection.empty()) {
    session.Boxes().Tell(objection);
    return kExitFailed;
  }
  const int format = request.to.empty() ? FormatOfName(*request.out, session) : session.Catalogue().IndexOf(request.to);
  return session.Save(*request.out, format, true) && whole ? kExitDone : kExitFailed;
}

}  // namespace cuewright

#include <cstdio>
#include <vector>

#include "batch/commands.h"
#include "batch/edit_file.h"
#include "batch/film_sound.h"
#include "batch/stream_files.h"
#include "tools/retime.h"
#include "voice/sync.h"

namespace cuewright {
namespace {

std::string AsNumber(double number, const char* format) {
  char text[32];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

std::string AsLine(const SyncSegment& segment, const TimeRatio& ratio) {
  return std::to_string(segment.first.Number()) + '\t' + std::to_string(segment.last.Number()) + '\t' +
         std::to_string(segment.offset.Count()) + '\t' + AsNumber(ratio.Value(), "%.9g") + '\t' +
         AsNumber(segment.confidence, "%.2f") + '\t' + (segment.doubtful ? "doubtful" : "sure") + '\n';
}

std::string AsJson(const SyncSegment& segment, const TimeRatio& ratio) {
  return JsonObject()
      .Add("first", segment.first.Number())
      .Add("last", segment.last.Number())
      .Add("offset", segment.offset.Count())
      .AddRaw("ratio", AsNumber(ratio.Value(), "%.9g"))
      .AddRaw("confidence", AsNumber(segment.confidence, "%.3f"))
      .Add("doubtful", segment.doubtful)
      .Line();
}

/// What captions are synchronised with.
struct Other {
  VoiceTrack voice;
  std::vector<CaptionTimes> captions;  ///< of a subtitle
};

/// Reads the film or subtitle; false, after telling why, when that can't be.
bool ReadOther(const Text& name, Session& session, Other& other) {
  session.Boxes().Begin(name);
  if (!session.FileSystem().Exists(name)) {
    session.Boxes().Tell(Fill(session.Strings()[Message::FileNotFound], name));
    return false;
  }
  if (!IsFilm(name)) {
    if (!session.Load(name)) return false;
    other.captions = session.Captions().AllTimes();
    other.voice = VoiceOfCaptions(other.captions);
    return true;
  }
  SoundTable sound;
  const Text problem = ReadSoundTable(name, sound);
  if (!problem.empty()) session.Boxes().Tell(problem);
  other.voice = VoiceOfSound(sound);
  return problem.empty();
}

void Apply(const SyncResult& result, CaptionList& captions, Session& session) {
  std::vector<RetimePiece> pieces;
  const SpeedRatio ratio{result.ratio.numerator, result.ratio.denominator};
  for (const SyncSegment& segment : result.segments) {
    pieces.push_back({{segment.first, segment.last}, TimeMap::ScaleAndShift(ratio, segment.offset)});
  }
  const RetimeResult done = RetimeCaptions(captions, pieces);
  if (done.belowZero == 0) return;
  session.Boxes().Tell(Decimal(done.belowZero) + (done.belowZero == 1 ? u" caption" : u" captions") +
                       u" would begin before 0; what lies before 0 is at 0 now.");
}

}  // namespace

int RunSync(const Request& request, Session& session, Console& console) {
  if (!KnowsFormatToWrite(request, session, console)) return kExitUsage;
  if (IsStandardOutput(*request.out)) console.ResultsToErrors();
  Other other;
  if (!ReadOther(*request.other, session, other)) return kExitFailed;
  if (!session.Load(request.files.front())) return kExitFailed;
  const bool whole = !session.LoadedWithTrouble();
  const SyncResult result = Synchronise(session.Captions().AllTimes(), other.voice, other.captions);
  if (!result.belongs) {
    session.Boxes().Tell(u"The captions don't fit '" + *request.other +
                         u"' better than by chance; nothing was written.");
    return kExitFailed;
  }
  for (const SyncSegment& segment : result.segments) {
    console.Out(request.json ? AsJson(segment, result.ratio) : AsLine(segment, result.ratio));
  }
  Apply(result, session.Captions(), session);
  return WriteEdited(request, session) && whole ? kExitDone : kExitFailed;
}

}  // namespace cuewright

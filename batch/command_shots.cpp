#include "batch/commands.h"
#include "batch/json.h"
#include "platform/child_processes.h"
#include "shots/film_pictures.h"
#include "shots/shots.h"

namespace cuewright {
namespace {

TextView KindName(ShotKind kind) { return kind == ShotKind::Cut ? u"cut" : u"fade"; }

std::string AsLine(const Shot& shot) {
  return std::to_string(shot.frame) + '\t' + std::to_string(shot.At().Count()) + '\t' + ToUtf8(KindName(shot.kind)) +
         '\n';
}

std::string AsJson(const Shot& shot) {
  return JsonObject().Add("frame", shot.frame).Add("ms", shot.At().Count()).Add("kind", KindName(shot.kind)).Line();
}

}  // namespace

int RunShots(const Request& request, Session& session, Console& console) {
  const Text& film = request.files.front();
  session.Boxes().Begin(film);
  if (!session.FileSystem().Exists(film)) {
    session.Boxes().Tell(Fill(session.Strings()[Message::FileNotFound], film));
    return kExitFailed;
  }
  PosixProcesses processes;
  ShotMeasurer measurer;
  const FilmReading reading = MeasureFilm(processes, film, measurer, [](std::size_t) { return true; });
  for (const Shot& shot : FindShots(measurer.Measures())) console.Out(request.json ? AsJson(shot) : AsLine(shot));
  if (reading.problem.empty()) return kExitDone;
  session.Boxes().Tell(FromUtf8(reading.problem));
  return kExitFailed;
}

}  // namespace cuewright

#include "batch/commands.h"

namespace cuewright {

int RunCommand(const Request& request, Session& session, Console& console) {
  if (request.command == "formats") return RunFormats(request, session, console);
  if (request.command == "detect") return RunDetect(request, session, console);
  if (request.command == "dump") return RunDump(request, session, console);
  if (request.command == "peaks") return RunPeaks(request, session, console);
  if (request.command == "rules") return RunRules(request, session, console);
  if (request.command == "retime") return RunRetime(request, session, console);
  if (request.command == "replace") return RunReplace(request, session, console);
  if (request.command == "profiles") return RunProfiles(request, session, console);
  if (request.command == "check") return RunCheck(request, session, console);
  if (request.command == "shots") return RunShots(request, session, console);
  if (request.command == "align") return RunAlign(request, session, console);
  if (request.command == "sync") return RunSync(request, session, console);
  if (request.command == "fit") return RunFit(request, session, console);
  return RunConvert(request, session, console);
}

}  // namespace cuewright

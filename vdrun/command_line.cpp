#include "vdrun/command_line.h"

namespace cuewright {

RunRequest ReadRunRequest(const std::vector<std::string>& arguments) {
  const auto wrong = [](std::string problem) { return RunRequest{RunRequest::Kind::Wrong, {}, std::move(problem)}; };
  RunRequest request;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    if (word == "--help" || word == "-h" || word == "/?") return {RunRequest::Kind::Help, {}, {}};
    if (word == "--version") return {RunRequest::Kind::Version, {}, {}};
    if (word == "/x") continue;  // it ends with the script anyway
    if (word != "/s") return wrong("\"" + word + "\" isn't known; expected /s SCRIPT /x");
    if (request.kind == RunRequest::Kind::Run) return wrong("one script at a time: /s stands twice");
    if (i + 1 == arguments.size() || arguments[i + 1].empty()) return wrong("expected the path of a script behind /s");
    request = {RunRequest::Kind::Run, arguments[++i], {}};
  }
  return request.kind == RunRequest::Kind::Run ? request : wrong("expected /s SCRIPT /x");
}

std::string RunHelp() {
  return "usage: vdrun /s SCRIPT [/x]\n"
         "\n"
         "Carries out a script that burns subtitles into a film (SaveAVI) or takes the sound out of one (SaveWAV),\n"
         "by FFmpeg. A file appears at its place once it is whole. On a terminal a bar tells how far it is and Ctrl+C\n"
         "cancels; on a desktop a small window does.\n"
         "\n"
         "  /s SCRIPT   the script\n"
         "  /x          end with the script, which it does anyway\n"
         "  --help      this text\n"
         "  --version   the version\n"
         "\n"
         "Exit status: 0 done, 1 the script or the work failed, 2 wrong call, 3 cancelled.\n";
}

}  // namespace cuewright

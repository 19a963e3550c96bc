#include "batch/commands.h"
#include "batch/json.h"

namespace cuewright {
namespace {

void Print(const Request& request, const Text& path, const Text* identifier, Session& session, Console& console) {
  if (!request.json) {
    console.Out(ToUtf8(path) + '\t' + (identifier == nullptr ? "-" : ToUtf8(*identifier)) + '\n');
    return;
  }
  JsonObject object;
  object.Add("file", path);
  if (identifier == nullptr) {
    object.AddNull("format");
  } else {
    object.Add("format", *identifier);
  }
  console.Out(object.AddRaw("messages", JsonList(session.Boxes().Shown())).Line());
}

}  // namespace

int RunDetect(const Request& request, Session& session, Console& console) {
  int status = kExitDone;
  for (std::size_t i = 0; i < request.files.size(); ++i) {
    console.Progress(i, request.files.size());
    const Text& path = request.files[i];
    const std::optional<int> format = session.Detect(path);
    if (!format) status = kExitFailed;
    Print(request, path, format ? &session.Catalogue().Identifier(*format) : nullptr, session, console);
  }
  return status;
}

}  // namespace cuewright

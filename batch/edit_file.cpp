#include "batch/edit_file.h"

#include "batch/stream_files.h"

namespace cuewright {

bool KnowsFormatToWrite(const Request& request, const Session& session, Console& console) {
  const int index = session.Catalogue().IndexOf(request.to);
  if (request.to.empty() || (index >= 0 && index < session.Catalogue().CountToWrite(session.InForce()))) return true;
  if (index >= 0 && index < session.Catalogue().CountToRead(session.InForce())) {
    console.Complain("cuewright-batch: files in the format '" + ToUtf8(request.to) +
                     "' are read, but not written anew.");
    return false;
  }
  console.Complain("cuewright-batch: the catalogue has no format '" + ToUtf8(request.to) +
                   "'; 'cuewright-batch formats' lists them.");
  return false;
}

bool WriteEdited(const Request& request, Session& session) {
  const Text objection = ObjectionToSource(request.files.front(), *request.out, !session.LoadedWithTrouble());
  if (!objection.empty()) {
    session.Boxes().Tell(objection);
    return false;
  }
  const int format = request.to.empty() ? session.FormatIndex() : session.Catalogue().IndexOf(request.to);
  return session.Save(*request.out, format, true);
}

int ReportEdit(const Request& request, Session& session, Console& console, const EditOutcome& outcome) {
  if (request.json) {
    JsonObject object;
    object.Add("file", request.files.front());
    if (outcome.read) {
      object.Add("format", session.Format());
    } else {
      object.AddNull("format");
    }
    console.Out(object.Add("captions", outcome.read ? session.Captions().Count() : 0)
                    .Add("changed", outcome.changed)
                    .Add("out", *request.out)
                    .Add("written", outcome.written)
                    .AddRaw("messages", JsonList(session.Boxes().Shown()))
                    .Line());
  } else if (outcome.read) {
    console.Out(std::to_string(outcome.changed) + (outcome.changed == 1 ? " caption" : " captions") + " changed\n");
  }
  return outcome.written && !session.LoadedWithTrouble() ? kExitDone : kExitFailed;
}

}  // namespace cuewright

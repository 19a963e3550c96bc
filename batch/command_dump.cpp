#include "batch/commands.h"
#include "batch/json.h"

namespace cuewright {
namespace {

std::string Escaped(TextView text) {
  Text escaped;
  for (const char16_t c : text) {
    switch (c) {
      case u'\\':
        escaped += u"\\\\";
        break;
      case u'\t':
        escaped += u"\\t";
        break;
      case u'\r':
        escaped += u"\\r";
        break;
      case u'\n':
        escaped += u"\\n";
        break;
      default:
        escaped += c;
    }
  }
  return DisplayUtf8(escaped);
}

std::string AsLine(Row row, const Caption& caption) {
  return std::to_string(row.Number()) + '\t' + std::to_string(caption.start.Count()) + '\t' +
         std::to_string(caption.end.Count()) + '\t' + Escaped(caption.text) + '\n';
}

std::string AsJson(Row row, const Caption& caption) {
  return JsonObject()
      .Add("number", row.Number())
      .Add("start", caption.start.Count())
      .Add("end", caption.end.Count())
      .Add("text", caption.text)
      .Line();
}

}  // namespace

int RunDump(const Request& request, Session& session, Console& console) {
  if (!session.Load(request.files.front())) return kExitFailed;
  const CaptionList& captions = session.Captions();
  for (Row row = 1; row < captions.Rows(); ++row) {
    console.Out(request.json ? AsJson(row, captions.At(row)) : AsLine(row, captions.At(row)));
  }
  return session.LoadedWithTrouble() ? kExitFailed : kExitDone;
}

}  // namespace cuewright

#include "batch/commands.h"
#include "batch/json.h"
#include "core/numbers.h"

namespace cuewright {
namespace {

std::string AsJson(const FormatCatalogue& catalogue, int index) {
  const Text& id = catalogue.Identifier(index);
  std::vector<std::string> extensions;
  for (const Text& extension : Split(catalogue.ReadIni(id, u"extension", u"txt"), u",")) {
    extensions.push_back(JsonText(extension));
  }
  return JsonObject()
      .Add("index", index)
      .Add("identifier", id)
      .Add("name", catalogue.DisplayName(id))
      .AddRaw("extensions", JsonList(extensions))
      .Add("timecode", catalogue.ReadIni(id, u"timecode", u"ms"))
      .Add("tags", LeadingInt(catalogue.ReadIni(id, u"tags", u"0")))
      .Add("header", LeadingNumber(catalogue.ReadIni(id, u"header", u"0")) == 1)
      .Line();
}

std::string AsLine(const FormatCatalogue& catalogue, int index) {
  const Text& id = catalogue.Identifier(index);
  std::string line = std::to_string(index);
  for (const Text& field : {id, catalogue.DisplayName(id), catalogue.ReadIni(id, u"extension", u"txt"),
                            catalogue.ReadIni(id, u"timecode", u"ms"), catalogue.ReadIni(id, u"tags", u"0"),
                            catalogue.ReadIni(id, u"header", u"0")}) {
    line += '\t' + DisplayUtf8(field);
  }
  return line + '\n';
}

}  // namespace

int RunFormats(const Request& request, Session& session, Console& console) {
  const FormatCatalogue& catalogue = session.Catalogue();
  for (int i = 0; i < catalogue.CountToRead(session.InForce()); ++i) {
    console.Out(request.json ? AsJson(catalogue, i) : AsLine(catalogue, i));
  }
  return kExitDone;
}

}  // namespace cuewright

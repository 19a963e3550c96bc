#include "forms/other_captions.h"

#include <algorithm>

#include "formats/definition.h"
#include "formats/import.h"

namespace cuewright {

OtherCaptions::OtherCaptions(const FormatCatalogue& catalogue, const SettingsReader& settings, const FormatTalk& talk,
                             const FileAccess& access, const AppOptions& options)
    : catalogue_(catalogue),
      settings_(settings),
      talk_{talk.strings, talk.messages},
      access_(access),
      options_(options) {}

std::vector<CaptionTimes> OtherCaptions::Read(const Text& path, const FrameRate& film) const {
  FormatState state;
  state.FilmFps = film;
  bool modified = false;
  bool cancelled = false;
  CaptionList captions(options_, modified);
  FormatLoader loader(catalogue_, state, settings_, talk_);
  Importer({catalogue_, state, loader}, talk_, captions, access_, cancelled).DetectFormat(path, Loading::NewDocument);
  std::vector<CaptionTimes> times = captions.AllTimes();
  const bool timed = std::ranges::any_of(times, [](const CaptionTimes& each) { return each.end > each.start; });
  if (!timed) times.clear();
  return times;
}

}  // namespace cuewright

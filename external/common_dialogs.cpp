#include "external/common_dialogs.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

// The custom colours are given anew at each call: what the user changes in them isn't kept.
constexpr CustomColors kCustomColors = {0xC0C0C0, 0x0000FF, 0x0080FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF,
                                        0x808080, 0x0000C0, 0x0040C0, 0x00C0C0, 0x00C000, 0xC0C000, 0xC00000, 0xC000C0};

Text WithEndMark(TextView filter) { return Text(filter) + (filter.ends_with(u'|') ? u"" : u"|"); }

}  // namespace

std::int32_t ShowColorDialog(Pickers& pickers, std::int32_t initial) {
  std::optional<std::int32_t> chosen;
  CarryOn step;
  step([&] { chosen = pickers.PickColor(initial, kCustomColors); });
  return chosen.value_or(kNoColor);
}

bool ShowFontDialog(Pickers& pickers, FontChoice& font, int leastSize, int mostSize) {
  std::optional<FontChoice> chosen;
  CarryOn step;
  step([&] { chosen = pickers.PickFont(font); });
  if (!chosen) return false;
  font = *chosen;
  font.Name = CutAtNul(font.Name);
  // A picker counts in tenths of a point.
  font.Size = RoundHalfEven(font.Size * 10) / 10;
  if (leastSize != 0) font.Size = std::max<double>(font.Size, leastSize);
  if (mostSize != 0) font.Size = std::min<double>(font.Size, mostSize);
  return true;
}

Text ShowOpenDialog(FileDialogs& dialogs, TextView filter, TextView title, TextView folder) {
  Text path;
  CarryOn step;
  step([&] { path = dialogs.ShowOpenDialog(title, WithEndMark(filter), folder); });
  return CutAtNul(path);
}

Text ShowSaveDialog(FileDialogs& dialogs, TextView filter, TextView title, TextView folder, TextView proposal) {
  Text path;
  CarryOn step;
  step([&] { path = dialogs.ShowSaveDialog(title, WithEndMark(filter), folder, proposal); });
  return CutAtNul(path);
}

Text BrowseForFolder(Pickers& pickers, TextView prompt) {
  Text folder;
  CarryOn step;
  step([&] { folder = CutAtNul(pickers.PickFolder(prompt)); });
  return folder.empty() ? folder : WithSlash(folder);
}

Text CutAtNul(TextView text) { return Text(text.substr(0, text.find(u'\0'))); }

}  // namespace cuewright

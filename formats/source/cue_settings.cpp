#include "formats/source/cue_settings.h"

#include <charconv>
#include <optional>

#include "formats/source/beside.h"

namespace cuewright {
namespace {

/// A position as a number of lines or, with "%", of hundredths of the picture.
struct Amount {
  double number = 0;
  bool percent = false;
};

std::optional<Amount> ReadAmount(std::string_view value) {
  // Behind a comma stands the edge from which the number counts.
  value = value.substr(0, value.find(','));
  Amount amount;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), amount.number);
  if (error != std::errc()) return {};
  amount.percent = end != value.data() + value.size() && *end == '%';
  return amount;
}

constexpr double kThird = 100.0 / 3;

/// 0, 1 or 2 for the three thirds.
int ThirdOf(double percent) { return percent < kThird ? 0 : percent <= 2 * kThird ? 1 : 2; }

/// The row on the picture, 0 at the bottom. Lines are counted from the top, or, below 0, from the bottom; a picture
/// has about 15.
int RowOfLine(const Amount& line) {
  constexpr double kLines = 15;
  if (line.percent) return 2 - ThirdOf(line.number);
  return 2 - ThirdOf((line.number < 0 ? kLines + line.number : line.number) * 100 / kLines);
}

int ColumnOf(std::string_view align) {
  if (align == "left" || align == "start") return -1;
  return align == "right" || align == "end" ? 1 : 0;
}

}  // namespace

int PlaceOfCue(std::string_view settings) {
  int row = 0;
  int column = 0;
  std::optional<Amount> position;
  while (!settings.empty()) {
    const std::size_t end = settings.find_first_of(" \t");
    const std::string_view setting = settings.substr(0, end);
    settings.remove_prefix(end == std::string_view::npos ? settings.size() : end + 1);
    const std::size_t colon = setting.find(':');
    if (colon == std::string_view::npos) continue;
    const std::string_view name = setting.substr(0, colon);
    const std::string_view value = setting.substr(colon + 1);
    if (name == "align") column = ColumnOf(value);
    if (name == "position") position = ReadAmount(value);
    if (const auto line = name == "line" ? ReadAmount(value) : std::nullopt) row = RowOfLine(*line);
  }
  // Text that begins at the middle is no longer at the edge that it is aligned to.
  if (position) column = ThirdOf(position->number) - 1;
  return PlaceAt(row, column);
}

Text SettingsOfPlace(int place) {
  constexpr TextView kRows[] = {u"", u" line:50%", u" line:0"};
  constexpr TextView kColumns[] = {u" align:left", u"", u" align:right"};
  return Text(kRows[RowOfPlace(place)]) + Text(kColumns[ColumnOfPlace(place) + 1]);
}

}  // namespace cuewright

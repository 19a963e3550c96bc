#include "forms/lines_report.h"

#include <utility>

#include "core/counting.h"
#include "core/paths.h"
#include "formats/source/source_map.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// Lines that are shown, and characters of each.
constexpr std::size_t kMostShown = 1000;
constexpr std::size_t kLongestBeginning = 100;

Text BeginningOf(Text line) {
  if (line.size() > kLongestBeginning) {
    // Both halves of a pair stay together.
    const bool halved = IsTrail(line[kLongestBeginning]);
    line.resize(kLongestBeginning - (halved ? 1 : 0));
    line += u'\u2026';
  }
  return line;
}

/// The first of the lines with these numbers, which are in order, each with its number and its beginning.
std::vector<Text> LinesOf(const SourceMap& map, const std::vector<std::size_t>& numbers, const Text& form) {
  std::vector<Text> rows;
  SourceLines lines(map.Bytes());
  SourceLine line;
  std::size_t number = 0;
  for (const std::size_t wanted : numbers) {
    if (rows.size() == kMostShown) break;
    while (number < wanted && lines.Next(line)) ++number;
    // No more of a line is decoded than may be shown, however long it is.
    const std::string_view bytes = line.text.substr(0, 4 * kLongestBeginning + 4);
    rows.push_back(Fill(form, Decimal(number), BeginningOf(map.File().Decoded(bytes))));
  }
  return rows;
}

}  // namespace

LinesReport::LinesReport(Workbench bench, const FormatState& state)
    : dialog("frmLines", bench.strings), bench_(bench), state_(state) {
  bench_.window.cmdShowLines.Clicked.Connect([this] { Show(); });
}

int LinesReport::Count() const {
  if (!state_.Source || !bench_.options.manner.TellsWhatIsLost()) return 0;
  return CountOf(state_.Source->LinesNotUnderstood());
}

void LinesReport::Show() {
  if (!state_.Source || dialog.IsOpen()) return;
  const LangStrings& strings = bench_.strings;
  const std::vector<std::size_t> numbers = state_.Source->LinesNotUnderstood();
  ListDialogContent content{strings[Message::NotUnderstoodTitle],
                            Fill(strings[Message::NotUnderstoodHead], FileNameOf(bench_.document.SubtitlePath)),
                            LinesOf(*state_.Source, numbers, strings[Message::NumberedLine])};
  if (numbers.size() > kMostShown) {
    content.lines.push_back(strings.Counted(Message::MoreLines, u"%1", numbers.size() - kMostShown));
  }
  dialog.Open(content, bench_.window.RightToLeft());
}

}  // namespace cuewright

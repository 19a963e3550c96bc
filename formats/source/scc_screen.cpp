#include "formats/source/scc_screen.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace cuewright {
namespace {

/// Rows that lie in the upper and in the middle third of the picture end above these.
constexpr int kRowsOnTop = 5;
constexpr int kRowsToTheMiddle = 10;
constexpr int kPlaceOnTop = 8;
constexpr int kPlaceInTheMiddle = 5;

RunStyle StyleOf(const CaptionPen& pen) {
  constexpr std::array<std::uint32_t, 7> kColours = {0xFFFFFF, 0x00FF00, 0x0000FF, 0x00FFFF,
                                                     0xFF0000, 0xFFFF00, 0xFF00FF};
  RunStyle style;
  style.italic = pen.italic;
  style.underline = pen.underline;
  // White needs no mark, since captions are white anyway.
  if (pen.colour != 0 && pen.colour < kColours.size()) style.colour = kColours[pen.colour];
  return style;
}

void Append(char16_t character, const RunStyle& style, std::vector<StyledRun>& runs) {
  if (runs.empty() || !(runs.back().style == style)) runs.push_back({{}, style});
  runs.back().text += character;
}

}  // namespace

void CaptionScreen::Clear() {
  for (int row = 0; row < kRows; ++row) {
    if (Uses(row)) cells_[row] = {};
  }
  usedRows_ = 0;
}

void CaptionScreen::MoveTo(int row, int column) {
  row_ = std::clamp(row, 0, kRows - 1);
  column_ = std::clamp(column, 0, kColumns - 1);
}

void CaptionScreen::Skip(int columns) { column_ = std::min(column_ + columns, kColumns - 1); }

void CaptionScreen::Put(char16_t character, const CaptionPen& pen) {
  Row()[column_] = {character, pen};
  usedRows_ |= 1U << row_;
  // Characters beyond the last column overwrite each other in it.
  column_ = std::min(column_ + 1, kColumns - 1);
}

void CaptionScreen::Backspace() {
  if (column_ == 0) return;
  const bool full = column_ == kColumns - 1 && Row()[kColumns - 1].character != 0;
  if (!full) --column_;
  Row()[column_] = {};
}

void CaptionScreen::ClearToEnd() { std::fill(Row().begin() + column_, Row().end(), Cell{}); }

void CaptionScreen::AppendLine(const Line& line, std::vector<StyledRun>& runs) {
  const auto seen = [](const Cell& cell) { return cell.character != 0 && cell.character != u' '; };
  const auto first = std::find_if(line.begin(), line.end(), seen);
  const auto last = std::find_if(line.rbegin(), line.rend(), seen).base();
  for (auto cell = first; cell < last; ++cell) {
    if (seen(*cell)) {
      Append(cell->character, StyleOf(cell->pen), runs);
      continue;
    }
    // A blank between two words has the look that both have, or none where they differ.
    const RunStyle next = StyleOf(std::find_if(cell, last, seen)->pen);
    const RunStyle before = StyleOf(std::find_if(std::make_reverse_iterator(cell), line.rend(), seen)->pen);
    Append(u' ', before == next ? next : RunStyle{}, runs);
  }
}

StyledText CaptionScreen::Seen(TextView separator) const {
  StyledText text;
  int lowest = 0;
  for (int row = 0; row < kRows; ++row) {
    if (!Uses(row)) continue;
    std::vector<StyledRun> line;
    AppendLine(cells_[row], line);
    if (line.empty()) continue;
    lowest = row + 1;
    if (!text.runs.empty()) {
      const bool same = text.runs.back().style == line.front().style;
      for (const char16_t unit : separator) Append(unit, same ? text.runs.back().style : RunStyle{}, text.runs);
    }
    for (StyledRun& run : line) {
      if (!text.runs.empty() && text.runs.back().style == run.style) {
        text.runs.back().text += run.text;
      } else {
        text.runs.push_back(std::move(run));
      }
    }
  }
  if (lowest <= kRowsOnTop) {
    text.place = kPlaceOnTop;
  } else if (lowest <= kRowsToTheMiddle) {
    text.place = kPlaceInTheMiddle;
  }
  return text;
}

}  // namespace cuewright

#include "tools/pane_text.h"

namespace cuewright {
namespace {

bool IsGap(char16_t c) { return c == u' ' || c == u'\n' || c == u'\t' || c == u'\u3000'; }

}  // namespace

PaneText::PaneText(const CaptionList& list, Row row)
    : hidesMarks_(list.Options().manner.KeepsStylesWithin() && !list.Options().rawMarks),
      separator_(list.Options().lineSeparator) {
  if (hidesMarks_) {
    seen_.Take(list.At(row).text, separator_, list.Marks());
  } else {
    shown_ = ReplaceAll(list.At(row).text, separator_, u"\n");
  }
}

Text PaneText::Piece(std::size_t from, std::size_t to) const {
  const TextView view = View();
  while (from < to && IsGap(view[from])) ++from;
  while (from < to && IsGap(view[to - 1])) --to;
  if (!hidesMarks_) return ReplaceAll(view.substr(from, to - from), u"\n", separator_);
  SeenText piece = seen_;
  piece.Keep(from, to);
  return piece.Stored();
}

std::size_t DashLength(TextView line) {
  if (line.empty() || (line[0] != u'-' && line[0] != u'\u2013' && line[0] != u'\u2014')) return 0;
  const std::size_t text = line.find_first_not_of(u' ', 1);
  return text == TextView::npos ? line.size() : text;
}

}  // namespace cuewright

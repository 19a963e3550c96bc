#include "formats/source/whole_styles.h"

#include <array>
#include <utility>

#include "core/style_markers.h"

namespace cuewright {
namespace {

constexpr std::size_t kOpening = 3;  // "<i>"
constexpr std::size_t kClosing = 4;  // "</i>"

struct Style {
  char16_t letter;
  bool WholeStyles::*flag;
};
constexpr std::array<Style, 3> kStyles = {
    {{u'b', &WholeStyles::bold}, {u'i', &WholeStyles::italic}, {u'u', &WholeStyles::underline}}};

Text Opening(char16_t letter) { return {u'<', letter, u'>'}; }
Text Closing(char16_t letter) { return {u'<', u'/', letter, u'>'}; }

/// The style whose tag the text begins with, in small or capital letters; null for another.
const Style* StyleAt(TextView text) {
  if (text.size() < kOpening || text[0] != u'<' || text[2] != u'>') return nullptr;
  for (const Style& style : kStyles) {
    if ((text[1] | 0x20) == style.letter) return &style;
  }
  return nullptr;
}

}  // namespace

WholeStyles TakeMarkers(Text& text) {
  const WholeMarkers whole = FindWholeMarkers(text);
  if (whole.Any()) text = whole.Inner(text);
  return {whole.bold, whole.italic, whole.underline};
}

Text Markers(WholeStyles styles) {
  Text markers;
  for (const auto& [letter, flag] : kStyles) {
    if (styles.*flag) markers += Opening(letter);
  }
  return markers;
}

void TagsToMarkers(Text& text) {
  if (text.empty() || text.front() != u'<' || text.back() != u'>') return;
  WholeStyles found;
  TextView inner = text;
  while (const Style* style = StyleAt(inner)) {
    const Text closing = Closing(style->letter);
    if (inner.size() < kOpening + kClosing) break;
    if (FindLoose(inner, closing) != inner.size() - kClosing) break;
    found.*(style->flag) = true;
    inner = inner.substr(kOpening, inner.size() - kOpening - kClosing);
  }
  if (found.Any()) text = Markers(found) + Text(inner);
}

Text MarkersToTags(TextView text) {
  Text inner(text);
  const WholeStyles styles = TakeMarkers(inner);
  if (!styles.Any()) return inner;
  Text result = Markers(styles) + inner;
  for (std::size_t i = kStyles.size(); i-- > 0;) {
    if (styles.*(kStyles[i].flag)) result += Closing(kStyles[i].letter);
  }
  return result;
}

void JoinLines(Text& text, TextView separator) {
  std::size_t end = text.find_first_of(u"\r\n");
  if (end == Text::npos) return;
  Text joined;
  joined.reserve(text.size());
  std::size_t at = 0;
  for (; end != Text::npos; end = text.find_first_of(u"\r\n", at)) {
    joined.append(text, at, end - at).append(separator);
    at = end + 1;
    if (text[end] == u'\n') continue;
    if (text.compare(end, 3, u"\r\r\n") == 0) {
      at = end + 3;
    } else if (text.compare(end, 2, u"\r\n") == 0) {
      at = end + 2;
    }
  }
  joined.append(text, at);
  text = std::move(joined);
}

}  // namespace cuewright

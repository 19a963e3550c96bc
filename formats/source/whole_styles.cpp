#include "formats/source/whole_styles.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/style_markers.h"
#include "text/text_search.h"
#include "text/units.h"

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

const Style* StyleOf(char16_t letter) {
  const auto found = std::ranges::find(kStyles, letter, &Style::letter);
  return found == kStyles.end() ? nullptr : &*found;
}

/// The letter of a style's opening tag at the beginning of the text, in lower case; NUL for anything else.
char16_t OpeningAt(TextView text) {
  if (text.size() < kOpening || text[0] != u'<' || text[2] != u'>') return 0;
  const char16_t letter = LowerAscii(text[1]);
  return StyleOf(letter) != nullptr ? letter : u'\0';
}

bool ClosesAt(TextView text, char16_t letter) {
  return text.size() >= kClosing && text[0] == u'<' && text[1] == u'/' && LowerAscii(text[2]) == letter &&
         text[3] == u'>';
}

/// How many tags of the letter the text holds.
struct TagCount {
  int open = 0;
  int close = 0;
};

TagCount CountTags(TextView text, char16_t letter) {
  TagCount count;
  for (std::size_t at = text.find(u'<'); at != TextView::npos; at = text.find(u'<', at + 1)) {
    if (OpeningAt(text.substr(at)) == letter) ++count.open;
    if (ClosesAt(text.substr(at), letter)) ++count.close;
  }
  return count;
}

/// True when the text begins with an opening tag of the letter and ends with its closing tag or has none.
bool Covers(TextView text, char16_t letter) {
  if (OpeningAt(text) != letter) return false;
  const TagCount count = CountTags(text, letter);
  if (count.open != 1 || count.close > 1) return false;
  return count.close == 0 || (text.size() >= kClosing && ClosesAt(text.substr(text.size() - kClosing), letter));
}

Text Uncovered(TextView text, char16_t letter) {
  text.remove_prefix(kOpening);
  if (text.size() >= kClosing && ClosesAt(text.substr(text.size() - kClosing), letter)) {
    text.remove_suffix(kClosing);
  }
  return Text(text);
}

/// True when there are several lines and each is covered by a pair of tags of its own.
bool CoversEachLine(TextView text, TextView separator, char16_t letter) {
  if (separator.empty() || text.find(separator) == TextView::npos) return false;
  for (const Text& line : Split(text, separator)) {
    if (!Covers(line, letter) || CountTags(line, letter).close != 1) return false;
  }
  return true;
}

Text UncoveredLines(TextView text, TextView separator, char16_t letter) {
  Text lines;
  for (const Text& line : Split(text, separator)) {
    if (!lines.empty()) lines += separator;
    lines += Uncovered(line, letter);
  }
  return lines;
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

void TagsToMarkers(Text& text, TextView separator) {
  if (text.empty() || text.front() != u'<') return;
  WholeStyles found;
  for (char16_t letter = OpeningAt(text); letter != 0; letter = OpeningAt(text)) {
    if (Covers(text, letter)) {
      text = Uncovered(text, letter);
    } else if (CoversEachLine(text, separator, letter)) {
      text = UncoveredLines(text, separator, letter);
    } else {
      break;
    }
    found.*(StyleOf(letter)->flag) = true;
  }
  if (found.Any()) text = Markers(found) + text;
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

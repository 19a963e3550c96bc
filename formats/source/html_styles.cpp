#include "formats/source/html_styles.h"

#include <array>

#include "core/style_markers.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

/// Markers stand in this order in front of a text.
constexpr TextView kLetters = u"uib";
constexpr std::size_t kOpenSize = 3;
constexpr std::size_t kCloseSize = 4;

constexpr char16_t Small(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }

/// The letter of a style's opening tag at the beginning of the text, in lower case; NUL for anything else.
char16_t OpeningAt(TextView text) {
  if (text.size() < kOpenSize || text[0] != u'<' || text[2] != u'>') return 0;
  const char16_t letter = Small(text[1]);
  return letter == u'b' || letter == u'i' || letter == u'u' ? letter : u'\0';
}

bool ClosesAt(TextView text, char16_t letter) {
  return text.size() >= kCloseSize && text[0] == u'<' && text[1] == u'/' && Small(text[2]) == letter && text[3] == u'>';
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

/// The text begins with an opening tag of the letter and ends with its closing one, or lacks that.
bool Covers(TextView text, char16_t letter) {
  if (OpeningAt(text) != letter) return false;
  const TagCount count = CountTags(text, letter);
  if (count.open != 1 || count.close > 1) return false;
  return count.close == 0 || (text.size() >= kCloseSize && ClosesAt(text.substr(text.size() - kCloseSize), letter));
}

Text Uncovered(TextView text, char16_t letter) {
  text.remove_prefix(kOpenSize);
  if (text.size() >= kCloseSize && ClosesAt(text.substr(text.size() - kCloseSize), letter)) {
    text.remove_suffix(kCloseSize);
  }
  return Text(text);
}

/// Every line is covered by a pair of tags of its own, and there is more than one.
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

Text HtmlToMarkers(Text text, TextView separator) {
  if (text.empty() || text.front() != u'<') return text;
  std::array<bool, kLetters.size()> found{};
  for (char16_t letter = OpeningAt(text); letter != 0; letter = OpeningAt(text)) {
    if (Covers(text, letter)) {
      text = Uncovered(text, letter);
    } else if (CoversEachLine(text, separator, letter)) {
      text = UncoveredLines(text, separator, letter);
    } else {
      break;
    }
    found[static_cast<std::size_t>(TextView(kLetters).find(letter))] = true;
  }
  Text markers;
  for (std::size_t i = 0; i < kLetters.size(); ++i) {
    if (found[i]) markers.append(u"<").append(1, kLetters[i]).append(u">");
  }
  return markers + text;
}

Text MarkersToHtml(TextView text) {
  if (text.find(u'<') == TextView::npos) return Text(text);
  Text body(text);
  Text opening;
  Text closing;
  for (const TextView marker : kStyleMarkers) {
    const char16_t letter = marker[1];
    const TagCount count = CountTags(body, letter);
    if (count.open != 1 || count.close != 0) continue;
    body = ReplaceAll(body, marker, {});
    opening += marker;
    closing = u"</" + Text(1, letter) + u">" + closing;
  }
  return opening + body + closing;
}

}  // namespace cuewright

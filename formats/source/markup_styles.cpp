#include "formats/source/markup_styles.h"

#include <algorithm>

#include "formats/source/override_tags.h"
#include "text/digits.h"

namespace cuewright {
namespace {

/// True for a tag of the style in its brackets: "<i>", "</i>", "<i.loud>".
bool IsTagOf(TextView tag, char16_t letter) {
  tag.remove_prefix(tag.substr(1, 1) == u"/" ? 2 : 1);
  const TextView name = tag.substr(0, tag.find_first_of(u" \t./>"));
  return EqualLoose(name, TextView(&letter, 1)) || (letter == u'b' && EqualLoose(name, u"strong")) ||
         (letter == u'i' && EqualLoose(name, u"em"));
}

Text WithoutTags(TextView text, char16_t letter) {
  Text out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t open = std::min(text.find(u'<', at), text.size());
    out += text.substr(at, open - at);
    const std::size_t end = text.find_first_of(u"<>", open + 1);
    if (end == TextView::npos) return out += text.substr(open);
    const bool whole = text[end] == u'>';
    if (!whole || !IsTagOf(text.substr(open, end + 1 - open), letter)) {
      out += text.substr(open, end - open);
      at = end;
      if (whole) out += text[at++];
    } else {
      at = end + 1;
    }
  }
  return out;
}

/// The tags in a pair of braces without those of the style; "\b" with a weight counts as one.
Text WithoutOverride(TextView tags, char16_t letter) {
  Text out;
  std::size_t at = 0;
  while (at < tags.size()) {
    const std::size_t end = EndOfOverride(tags, at);
    const TextView tag = tags.substr(at, end == TextView::npos ? end : end - at);
    const bool style = tag.size() >= 2 && tag[0] == u'\\' && tag[1] == letter && (tag.size() == 2 || IsDigit(tag[2]));
    if (!style) out += tag;
    at += tag.size();
  }
  return out;
}

Text WithoutOverrides(TextView text, char16_t letter) {
  Text out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t open = std::min(text.find(u'{', at), text.size());
    out += text.substr(at, open - at);
    const std::size_t end = text.find(u'}', open);
    if (end == TextView::npos) return out += text.substr(open);
    const TextView tags = text.substr(open + 1, end - open - 1);
    const Text rest = WithoutOverride(tags, letter);
    if (!rest.empty() || tags.empty()) out += u"{" + rest + u"}";
    at = end + 1;
  }
  return out;
}

/// "{y:b,i}" without one of its letters.
Text WithoutLetter(TextView code, char16_t letter) {
  Text letters;
  for (const Text& one : Split(code.substr(3, code.size() - 4), u",")) {
    if (EqualLoose(TrimBlanks(one), TextView(&letter, 1))) continue;
    letters += (letters.empty() ? u"" : u",") + one;
  }
  return letters.empty() ? Text() : Text(code.substr(0, 3)) + letters + u"}";
}

Text LineWithoutCode(TextView line, char16_t letter) {
  Text out;
  while (line.size() > 3 && line[0] == u'{' && line[2] == u':' && line.find(u'}') != TextView::npos) {
    const TextView code = line.substr(0, line.find(u'}') + 1);
    out += (code[1] | 0x20) == u'y' ? WithoutLetter(code, letter) : Text(code);
    line.remove_prefix(code.size());
  }
  if (letter == u'i' && line.starts_with(u'/')) line.remove_prefix(1);
  return out + Text(line);
}

Text LineWithoutSign(TextView line, char16_t letter) {
  const char16_t sign = letter == u'b' ? u'\\' : letter == u'i' ? u'/' : u'_';
  const std::size_t signs = std::min(line.find_first_not_of(u"/\\_"), line.size());
  return ReplaceAll(line.substr(0, signs), TextView(&sign, 1), {}) + Text(line.substr(signs));
}

template <class Change>
Text EachLine(TextView text, TextView separator, Change change) {
  Text out;
  bool first = true;
  for (const Text& line : Split(text, separator)) {
    if (!first) out += separator;
    first = false;
    out += change(line);
  }
  return out;
}

}  // namespace

Text WithoutStyleMarks(TextView text, MarkKind kind, char16_t letter, TextView separator) {
  switch (kind) {
    case MarkKind::Plain:
      return Text(text);
    case MarkKind::SubStation:
      return WithoutOverrides(text, letter);
    case MarkKind::MicroDvd:
      return EachLine(text, separator, [&](TextView line) { return LineWithoutCode(line, letter); });
    case MarkKind::Mpl2:
      return EachLine(text, separator, [&](TextView line) { return LineWithoutSign(line, letter); });
    case MarkKind::SubRip:
      return WithoutOverrides(WithoutTags(text, letter), letter);
    default:
      return WithoutTags(text, letter);
  }
}

}  // namespace cuewright

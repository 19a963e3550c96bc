#include "formats/source/substation_text.h"

#include <utility>

#include "formats/source/whole_styles.h"

namespace cuewright {
namespace {

constexpr char16_t kHardBlank = u'\u00A0';

/// Sets what an override block such as "{\i1\b1}" switches; false when the block does anything else.
bool OnlySwitches(TextView block, char16_t value, WholeStyles& styles) {
  if (block.size() < 2 || block.front() != u'{' || block.back() != u'}') return false;
  const TextView tags = block.substr(1, block.size() - 2);
  if (tags.empty() || tags.size() % 3 != 0) return false;
  for (std::size_t at = 0; at < tags.size(); at += 3) {
    if (tags[at] != u'\\' || tags[at + 2] != value) return false;
    switch (tags[at + 1]) {
      case u'b':
        styles.bold = true;
        break;
      case u'i':
        styles.italic = true;
        break;
      case u'u':
        styles.underline = true;
        break;
      default:
        return false;
    }
  }
  return true;
}

/// True when an override within the text changes a style that was set for all of it.
bool StylesChange(TextView text) {
  for (std::size_t at = text.find(u'\\'); at != TextView::npos; at = text.find(u'\\', at + 1)) {
    const TextView tag = text.substr(at + 1, 2);
    if (tag.starts_with(u'r')) return true;
    const bool digit = tag.size() == 2 && tag[1] >= u'0' && tag[1] <= u'9';
    if (digit && (tag[0] == u'b' || tag[0] == u'i' || tag[0] == u'u')) return true;
  }
  return false;
}

/// An override in front of the text that only switches styles on becomes markers.
void OverridesToMarkers(Text& text, bool& closes) {
  const std::size_t first = text.find(u'}');
  WholeStyles styles;
  if (first == Text::npos || !OnlySwitches(TextView(text).substr(0, first + 1), u'1', styles)) return;
  TextView inner = TextView(text).substr(first + 1);
  bool closed = false;
  if (inner.ends_with(u'}')) {
    const std::size_t last = inner.rfind(u'{');
    WholeStyles ended;
    if (last != TextView::npos && OnlySwitches(inner.substr(last), u'0', ended)) {
      if (ended.bold != styles.bold || ended.italic != styles.italic || ended.underline != styles.underline) return;
      inner = inner.substr(0, last);
      closed = true;
    }
  }
  if (inner.find(u'{') != TextView::npos && StylesChange(inner)) return;
  closes = closed;
  text = Markers(styles) + Text(inner);
}

}  // namespace

void DecodeEventText(Text& text, TextView separator, bool& closes) {
  if (text.starts_with(u'{')) OverridesToMarkers(text, closes);
  std::size_t at = text.find(u'\\');
  if (at == Text::npos) return;
  Text decoded;
  decoded.reserve(text.size());
  std::size_t kept = 0;
  for (; at != Text::npos && at + 1 < text.size(); at = text.find(u'\\', at + 1)) {
    const char16_t letter = text[at + 1];
    if (letter != u'N' && letter != u'h') continue;
    decoded.append(text, kept, at - kept);
    if (letter == u'N') {
      decoded += separator;
    } else {
      decoded += kHardBlank;
    }
    kept = at + 2;
  }
  decoded.append(text, kept);
  text = std::move(decoded);
}

Text EncodeEventText(TextView text, TextView separator, bool closes) {
  Text inner(text);
  const WholeStyles styles = TakeMarkers(inner);
  inner = ReplaceAll(inner, separator, u"\\N");
  inner = ReplaceAll(inner, TextView(&kHardBlank, 1), u"\\h");
  if (!styles.Any()) return inner;
  Text on = u"{";
  Text off = u"{";
  for (const auto& [set, letter] : {std::pair{styles.bold, u'b'}, {styles.italic, u'i'}, {styles.underline, u'u'}}) {
    if (!set) continue;
    on += {u'\\', letter, u'1'};
    off += {u'\\', letter, u'0'};
  }
  return on + u"}" + inner + (closes ? off + u"}" : Text());
}

}  // namespace cuewright

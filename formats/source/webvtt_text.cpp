#include "formats/source/webvtt_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace cuewright {
namespace {

/// Characters by name, those that the format's rules ask readers to know.
struct NamedCharacter {
  TextView name;
  char16_t character;
};
constexpr std::array<NamedCharacter, 6> kNamed = {{{u"&amp;", u'&'},
                                                   {u"&lt;", u'<'},
                                                   {u"&gt;", u'>'},
                                                   {u"&nbsp;", u'\u00A0'},
                                                   {u"&lrm;", u'\u200E'},
                                                   {u"&rlm;", u'\u200F'}}};

const NamedCharacter* NamedAt(TextView text) {
  for (const NamedCharacter& named : kNamed) {
    if (text.starts_with(named.name)) return &named;
  }
  return nullptr;
}

/// What may follow the bracket of a tag: a letter, the slash of a closing one, a class, the digits of a time.
bool MayBeginTag(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'/' || c == u'.';
}

/// Where the tag that begins here ends, behind its bracket; 0: no tag begins here.
std::size_t TagEnd(TextView text, std::size_t at) {
  if (at + 1 >= text.size() || text[at] != u'<' || !MayBeginTag(text[at + 1])) return 0;
  const std::size_t end = text.find_first_of(u"<>", at + 1);
  return end == TextView::npos || text[end] == u'<' ? 0 : end + 1;
}

/// A bracket that is written by name would begin a tag if it stood for itself. Tags hold no other bracket, so nobody
/// looks farther than to the next.
bool NamedBracketIsNeeded(TextView text, std::size_t behind) {
  if (behind >= text.size() || !MayBeginTag(text[behind])) return false;
  for (std::size_t at = text.find_first_of(u"<>&", behind); at != TextView::npos;
       at = text.find_first_of(u"<>&", at + 1)) {
    if (text[at] == u'>') return true;
    if (text[at] == u'<') return false;
    const NamedCharacter* named = NamedAt(text.substr(at));
    if (named != nullptr && named->character == u'>') return true;
    if (named != nullptr && named->character == u'<') return false;
  }
  return false;
}

bool NameIsNeeded(TextView text, std::size_t at, const NamedCharacter& named) {
  const std::size_t behind = at + named.name.size();
  if (named.character == u'<') return NamedBracketIsNeeded(text, behind);
  // "&amp;lt;" is the text "&lt;", which would be read as a bracket.
  if (named.character == u'&') return NamedAt(u"&" + Text(text.substr(behind, 5))) != nullptr;
  return false;
}

}  // namespace

void DecodeCueText(Text& text) {
  std::size_t at = text.find(u'&');
  if (at == Text::npos) return;
  Text decoded;
  decoded.reserve(text.size());
  std::size_t kept = 0;
  for (; at != Text::npos; at = text.find(u'&', at)) {
    const NamedCharacter* named = NamedAt(TextView(text).substr(at));
    if (named == nullptr) {
      ++at;
      continue;
    }
    if (!NameIsNeeded(text, at, *named)) {
      decoded.append(text, kept, at - kept).push_back(named->character);
      kept = at + named->name.size();
    }
    at += named->name.size();
  }
  decoded.append(text, kept);
  text = std::move(decoded);
}

Text EncodeCueText(TextView text, bool namesHardBlanks) {
  const TextView special = namesHardBlanks ? u"&<>\u00A0" : u"&<>";
  Text encoded;
  encoded.reserve(text.size());
  std::size_t kept = 0;
  for (std::size_t at = text.find_first_of(special); at != TextView::npos; at = text.find_first_of(special, at)) {
    if (const std::size_t tag = TagEnd(text, at)) {
      at = tag;
      continue;
    }
    if (text[at] == u'&' && NamedAt(text.substr(at)) != nullptr) {
      ++at;
      continue;
    }
    encoded.append(text.substr(kept, at - kept));
    const auto named = std::find_if(kNamed.begin(), kNamed.end(),
                                    [&](const NamedCharacter& entry) { return entry.character == text[at]; });
    encoded += named->name;
    kept = ++at;
  }
  encoded.append(text.substr(kept));
  return encoded;
}

}  // namespace cuewright

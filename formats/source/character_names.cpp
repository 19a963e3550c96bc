#include "formats/source/character_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

struct Name {
  TextView name;
  char16_t character;
};
/// The characters that are written by name come first.
constexpr std::array<Name, 8> kNames = {{{u"&amp;", u'&'},
                                         {u"&lt;", u'<'},
                                         {u"&gt;", u'>'},
                                         {u"&nbsp;", u'\u00A0'},
                                         {u"&quot;", u'"'},
                                         {u"&apos;", u'\''},
                                         {u"&lrm;", u'\u200E'},
                                         {u"&rlm;", u'\u200F'}}};
constexpr std::size_t kLongestReference = 10;  // "&#x10FFFF;"

/// A character that stands by name or number; a size of 0: there is none.
struct Reference {
  char32_t character = 0;
  std::size_t size = 0;
};

Reference NumberAt(TextView text) {
  const bool hex = text.size() > 2 && (text[2] | 0x20) == u'x';
  char32_t number = 0;
  std::size_t at = hex ? 3 : 2;
  const std::size_t first = at;
  for (; at < std::min(text.size(), kLongestReference); ++at) {
    const char16_t c = text[at];
    const char16_t small = c | 0x20;
    if (IsDigit(c)) {
      number = number * (hex ? 16 : 10) + (c - u'0');
    } else if (hex && small >= u'a' && small <= u'f') {
      number = number * 16 + (small - u'a' + 10u);
    } else {
      break;
    }
  }
  const bool valid = number >= 32 && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
  if (at == first || at >= text.size() || text[at] != u';' || !valid) return {};
  return {number, at + 1};
}

Reference ReferenceAt(TextView text) {
  if (!text.starts_with(u'&')) return {};
  if (text.substr(1, 1) == u"#") return NumberAt(text);
  for (const auto& [name, character] : kNames) {
    if (text.starts_with(name)) return {character, name.size()};
  }
  return {};
}

/// What may follow the bracket of a tag: a letter, the slash of a closing one, a class, the digits of a time.
bool MayBeginTag(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || IsDigit(c) || c == u'/' || c == u'.';
}

/// Where the tag that begins here ends, behind its bracket; 0: no tag begins here.
std::size_t TagEnd(TextView text, std::size_t at) {
  if (at + 1 >= text.size() || text[at] != u'<' || !MayBeginTag(text[at + 1])) return 0;
  const std::size_t end = text.find_first_of(u"<>", at + 1);
  return end == TextView::npos || text[end] == u'<' ? 0 : end + 1;
}

/// True for a bracket written by name that would begin a tag if it stood for itself. Tags hold no other bracket, so the
/// search ends at the next one.
bool BracketNeedsName(TextView text, std::size_t behind) {
  if (behind >= text.size() || !MayBeginTag(text[behind])) return false;
  for (std::size_t at = text.find_first_of(u"<>&", behind); at != TextView::npos;
       at = text.find_first_of(u"<>&", at + 1)) {
    const char32_t c = text[at] == u'&' ? ReferenceAt(text.substr(at)).character : text[at];
    if (c == U'>') return true;
    if (c == U'<') return false;
  }
  return false;
}

bool NameIsNeeded(TextView text, std::size_t at, const Reference& reference) {
  const std::size_t behind = at + reference.size;
  if (reference.character == U'<') return BracketNeedsName(text, behind);
  // "&amp;lt;" is the text "&lt;", which would be read as a bracket.
  if (reference.character == U'&') return ReferenceAt(u"&" + Text(text.substr(behind, kLongestReference))).size != 0;
  return false;
}

void AppendCharacter(char32_t character, Text& out) {
  if (character < 0x10000) {
    out += LowUnit(character);
    return;
  }
  out += LeadOf(character);
  out += TrailOf(character);
}

/// Decodes the references that `keep` doesn't want as they are.
template <class Keep>
void Decode(Text& text, Keep keep) {
  std::size_t at = text.find(u'&');
  if (at == Text::npos) return;
  Text decoded;
  decoded.reserve(text.size());
  std::size_t kept = 0;
  for (; at != Text::npos; at = text.find(u'&', at)) {
    const Reference reference = ReferenceAt(TextView(text).substr(at));
    if (reference.size == 0) {
      ++at;
      continue;
    }
    if (!keep(at, reference)) {
      decoded.append(text, kept, at - kept);
      AppendCharacter(reference.character, decoded);
      kept = at + reference.size;
    }
    at += reference.size;
  }
  decoded.append(text, kept);
  text = std::move(decoded);
}

TextView NameOf(char16_t character) {
  return std::find_if(kNames.begin(), kNames.end(), [&](const Name& name) { return name.character == character; })
      ->name;
}

}  // namespace

void DecodeNames(Text& text) {
  Decode(text, [&](std::size_t at, const Reference& reference) { return NameIsNeeded(text, at, reference); });
}

void DecodeAllNames(Text& text) {
  Decode(text, [](std::size_t, const Reference&) { return false; });
}

TextView NameAtBeginning(TextView text) { return text.substr(0, ReferenceAt(text).size); }

Text EncodeNames(TextView text, bool namesHardBlanks) {
  const TextView special = namesHardBlanks ? u"&<>\u00A0" : u"&<>";
  Text encoded;
  encoded.reserve(text.size());
  std::size_t kept = 0;
  for (std::size_t at = text.find_first_of(special); at != TextView::npos; at = text.find_first_of(special, at)) {
    if (const std::size_t tag = TagEnd(text, at)) {
      at = tag;
      continue;
    }
    if (text[at] == u'&' && ReferenceAt(text.substr(at)).size != 0) {
      ++at;
      continue;
    }
    encoded.append(text.substr(kept, at - kept)).append(NameOf(text[at]));
    kept = ++at;
  }
  return encoded.append(text.substr(kept));
}

Text EncodeAllNames(TextView text) {
  Text encoded;
  encoded.reserve(text.size());
  std::size_t kept = 0;
  for (std::size_t at = text.find_first_of(u"&<>"); at != TextView::npos; at = text.find_first_of(u"&<>", kept)) {
    encoded.append(text.substr(kept, at - kept)).append(NameOf(text[at]));
    kept = at + 1;
  }
  return encoded.append(text.substr(kept));
}

}  // namespace cuewright

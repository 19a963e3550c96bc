#include <algorithm>

#include "formats/source/character_names.h"
#include "formats/source/markup_colours.h"
#include "formats/source/markup_reader.h"
#include "text/digits.h"

namespace cuewright {
namespace {

/// A tag between its brackets.
struct Tag {
  bool closing = false;
  Text name;  ///< in small letters, without its name space
  TextView classes;
  TextView rest;

  explicit Tag(TextView inner) {
    closing = inner.starts_with(u'/');
    if (closing) inner.remove_prefix(1);
    const std::size_t end = std::min(inner.find_first_of(u" \t\r\n./"), inner.size());
    TextView whole = inner.substr(0, end);
    const std::size_t colon = whole.find(u':');
    if (colon != TextView::npos && !IsDigit(whole.front())) whole.remove_prefix(colon + 1);
    name = ToLower(whole);
    rest = inner.substr(end);
    if (!rest.starts_with(u'.')) return;
    classes = rest.substr(1, rest.find_first_of(u" \t\r\n") - 1);
    rest.remove_prefix(classes.size() + 1);
  }
};

bool IsBlankUnit(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

/// Calls `take` with each attribute's name in small letters, without its name space, and its value.
template <class Take>
void EachAttribute(TextView rest, Take take) {
  std::size_t at = 0;
  while (at < rest.size()) {
    while (at < rest.size() && (IsBlankUnit(rest[at]) || rest[at] == u'/')) ++at;
    const std::size_t nameEnd = std::min(rest.find_first_of(u"= \t\r\n", at), rest.size());
    TextView name = rest.substr(at, nameEnd - at);
    name.remove_prefix(name.find(u':') == TextView::npos ? 0 : name.find(u':') + 1);
    at = nameEnd;
    while (at < rest.size() && (IsBlankUnit(rest[at]) || rest[at] == u'=')) ++at;
    if (at >= rest.size()) return;
    const bool quoted = rest[at] == u'"' || rest[at] == u'\'';
    const std::size_t begin = quoted ? at + 1 : at;
    const std::size_t end =
        std::min(quoted ? rest.find(rest[at], begin) : rest.find_first_of(u" \t\r\n", begin), rest.size());
    if (!name.empty()) take(ToLower(name), rest.substr(begin, end - begin));
    at = end + (quoted ? 1 : 0);
  }
}

/// How deep tags may stand within tags; what lies deeper is plain text.
constexpr std::size_t kDeepest = 64;

/// Reads the tags of one caption. Each opens a style, which holds until the same tag is closed.
class TagReader {
 public:
  TagReader(MarkKind kind, TextView separator, const TtmlStyles* named, RunBuilder& runs)
      : kind_(kind), separator_(separator), named_(named), runs_(runs), overrides_(runs, runs.style) {}

  void Read(TextView text) {
    const TextView marks = kind_ == MarkKind::SubRip ? u"<{" : u"<";
    const std::size_t lastTagEnd = LastOf(text, u'>');
    const std::size_t lastBlockEnd = LastOf(text, u'}');
    std::size_t at = 0;
    for (;;) {
      const std::size_t next = std::min(text.find_first_of(marks, at), text.size());
      AppendText(text.substr(at, next - at));
      if (next == text.size()) return;
      at = next;
      if (text[at] == u'{') {
        at = ReadBlock(text, at, lastBlockEnd);
      } else {
        at = ReadTag(text, at, lastTagEnd);
      }
    }
  }

 private:
  struct Open {
    Text name;
    RunStyle before;
  };

  static std::size_t LastOf(TextView text, char16_t c) {
    const std::size_t last = text.rfind(c);
    return last == TextView::npos ? 0 : last;
  }

  void AppendText(TextView text) {
    if (kind_ == MarkKind::SubRip) return runs_.Append(text);
    for (std::size_t at = text.find(u'&'); at != TextView::npos; at = text.find(u'&')) {
      runs_.Append(text.substr(0, at));
      const TextView name = NameAtBeginning(text.substr(at));
      Text decoded(name);
      DecodeAllNames(decoded);
      if (name.empty()) {
        runs_.Append(text.substr(at, 1));
      } else {
        runs_.AppendInstead(decoded, name);
      }
      text.remove_prefix(at + std::max<std::size_t>(name.size(), 1));
    }
    runs_.Append(text);
  }

  std::size_t ReadBlock(TextView text, std::size_t at, std::size_t lastEnd) {
    if (at < lastEnd && text.substr(at, 2) == u"{\\") {
      const std::size_t end = text.find(u'}', at);
      overrides_.ReadBlock(text.substr(at + 1, end - at - 1));
      return end + 1;
    }
    runs_.Append(text.substr(at, 1));
    return at + 1;
  }

  std::size_t ReadTag(TextView text, std::size_t at, std::size_t lastEnd) {
    if (at >= lastEnd) {
      runs_.Append(text.substr(at, 1));
      return at + 1;
    }
    const std::size_t end = text.find_first_of(u"<>", at + 1);
    tag_ = text.substr(at, end + 1 - at);
    const TextView inner = text.substr(at + 1, end - at - 1);
    if (text[end] == u'>' && !inner.empty() && TakeTag(inner)) return end + 1;
    runs_.Append(text.substr(at, 1));
    return at + 1;
  }

  /// Takes a tag; false when it is text that only looks like one.
  bool TakeTag(TextView inner) {
    if (kind_ == MarkKind::WebVtt && IsDigit(inner.front())) {
      runs_.Found(Loss::Karaoke);
      return true;
    }
    const Tag tag(inner);
    if (tag.name == u"br") {
      runs_.AppendInstead(separator_, tag_);
      return true;
    }
    if (!Known(tag.name)) {
      // SubRip's viewers show what they don't know; the others' rules leave it out.
      const char16_t first = tag.name.empty() ? u' ' : tag.name.front();
      if (kind_ == MarkKind::SubRip || !((first >= u'a' && first <= u'z') || tag.closing)) return false;
      runs_.Found(Loss::Other);
      return true;
    }
    if (tag.closing) {
      Close(tag.name);
    } else if (!inner.ends_with(u'/') && open_.size() < kDeepest) {
      open_.push_back({tag.name, runs_.style});
      Apply(tag);
    }
    return true;
  }

  static bool Known(TextView name) {
    for (const TextView known : {u"b", u"i", u"u", u"s", u"strike", u"del", u"font", u"c", u"v", u"span", u"ruby",
                                 u"rt", u"lang", u"strong", u"em"}) {
      if (name == known) return true;
    }
    return false;
  }

  void Close(const Text& name) {
    std::size_t depth = open_.size();
    while (depth > 0 && open_[depth - 1].name != name) --depth;
    if (depth == 0) return;
    if (name == u"rt") runs_.AppendInstead(u")", tag_);
    runs_.style = open_[depth - 1].before;
    open_.resize(depth - 1);
  }

  void Apply(const Tag& tag) {
    RunStyle& style = runs_.style;
    if (tag.name == u"b" || tag.name == u"strong") style.bold = true;
    if (tag.name == u"i" || tag.name == u"em") style.italic = true;
    if (tag.name == u"u") style.underline = true;
    if (tag.name == u"s" || tag.name == u"strike" || tag.name == u"del") style.strike = true;
    if (tag.name == u"ruby") runs_.Found(Loss::Ruby);
    if (tag.name == u"rt") runs_.AppendInstead(u"(", tag_);
    if (tag.name == u"lang") runs_.Found(Loss::Other);
    if (tag.name == u"v") TakeSpeaker(TrimBlanks(tag.rest));
    if (tag.name == u"font") EachAttribute(tag.rest, [&](const Text& name, TextView value) { TakeFont(name, value); });
    if (tag.name == u"span") TakeSpan(tag.rest);
    TakeClasses(tag.classes);
  }

  void TakeSpeaker(TextView name) {
    Text& speaker = runs_.Result().speaker;
    const bool another = !speaker.empty() && speaker != name;
    // A caption has one speaker; the others are told in its text.
    if (another) runs_.AppendUnplaced(Text(name) + u": ");
    if (speaker.empty()) speaker = name;
  }

  void TakeClasses(TextView classes) {
    if (classes.empty()) return;
    for (const Text& name : Split(classes, u".")) {
      if (const auto colour = ColourOfCueClass(name)) {
        runs_.style.colour = colour;
      } else {
        runs_.Found(Loss::Class);
      }
    }
  }

  void TakeColour(TextView value) {
    if (const auto colour = WebColour(value)) {
      runs_.style.colour = colour;
    } else {
      runs_.Found(Loss::Colour);
    }
  }

  void TakeFont(const Text& name, TextView value) {
    if (name == u"color") TakeColour(value);
    if (name == u"face") runs_.Found(Loss::Font);
    if (name == u"size") runs_.Found(Loss::Size);
  }

  /// What a span says itself goes before the styles that it names.
  void TakeSpan(TextView attributes) {
    TtmlStyle named;
    TtmlStyle own;
    EachAttribute(attributes, [&](const Text& name, TextView value) {
      if (name == u"style") {
        TakeNamed(value, named);
      } else if (name == u"color") {
        TakeColour(value);
        own.colour = runs_.style.colour;
      } else if (!own.TakeAttribute(name, value)) {
        TellLosses(name);
      }
    });
    const auto colour = runs_.style.colour;
    named.Apply(runs_.style);
    if (own.colour) runs_.style.colour = colour;
    own.colour.reset();
    own.Apply(runs_.style);
  }

  void TakeNamed(TextView names, TtmlStyle& style) {
    for (const Text& name : Split(names, u" ")) {
      const auto hit = named_ == nullptr ? TtmlStyles::const_iterator() : named_->find(name);
      const bool known = named_ != nullptr && hit != named_->end();
      if (known) style.Take(hit->second);
      if (!known || hit->second.others) runs_.Found(Loss::Class);
    }
  }

  void TellLosses(const Text& name) {
    if (name == u"fontfamily") runs_.Found(Loss::Font);
    if (name == u"fontsize") runs_.Found(Loss::Size);
    if (name == u"class" || name == u"region") runs_.Found(Loss::Class);
    if (name == u"ruby") runs_.Found(Loss::Ruby);
    if (name == u"begin" || name == u"end" || name == u"dur") runs_.Found(Loss::Karaoke);
    if (name == u"backgroundcolor" || name == u"textoutline") runs_.Found(Loss::Effect);
  }

  MarkKind kind_;
  TextView separator_;
  const TtmlStyles* named_;
  RunBuilder& runs_;
  OverrideReader overrides_;
  TextView tag_;  // that is being read, with its brackets
  std::vector<Open> open_;
};

}  // namespace

void ReadTags(TextView text, MarkKind kind, TextView separator, const TtmlStyles* named, RunBuilder& runs) {
  TagReader(kind, separator, named, runs).Read(text);
}

}  // namespace cuewright

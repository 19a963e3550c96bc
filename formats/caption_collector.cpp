#include "formats/caption_collector.h"

#include <utility>

namespace cuewright {
namespace {

constexpr std::array<TextView, 3> kMarkers = {u"<b>", u"<i>", u"<u>"};
constexpr std::array<TextView, 3> kClosings = {u"</b>", u"</i>", u"</u>"};

bool Holds(TextView text, TextView part) { return FindLoose(text, part) != TextView::npos; }

bool HoldsChar(TextView text, char16_t c) { return FindCharacter(text, c) != TextView::npos; }

/// Takes every CR LF out, in place.
void RemoveLineEnds(Text& text) {
  std::size_t hit = text.find(kLineEnd);
  if (hit == Text::npos) return;
  std::size_t to = hit;
  for (std::size_t at = hit; at < text.size();) {
    if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') {
      at += 2;
    } else {
      text[to++] = text[at++];
    }
  }
  text.resize(to);
}

}  // namespace

CaptionCollector::CaptionCollector(const FormatDefinition& definition, const Text& separator)
    : definition_(definition), separator_(separator) {
  DefinitionChanged();
}

CaptionCollector::Tag CaptionCollector::MakeTag(const FormatDefinition& definition, char16_t letter) {
  const Text with(1, letter);
  Text open = definition.tagOpen;
  Text close = definition.tagClose;
  if (letter != u'b') {
    open = ReplaceLoose(open, u"b", with);
    close = ReplaceLoose(close, u"b", with);
  }
  Tag tag{Needle(open), Needle(close == u"---" ? Text() : close), {}};
  // The letters of the tag decide, whatever kind it is for; each goes in front of the one before.
  for (const TextView marker : kMarkers) {
    if (Holds(open, marker.substr(1, 1))) tag.markers.insert(0, marker);
  }
  return tag;
}

void CaptionCollector::DefinitionChanged() {
  tags_.clear();
  const unsigned flags = definition_.tagFlags;
  if ((flags & 4u) != 0) tags_.push_back(MakeTag(definition_, u'u'));
  if ((flags & 2u) != 0) tags_.push_back(MakeTag(definition_, u'i'));
  if ((flags & 1u) != 0) tags_.push_back(MakeTag(definition_, u'b'));
  tagsAreAngled_ = flags == 0 || definition_.tagOpen.find(u'<') != Text::npos;
  const Text& lineBreak = definition_.lineBreak;
  breaks_ = lineBreak != separator_ && lineBreak != u"[enter]" && lineBreak != u"none" && !lineBreak.empty();
}

void CaptionCollector::AddLine(TextView line) {
  if (!captionText.empty()) captionText += separator_;
  captionText += line;
}

void CaptionCollector::Reset() {
  captionText.clear();
  captionStart = captionEnd = kNotRead;
}

void CaptionCollector::TagsToMarkers() {
  for (const Tag& tag : tags_) {
    if (!tag.open.In(captionText)) continue;
    tag.open.Replace(captionText, {});
    tag.close.Replace(captionText, {});
    captionText.insert(0, tag.markers);
  }
}

void CaptionCollector::FlushImportedCaption() {
  const bool special = HoldsEither(captionText, u'<', u'\r');
  const bool angled = special && HoldsChar(captionText, u'<');
  if (angled) {
    for (const Needle& closing : closings_) closing.Replace(captionText, {});
  }
  if (angled || !tagsAreAngled_) TagsToMarkers();
  if (breaks_) Exchange(captionText, definition_.lineBreak, separator_);
  if (special) RemoveLineEnds(captionText);
  if (!IsBlank(captionText)) StoreImportedCaption();
  Reset();
}

void CaptionCollector::FlushPlain(TextView text) {
  if (!tagsAreAngled_ || breaks_) {
    captionText = text;
    FlushImportedCaption();
    return;
  }
  if (!IsBlank(text)) Store(text);
  Reset();
}

void CaptionCollector::Store(TextView text) {
  const auto time = [](std::int32_t ms) { return ms == kNotRead ? 0 : ms; };
  buffer_.push_back({time(captionStart), time(captionEnd), Text(text)});
}

void CaptionCollector::StoreImportedCaption() {
  if (definition_.tagFlags != 0 && HoldsChar(captionText, u'<')) {
    for (std::size_t i = 0; i < kMarkers.size(); ++i) {
      if (!markers_[i].In(captionText)) continue;
      captionText = ReplaceAll(ReplaceAll(captionText, kMarkers[i], {}), kClosings[i], {});
      captionText.insert(0, kMarkers[i]);
    }
  }
  Store(captionText);
}

}  // namespace cuewright

#include "formats/caption_collector.h"

#include <utility>

#include "formats/text_search.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, 3> kMarkers = {u"<b>", u"<i>", u"<u>"};
constexpr std::array<TextView, 3> kClosings = {u"</b>", u"</i>", u"</u>"};

bool Holds(TextView text, TextView part) { return FindLoose(text, part) != TextView::npos; }

bool HoldsChar(TextView text, char16_t c) { return text.find(c) != TextView::npos; }

}  // namespace

CaptionCollector::CaptionCollector(const FormatDefinition& definition, const Text& separator)
    : definition_(definition), separator_(separator) {
  DefinitionChanged();
}

CaptionCollector::Tag CaptionCollector::MakeTag(const FormatDefinition& definition, char16_t letter) {
  const Text with(1, letter);
  Tag tag{definition.tagOpen, definition.tagClose, {}};
  if (letter != u'b') {
    tag.open = ReplaceLoose(tag.open, u"b", with);
    tag.close = ReplaceLoose(tag.close, u"b", with);
  }
  // The letters of the tag decide, whatever kind it is for; each goes in front of the one before.
  for (const TextView marker : kMarkers) {
    if (Holds(tag.open, marker.substr(1, 1))) tag.markers.insert(0, marker);
  }
  return tag;
}

void CaptionCollector::DefinitionChanged() {
  tags_.clear();
  const unsigned flags = definition_.tagFlags;
  if ((flags & 4u) != 0) tags_.push_back(MakeTag(definition_, u'u'));
  if ((flags & 2u) != 0) tags_.push_back(MakeTag(definition_, u'i'));
  if ((flags & 1u) != 0) tags_.push_back(MakeTag(definition_, u'b'));
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
    if (captionText.empty() || !Holds(captionText, tag.open)) continue;
    captionText = ReplaceLoose(captionText, tag.open, {});
    if (tag.close != u"---") captionText = ReplaceLoose(captionText, tag.close, {});
    captionText.insert(0, tag.markers);
  }
}

void CaptionCollector::FlushImportedCaption() {
  if (HoldsChar(captionText, u'<')) {
    for (const TextView closing : kClosings) captionText = ReplaceLoose(captionText, closing, {});
  }
  TagsToMarkers();
  if (breaks_) captionText = ReplaceAll(captionText, definition_.lineBreak, separator_);
  if (HoldsChar(captionText, u'\r')) captionText = ReplaceAll(captionText, kLineEnd, {});
  if (!IsBlank(captionText)) StoreImportedCaption();
  Reset();
}

void CaptionCollector::StoreImportedCaption() {
  if (definition_.tagFlags != 0 && HoldsChar(captionText, u'<')) {
    for (std::size_t i = 0; i < kMarkers.size(); ++i) {
      if (!Holds(captionText, kMarkers[i])) continue;
      captionText = ReplaceAll(ReplaceAll(captionText, kMarkers[i], {}), kClosings[i], {});
      captionText.insert(0, kMarkers[i]);
    }
  }
  const auto time = [](std::int32_t ms) { return ms == kNotRead ? 0 : ms; };
  buffer_.push_back({time(captionStart), time(captionEnd), captionText});
}

}  // namespace cuewright

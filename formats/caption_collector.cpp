#include "formats/caption_collector.h"

#include "core/style_markers.h"

#include <utility>

namespace cuewright {
namespace {

constexpr std::array<TextView, 3> kClosings = {u"</b>", u"</i>", u"</u>"};

bool Holds(TextView text, TextView part) { return FindLoose(text, part) != TextView::npos; }

bool HoldsChar(TextView text, char16_t c) { return FindCharacter(text, c) != TextView::npos; }

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
  // The letters in the tag decide which markers a caption gets; each marker goes in front of the one before.
  for (const TextView marker : kStyleMarkers) {
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
  const TextView marks = u"<{[^@";
  const std::size_t anchor = definition_.tagOpen.find_first_of(marks);
  tagAnchor_ = flags == 0 ? u'<' : anchor == Text::npos ? u'\0' : definition_.tagOpen[anchor];
  separatorIsAngled_ = HoldsChar(separator_, u'<');
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

void CaptionCollector::RemoveLineEnds() {
  Exchange(captionText, kLineEnd, {});
  // A line that was taken without the last character of its CR LF ends in the CR alone.
  if (!separator_.empty()) Exchange(captionText, u"\r" + separator_, separator_);
  if (captionText.ends_with(u'\r')) captionText.pop_back();
}

void CaptionCollector::FlushImportedCaption() {
  const unsigned held = HeldOf(captionText, u'<', u'\r', tagAnchor_);
  const bool angled = (held & 1u) != 0;
  const bool tagged = (held & 4u) != 0 || tagAnchor_ == u'\0';
  if (angled && HoldsChar(captionText, u'/')) {
    for (const Needle& closing : closings_) closing.Replace(captionText, {});
  }
  if (tagged) TagsToMarkers();
  if (breaks_) Exchange(captionText, definition_.lineBreak, separator_);
  if ((held & 2u) != 0) RemoveLineEnds();
  if (!IsBlank(captionText)) {
    if (angled || tagged || separatorIsAngled_) {
      StoreImportedCaption();
    } else {
      Store(captionText);
    }
  }
  Reset();
}

bool CaptionCollector::StoresStraight(char16_t absent) const {
  const std::array<char16_t, 4> marks = {u'<', u'\r', tagAnchor_, absent == u'\0' ? u'<' : absent};
  const auto holdsMark = [&](const Text& text) { return text.find_first_of(marks.data(), 0, 4) != Text::npos; };
  return tagAnchor_ != u'\0' && !holdsMark(separator_) && (!breaks_ || holdsMark(definition_.lineBreak));
}

void CaptionCollector::FlushStraight(TextView text) {
  if (!IsBlank(text)) Store(text);
  Reset();
}

TextView CaptionCollector::MereBreak() const {
  const bool mere =
      breaks_ && StoresStraight(u'\0') && definition_.tagOpen == kBoldMarker && definition_.lineBreak == u"<br>";
  return mere ? TextView(definition_.lineBreak) : TextView();
}

void CaptionCollector::Store(TextView text) {
  if (gathered_ + text.size() > kMostText) {
    dropped_ = true;
    return;
  }
  gathered_ += text.size();
  const auto time = [](Ms ms) { return ms == kNotRead ? 0 : ms; };
  buffer_.push_back({time(captionStart), time(captionEnd), Text(text)});
}

void CaptionCollector::StoreImportedCaption() {
  if (definition_.tagFlags != 0 && HoldsChar(captionText, u'<')) {
    for (std::size_t i = 0; i < kStyleMarkers.size(); ++i) {
      if (!markers_[i].In(captionText)) continue;
      captionText = ReplaceAll(ReplaceAll(captionText, kStyleMarkers[i], {}), kClosings[i], {});
      captionText.insert(0, kStyleMarkers[i]);
    }
  }
  Store(captionText);
}

}  // namespace cuewright

#include "formats/beside_fields.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "formats/source/character_names.h"
#include "formats/source/cue_settings.h"
#include "formats/source/ttml_text.h"

namespace cuewright {
namespace {

// Where the catalogue's records of events name the speaker; "NTP" stands for nobody.
constexpr TextView kNobody = u"Default,,";
constexpr TextView kNobodyV4 = u"Default,NTP,";

Text RegionName(int place) { return u"place" + Decimal(place); }

Text Region(int place) {
  constexpr TextView kRows[] = {u"after", u"center", u"before"};
  constexpr TextView kColumns[] = {u"left", u"center", u"right"};
  return u"<region xml:id=\"" + RegionName(place) + u"\" tts:origin=\"10% 10%\" tts:extent=\"80% 80%\"" +
         u" tts:displayAlign=\"" + Text(kRows[RowOfPlace(place)]) + u"\" tts:textAlign=\"" +
         Text(kColumns[ColumnOfPlace(place) + 1]) + u"\"/>" + Text(kLineEnd);
}

void DeclarePrefix(TextView prefix, TextView meaning, FormatDefinition& definition) {
  Text& header = definition.headerText;
  const Text declared = u" xmlns:" + Text(prefix) + u"=\"" + Text(meaning) + u"\"";
  const std::size_t root = header.find(u"<tt ");
  if (root == Text::npos || header.find(declared) != Text::npos) return;
  header.insert(std::min(header.find(u'>', root), header.size()), declared);
}

}  // namespace

void DeclareStyles(FormatDefinition& definition) { DeclarePrefix(u"tts", kTtmlStyling, definition); }

BesideFields::BesideFields(TextView identifier, std::vector<Beside> captions)
    : kind_(MarkKindOf(identifier)), identifier_(identifier), captions_(std::move(captions)) {
  for (const Beside& beside : captions_) {
    places_.insert(beside.place);
    if (!beside.speaker.empty()) speakers_.insert(beside.speaker);
  }
}

void BesideFields::MakeRoom(FormatDefinition& definition) const {
  const auto put = [&](TextView before, const Text& with) {
    definition.recordText = ReplaceFirst(definition.recordText, before, with);
  };
  switch (kind_) {
    case MarkKind::SubStation:
      put(kNobody, u"Default," + Text(kBesideField) + u",");
      return put(kNobodyV4, u"Default," + Text(kBesideField) + u",");
    case MarkKind::WebVtt:
      return put(u"qxmEnd", u"qxmEnd" + Text(kBesideField));
    case MarkKind::Ttml:
      put(u"end=\"qxmEnd\"", u"end=\"qxmEnd\"" + Text(kBesideField));
      DeclareStyles(definition);
      DeclarePrefix(u"ttm", u"http://www.w3.org/ns/ttml#metadata", definition);
      definition.headerText = ReplaceFirst(definition.headerText, u"<body>", Head() + u"<body>");
      return;
    default:
      return;
  }
}

/// Declares the speakers, and a region for each place. Where there are regions, each caption has to name one.
Text BesideFields::Head() const {
  const Text end(kLineEnd);
  Text head = u"<head>" + end;
  if (!speakers_.empty()) {
    head += u"<metadata>" + end;
    for (const Text& speaker : speakers_) {
      head += u"<ttm:agent xml:id=\"" + SpeakerName(speaker) + u"\" type=\"person\"><ttm:name type=\"full\">" +
              EncodeAllNames(speaker) + u"</ttm:name></ttm:agent>" + end;
    }
    head += u"</metadata>" + end;
  }
  head += u"<layout>" + end;
  for (const int place : places_) head += Region(place);
  return head + u"</layout>" + end + u"</head>" + end;
}

Text BesideFields::SpeakerName(const Text& speaker) const {
  return u"speaker" + Decimal(std::distance(speakers_.begin(), speakers_.find(speaker)) + 1);
}

Text BesideFields::FieldOf(Row row) const {
  const Beside& beside = captions_[row.Index()];
  switch (kind_) {
    case MarkKind::SubStation:
      if (beside.speaker.empty()) return identifier_ == u"SUBSTATIONALPHA" ? u"NTP" : u"";
      // A comma would end the field.
      return ReplaceAll(beside.speaker, u",", u" ");
    case MarkKind::WebVtt:
      return SettingsOfPlace(beside.place);
    case MarkKind::Ttml: {
      const Text region = u" region=\"" + RegionName(beside.place) + u"\"";
      return beside.speaker.empty() ? region : region + u" ttm:agent=\"" + SpeakerName(beside.speaker) + u"\"";
    }
    default:
      return {};
  }
}

}  // namespace cuewright

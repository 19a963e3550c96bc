#include "formats/record_pieces.h"

#include "formats/text_pieces.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

constexpr TextView kStart = u"qxmStart";
constexpr TextView kEnd = u"qxmEnd";
constexpr TextView kCaption = u"qxmCaption";
constexpr TextView kCount = u"qxmSubCount";

/// The 1-based place of a placeholder, 0 when the record lacks it. The lengths below are reckoned with the 0 as well.
std::ptrdiff_t PlaceOf(TextView record, TextView mark) {
  const std::size_t hit = FindLoose(record, mark);
  return hit == TextView::npos ? 0 : hit + 1;
}

std::ptrdiff_t Length(TextView text) { return text.size(); }

/// What lies behind the first two line ends.
void ReduceLead(Text& lead) {
  for (int i = 0; i < 2; ++i) {
    const std::size_t end = lead.find(kLineEnd);
    if (end != Text::npos) lead.erase(0, end + kLineEnd.size());
  }
}

/// What lies before the first line end, and its CR.
void ReduceTrail(Text& trail) {
  const std::size_t end = trail.find(kLineEnd);
  if (end != Text::npos) trail.resize(end + 1);
}

}  // namespace

RecordPieces CutRecord(FormatDefinition& definition, CarryOn& errors) {
  MaskDigits(definition.recordText);
  const TextView record = definition.recordText;
  RecordPieces pieces;
  const auto cut = [&](Text& piece, std::ptrdiff_t place, std::ptrdiff_t count) {
    errors([&] { piece = Middle(record, place, count); });
  };
  const std::ptrdiff_t start = PlaceOf(record, kStart);
  const std::ptrdiff_t end = PlaceOf(record, kEnd);
  const std::ptrdiff_t caption = PlaceOf(record, kCaption);
  const std::ptrdiff_t afterStart = start + Length(kStart);
  const std::ptrdiff_t afterEnd = end + Length(kEnd);
  const std::ptrdiff_t afterCaption = caption + Length(kCaption);
  const std::ptrdiff_t afterCount = definition.subCountPicture.empty() ? 1 : PlaceOf(record, kCount) + Length(kCount);
  const std::ptrdiff_t rest = Length(record);
  if (definition.captionAfterEnd) {
    cut(pieces.StartLead, afterCount, start - afterCount);
    cut(pieces.StartTrail, afterStart, end - afterStart);
    pieces.EndLead = pieces.StartTrail;
    cut(pieces.EndTrail, afterEnd, caption - afterEnd);
    pieces.CaptionLead = pieces.EndTrail;
    cut(pieces.CaptionTrail, afterCaption, rest);
  } else {
    // Where a counter stands in front, the length is not reduced by it, so that the piece runs into the placeholder.
    cut(pieces.StartLead, afterCount, start - 1);
    cut(pieces.StartTrail, afterStart, caption - afterStart);
    pieces.CaptionLead = pieces.StartTrail;
    cut(pieces.CaptionTrail, afterCaption, end - afterCaption);
    pieces.EndLead = pieces.CaptionTrail;
    cut(pieces.EndTrail, afterEnd, rest);
  }
  for (Text* lead : {&pieces.StartLead, &pieces.EndLead, &pieces.CaptionLead}) ReduceLead(*lead);
  for (Text* trail : {&pieces.StartTrail, &pieces.EndTrail, &pieces.CaptionTrail}) ReduceTrail(*trail);
  return pieces;
}

}  // namespace cuewright

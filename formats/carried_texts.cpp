#include "formats/carried_texts.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "core/style_markers.h"
#include "formats/caption_writers.h"
#include "formats/source/source_format.h"

namespace cuewright {
namespace {

// A switch, since the compiler makes a single test of a bit of it; a search in a text of these characters would be a
// loop.
bool BelongsToMarks(char16_t c) {
  return c == u'<' || c == u'>' || c == u'{' || c == u'}' || c == u'[' || c == u']' || c == u'&' || c == u'\\' ||
         c == u'/';
}

bool MayBeMarked(TextView text) { return std::ranges::any_of(text, BelongsToMarks); }

/// True when the list's markers are the only marks of the text.
bool HasMarkersAlone(TextView text) { return !MayBeMarked(WithoutStyleMarkers(Text(text))); }

/// The style that a caption's markers tell.
LossSet StylesOf(TextView text) {
  LossSet styles;
  if (FindLoose(text, kBoldMarker) != TextView::npos) styles.Add(Loss::Bold);
  if (FindLoose(text, kItalicMarker) != TextView::npos) styles.Add(Loss::Italic);
  if (FindLoose(text, kUnderlineMarker) != TextView::npos) styles.Add(Loss::Underline);
  return styles;
}

}  // namespace

bool CarriedTexts::HasMarks(const CaptionList& list, Row lastRow) {
  for (Row row = 1; row <= lastRow && list.InRange(row); ++row) {
    if (MayBeMarked(list.At(row).text)) return true;
  }
  return false;
}

MarkedText MarkedTextOf(const Caption& caption, const SourceMap* source) {
  return {caption.text, source == nullptr ? Beside() : source->BesideOf(caption.origin)};
}

CarriedTexts::CarriedTexts(const CaptionList& list, Row lastRow, const SourceMap* source, TextView to,
                           const FormatDefinition& definition, Losses& lost)
    : from_(MarksOf(source)),
      kind_(MarkKindOf(to)),
      to_(to),
      definition_(definition),
      rules_(kind_ == MarkKind::Plain ? nullptr : MakeSourceFormat(to)),
      list_(list.Options(), modified_) {
  std::vector<Caption> rows;
  std::vector<Beside> beside;
  for (Row row = 1; row <= lastRow && list.InRange(row); ++row) {
    rows.push_back(list.At(row));
    MarkedText marked = MarkedTextOf(rows.back(), source);
    if (marked.beside.Any()) {
      Convert(marked, lost);
    } else if (MayBeMarked(marked.text)) {
      Carry(marked, lost);
    }
    rows.back().text = std::move(marked.text);
    beside.push_back(std::move(marked.beside));
  }
  if (!rows.empty()) list_.Replace(1, 1, std::move(rows));
  if (std::ranges::any_of(beside, &Beside::Any)) beside_.emplace(to, std::move(beside));
}

void CarriedTexts::Carry(MarkedText& marked, Losses& lost) const {
  if (!HasMarkersAlone(marked.text)) return Convert(marked, lost);
  const bool holdsNone = definition_.tagFlags == 0 && kind_ == MarkKind::Plain;
  if (holdsNone) lost.AddCaption(StylesOf(marked.text));
  if (!AreWritten()) return;
  // Where the record has no tags, the format's own rules may have marks.
  if (definition_.tagFlags == 0 && kind_ != MarkKind::Plain) return Convert(marked, lost);
  const bool everyLine = StylesLineByLine(to_) && FindPlain(marked.text, Separator()) != TextView::npos;
  marked.text =
      WithTagsOfRecord(std::move(marked.text), definition_, everyLine ? TagsCover::EveryLine : TagsCover::Record);
}

void CarriedTexts::Convert(MarkedText& marked, Losses& lost) const {
  if (kind_ != from_ || marked.beside.HasStyle()) {
    marked = ConvertMarks(marked, from_, kind_, Separator(), lost);
  } else if (kind_ == MarkKind::SubStation && marked.beside.place != kUsualPlace &&
             FindPlain(marked.text, u"{\\a") == TextView::npos) {
    // The style that gave the place is not carried along, so the text names the place itself.
    marked.text = u"{\\an" + Decimal(marked.beside.place) + u"}" + marked.text;
  }
  // The separators stay: the record's writer puts the format's line breaks in their place.
  if (rules_) marked.text = rules_->TextField(marked.text, Separator(), Separator());
}

}  // namespace cuewright

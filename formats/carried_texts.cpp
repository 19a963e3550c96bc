#include "formats/carried_texts.h"

#include <memory>
#include <utility>
#include <vector>

#include "core/style_markers.h"
#include "formats/caption_writers.h"
#include "formats/source/source_format.h"

namespace cuewright {
namespace {

bool MayBeMarked(TextView text) { return text.find_first_of(u"<>{}[]&\\/") != TextView::npos; }

/// The list's markers are the only marks of the text.
bool HasMarkersAlone(TextView text) { return !MayBeMarked(WithoutStyleMarkers(Text(text))); }

/// What its markers say of a caption.
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

CarriedTexts::CarriedTexts(const CaptionList& list, Row lastRow, MarkKind from, TextView to,
                           const FormatDefinition& definition, Losses& lost)
    : list_(list.Options(), modified_) {
  const MarkKind kind = MarkKindOf(to);
  const TextView separator = list.Options().lineSeparator;
  const std::unique_ptr<SourceFormat> rules = kind == MarkKind::Plain ? nullptr : MakeSourceFormat(to);
  written_ = rules != nullptr;
  std::vector<Caption> rows;
  for (Row row = 1; row <= lastRow && list.InRange(row); ++row) {
    rows.push_back(list.At(row));
    Text& text = rows.back().text;
    if (!MayBeMarked(text)) continue;
    if (HasMarkersAlone(text)) {
      const bool holdsNone = definition.tagFlags == 0 && kind == MarkKind::Plain;
      if (holdsNone) lost.AddCaption(StylesOf(text));
      if (!written_) continue;
    }
    // Where the record has no tags, the format's own rules may have marks.
    if (HasMarkersAlone(text) && (definition.tagFlags != 0 || kind == MarkKind::Plain)) {
      const bool everyLine = StylesLineByLine(to) && FindPlain(text, separator) != TextView::npos;
      text = WithTagsOfRecord(std::move(text), definition, everyLine ? TagsCover::EveryLine : TagsCover::Record);
      continue;
    }
    if (kind != from) text = ConvertMarks(text, from, kind, separator, lost);
    // The separators stay: the record's writer puts the format's line breaks in their place.
    if (rules) text = rules->TextField(text, separator, separator);
  }
  if (!rows.empty()) list_.Replace(1, 1, std::move(rows));
}

}  // namespace cuewright

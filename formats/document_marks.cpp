#include "formats/document_marks.h"

#include <utility>

#include "formats/source/markup_styles.h"
#include "formats/source/source_map.h"

namespace cuewright {

MarkKind MarksOfTexts(const FormatState& state) {
  // What is typed into a document without a file has the tags that people know.
  return state.Source ? MarkKindOf(state.Source->Format()) : MarkKind::SubRip;
}

SeenCaption DocumentMarks::Read(TextView stored, TextView separator) const {
  StyledText styled = ReadMarks(MarkedText{Text(stored), {}, kUsualPlace}, MarksOfTexts(state_), separator);
  return {std::move(styled.runs), styled.place};
}

Text DocumentMarks::ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const {
  return VisibleText(stored, MarksOfTexts(state_), separator, places);
}

Text DocumentMarks::WithoutStyle(TextView stored, TextView marker, TextView separator) const {
  return WithoutStyleMarks(stored, MarksOfTexts(state_), marker[1], separator);
}

}  // namespace cuewright

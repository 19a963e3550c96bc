#include "formats/document_marks.h"

#include <utility>

#include "formats/source/markup_styles.h"
#include "formats/source/source_map.h"

namespace cuewright {

SeenCaption DocumentMarks::Read(TextView stored, TextView separator) const {
  StyledText styled = ReadMarks(MarkedText{Text(stored)}, MarksOf(state_.Source.get()), separator);
  return {std::move(styled.runs), styled.place};
}

SeenCaption DocumentMarks::ReadOf(std::uint32_t origin, TextView stored, TextView separator) const {
  if (!state_.Source) return Read(stored, separator);
  const MarkedText marked{Text(stored), state_.Source->BesideOf(origin)};
  StyledText styled = ReadMarks(marked, MarksOf(state_.Source.get()), separator);
  return {std::move(styled.runs), styled.place};
}

Text DocumentMarks::ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const {
  return VisibleText(stored, MarksOf(state_.Source.get()), separator, places);
}

Text DocumentMarks::WithoutStyle(TextView stored, TextView marker, TextView separator) const {
  return WithoutStyleMarks(stored, MarksOf(state_.Source.get()), marker[1], separator);
}

}  // namespace cuewright

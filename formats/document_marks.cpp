#include "formats/document_marks.h"

#include <utility>

#include "formats/source/markup_styles.h"
#include "formats/source/source_map.h"

namespace cuewright {

SeenCaption DocumentMarks::Read(TextView stored, TextView separator) const {
  StyledText styled = ReadMarks(MarkedText{Text(stored)}, MarksOf(state_.Source.get()), separator);
  return {std::move(styled.runs), styled.place};
}

int DocumentMarks::PlaceBeside(std::uint32_t origin) const {
  return state_.Source ? state_.Source->BesideOf(origin).place : kUsualPlace;
}

Text DocumentMarks::ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const {
  return VisibleText(stored, MarksOf(state_.Source.get()), separator, places);
}

Text DocumentMarks::WithoutStyle(TextView stored, TextView marker, TextView separator) const {
  return WithoutStyleMarks(stored, MarksOf(state_.Source.get()), marker[1], separator);
}

}  // namespace cuewright

#include "core/caption_marks.h"

#include "core/style_markers.h"

namespace cuewright {

SeenCaption ListMarks::Read(TextView stored, TextView /*separator*/) const {
  const WholeMarkers whole = FindWholeMarkers(stored);
  RunStyle style;
  style.bold = whole.bold;
  style.italic = whole.italic;
  style.underline = whole.underline;
  return {{{Text(whole.Inner(stored)), style}}, kUsualPlace};
}

Text ListMarks::ReadPlaces(TextView stored, TextView /*separator*/, std::vector<TextPlace>& places) const {
  const WholeMarkers whole = FindWholeMarkers(stored);
  const TextView inner = whole.Inner(stored);
  places.clear();
  for (std::size_t at = 0; at < inner.size(); ++at) places.push_back({whole.head + at, whole.head + at + 1});
  return Text(inner);
}

Text ListMarks::WithoutStyle(TextView stored, TextView /*marker*/, TextView /*separator*/) const {
  return Text(stored);
}

}  // namespace cuewright

#include "core/style_markers.h"

namespace cuewright {
namespace {

/// The marker that the text begins with, or ends with; empty when it is none or one that is closed.
TextView MarkerAt(TextView text, bool front) {
  for (const TextView marker : kStyleMarkers) {
    if (!(front ? text.starts_with(marker) : text.ends_with(marker))) continue;
    const Text closing = u"</" + Text(marker.substr(1));
    return FindLoose(text, closing) == TextView::npos ? marker : TextView();
  }
  return {};
}

}  // namespace

WholeMarkers FindWholeMarkers(TextView text) {
  WholeMarkers found;
  if (text.find(u'<') == TextView::npos) return found;
  for (const bool front : {true, false}) {
    std::size_t& length = front ? found.head : found.tail;
    for (TextView marker = MarkerAt(text, front); !marker.empty(); marker = MarkerAt(text, front)) {
      found.bold = found.bold || marker == kBoldMarker;
      found.italic = found.italic || marker == kItalicMarker;
      found.underline = found.underline || marker == kUnderlineMarker;
      length += marker.size();
      text = front ? text.substr(marker.size()) : text.substr(0, text.size() - marker.size());
    }
  }
  return found;
}

Text WithoutWholeMarker(TextView text, TextView marker) {
  const WholeMarkers whole = FindWholeMarkers(text);
  return ReplaceAll(text.substr(0, whole.head), marker, {}) + Text(whole.Inner(text)) +
         ReplaceAll(text.substr(text.size() - whole.tail), marker, {});
}

}  // namespace cuewright

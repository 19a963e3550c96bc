#include "core/style_markers.h"

namespace cuewright {
namespace {

/// Knows which markers are closed somewhere in a text. Each is looked for once, however often it stands there.
class ClosedMarkers {
 public:
  explicit ClosedMarkers(TextView text) : text_(text) {}

  bool Has(std::size_t marker) {
    if (!known_[marker]) {
      known_[marker] = true;
      closed_[marker] = FindLoose(text_, u"</" + Text(kStyleMarkers[marker].substr(1))) != TextView::npos;
    }
    return closed_[marker];
  }

 private:
  TextView text_;
  std::array<bool, kStyleMarkers.size()> known_{};
  std::array<bool, kStyleMarkers.size()> closed_{};
};

/// The marker that the text begins with, or ends with; empty when it is none or one that is closed.
TextView MarkerAt(TextView text, bool front, ClosedMarkers& closed) {
  for (std::size_t i = 0; i < kStyleMarkers.size(); ++i) {
    const TextView marker = kStyleMarkers[i];
    if (!(front ? text.starts_with(marker) : text.ends_with(marker))) continue;
    return closed.Has(i) ? TextView() : marker;
  }
  return {};
}

}  // namespace

WholeMarkers FindWholeMarkers(TextView text) {
  WholeMarkers found;
  if (text.find(u'<') == TextView::npos) return found;
  ClosedMarkers closed(text);
  for (const bool front : {true, false}) {
    std::size_t& length = front ? found.head : found.tail;
    for (TextView marker = MarkerAt(text, front, closed); !marker.empty(); marker = MarkerAt(text, front, closed)) {
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

#pragma once

#include <array>
#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// The markers that give a whole caption a style.
inline constexpr TextView kBoldMarker = u"<b>";
inline constexpr TextView kItalicMarker = u"<i>";
inline constexpr TextView kUnderlineMarker = u"<u>";
inline constexpr std::array<TextView, 3> kStyleMarkers = {kBoldMarker, kItalicMarker, kUnderlineMarker};

/// The text without its markers, wherever they stand.
inline Text WithoutStyleMarkers(Text text) {
  if (text.find(u'<') == Text::npos) return text;
  for (const TextView marker : kStyleMarkers) text = ReplaceAll(text, marker, {});
  return text;
}

/// The markers in front of a text and behind it, which mean the whole caption. One that is closed somewhere is a tag of
/// a part, and so is all that stands in the text's middle.
struct WholeMarkers {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  std::size_t head = 0;  ///< length of those in front
  std::size_t tail = 0;  ///< length of those behind

  bool Any() const { return head + tail > 0; }
  bool Has(TextView marker) const {
    return marker == kBoldMarker ? bold : marker == kItalicMarker ? italic : marker == kUnderlineMarker && underline;
  }
  /// The text between them.
  TextView Inner(TextView text) const { return text.substr(head, text.size() - head - tail); }
};
WholeMarkers FindWholeMarkers(TextView text);

/// The text without this marker in front of it and behind it.
Text WithoutWholeMarker(TextView text, TextView marker);

}  // namespace cuewright

#pragma once

#include <array>

#include "text/text.h"

namespace cuewright {

/// The markers that give a whole caption a style, wherever they stand in its text.
inline constexpr TextView kBoldMarker = u"<b>";
inline constexpr TextView kItalicMarker = u"<i>";
inline constexpr TextView kUnderlineMarker = u"<u>";
inline constexpr std::array<TextView, 3> kStyleMarkers = {kBoldMarker, kItalicMarker, kUnderlineMarker};

/// The text without its markers.
inline Text WithoutStyleMarkers(Text text) {
  if (text.find(u'<') == Text::npos) return text;
  for (const TextView marker : kStyleMarkers) text = ReplaceAll(text, marker, {});
  return text;
}

}  // namespace cuewright

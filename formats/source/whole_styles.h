#pragma once

#include "text/text.h"

namespace cuewright {

/// The styles that cover all of a caption's text.
struct WholeStyles {
  bool bold = false;
  bool italic = false;
  bool underline = false;

  bool Any() const { return bold || italic || underline; }
};

/// Takes the list's markers "<b>", "<i>" and "<u>" in front of a text and behind it away, and tells which it had. One
/// that is closed is no marker but a style of a part.
WholeStyles TakeMarkers(Text& text);

/// The markers of these styles.
Text Markers(WholeStyles styles);

/// "<i>all</i>" as the list has it: "<i>all"; also where the closing tag lacks and where each line has a pair of its
/// own. Tags that style a part stay.
void TagsToMarkers(Text& text, TextView separator);

/// The opposite: the markers are tags around the text.
Text MarkersToTags(TextView text);

/// Puts the line separator in place of line ends of any kind.
void JoinLines(Text& text, TextView separator);

}  // namespace cuewright

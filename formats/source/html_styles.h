#pragma once

#include "text/text.h"

namespace cuewright {

/// Takes the tags "<b>", "<i>" and "<u>" of HTML that cover all of a text, or each of its lines whole, into the list's
/// markers in front of it. Tags that cover less stay where they are.
Text HtmlToMarkers(Text text, TextView separator);

/// The way back: markers in front, or one behind the text, become tags around it.
Text MarkersToHtml(TextView text);

}  // namespace cuewright

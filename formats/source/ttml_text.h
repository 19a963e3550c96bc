#pragma once

#include "text/text.h"

namespace cuewright {

/// What of its line ends and blanks a paragraph shows.
enum class XmlSpace { Default, Preserve };

/// The text of a paragraph from what stands between its tags: line ends are the separator, and one style of all of it
/// is the list's marker.
Text ParagraphToText(Text inner, XmlSpace space, TextView separator);

/// The opposite. `element` and `style` are the prefixes of the file's name spaces with their colons, or empty.
Text TextToParagraph(TextView text, TextView separator, TextView element, TextView style);

}  // namespace cuewright

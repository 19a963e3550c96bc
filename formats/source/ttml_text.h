#pragma once

#include "text/text.h"

namespace cuewright {

/// What of its line ends and blanks a paragraph shows.
enum class XmlSpace { Default, Preserve };

/// How a file names the elements and styles of TTML: the prefixes of its name spaces, with their colons.
struct TtmlNames {
  Text element;                ///< empty: no prefix
  Text style = u"tts:";        ///< of styles
  bool declaresStyles = true;  ///< the file says what that prefix means; else each use of it has to
};

/// The text of a paragraph from what stands between its tags: line ends are the separator, and one style of all of it
/// is the list's marker.
Text ParagraphToText(TextView inner, XmlSpace space, TextView separator);

/// The opposite.
Text TextToParagraph(TextView text, TextView separator, const TtmlNames& names);

/// The name space of styles.
inline constexpr TextView kTtmlStyling = u"http://www.w3.org/ns/ttml#styling";

}  // namespace cuewright

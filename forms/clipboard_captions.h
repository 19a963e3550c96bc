#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/caption_list.h"
#include "formats/source/markup.h"

namespace cuewright {

/// Captions on their way from one window of the program to another.
struct ClipboardCaptions {
  std::vector<Caption> captions;  ///< with LF for each line separator
  MarkKind marks = MarkKind::Plain;
};

/// Captions as bytes, times and marks and all.
std::string WriteCaptions(const ClipboardCaptions& captions);
/// What `WriteCaptions` wrote; empty for anything else.
std::optional<ClipboardCaptions> ReadCaptions(std::string_view bytes);

/// Captions of a text from elsewhere, without times: paragraphs with blank lines between them, or else one a line.
ClipboardCaptions CaptionsOfText(TextView text);
/// Captions as other programs read them: the lines that are seen, with a blank line behind each caption.
Text TextOfCaptions(const ClipboardCaptions& captions);

}  // namespace cuewright

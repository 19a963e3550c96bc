#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// The marks between the captions of a text whose spelling is checked.
inline constexpr TextView kCaptionMark = u"%%%";
inline constexpr TextView kBreakMark = u"%#%";
inline constexpr TextView kItalicMark = u"#%#";

/// The text of captions, given with their lines ended by CR LF, as it goes to the spelling check: each mark on a line
/// of its own.
Text SpellingText(const std::vector<Text>& captions);

/// A text that came back, cut into as many captions as it was made of, with `separator` for their line breaks. A
/// caption that came back as it was sent is empty here. The marks alone tell where a caption ends: with one of them
/// gone, what follows belongs to the wrong captions, and the last of them are empty.
std::vector<std::optional<Text>> CutSpellingText(TextView text, const std::vector<Text>& captions, TextView separator);

}  // namespace cuewright

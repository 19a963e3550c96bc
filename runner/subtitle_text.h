#pragma once

#include <string>
#include <string_view>

namespace cuewright {

/// The bytes of a subtitle file in UTF-8, as the filter that draws it needs them. A file that is neither Unicode nor
/// plain is in the code page of its first style's character set; `systemCodePage` serves a style that names none.
std::string SubtitleInUtf8(const std::string& bytes, int systemCodePage);

/// The code page of a script's style by its last field, the character set number of Windows; 0 for none.
int CodePageOfStyles(std::string_view bytes);

}  // namespace cuewright

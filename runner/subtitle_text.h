#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cuewright {

/// The bytes of a subtitle file in UTF-8, as the filter that draws it needs them. A file that is neither Unicode nor
/// plain is in the code page of its first style's character set; `systemCodePage` serves a style that names none.
std::string SubtitleInUtf8(const std::string& bytes, int systemCodePage);

/// The text of a script in SubStation Alpha, in UTF-8, with its head written as everybody expects it: "[Script Info]"
/// at once, in these letters. Empty for a text that begins with anything else.
std::optional<std::string> WithPlainHead(std::string_view text);

/// The code page of a script's style by its last field, the character set number of Windows; 0 for none.
int CodePageOfStyles(std::string_view bytes);

}  // namespace cuewright

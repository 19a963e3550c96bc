#pragma once

#include <optional>
#include <string_view>

#include "formats/source/source_format.h"
#include "text/text.h"

namespace cuewright {

/// True for formats whose rules ask for UTF-8, as WebVTT's do: a file of another format that becomes one of them is
/// written so unless the user asks for another encoding.
bool IsUtf8UnlessAsked(TextView identifier);

/// Where an XML file names its encoding, as "utf-8" in `<?xml version="1.0" encoding="utf-8"?>`; empty when it doesn't.
/// `bytes` begin as the file does, behind its mark.
Stretch DeclaredEncoding(std::string_view bytes);

/// The code page that an XML file says it is written in; nothing for a file that names none or a Unicode encoding,
/// which the bytes tell more surely.
std::optional<int> DeclaredCodePage(std::string_view bytes);

/// A header that names the encoding of its file, if it names one at all, with the name of this code page.
Text WithEncodingDeclared(TextView header, int codePage);

}  // namespace cuewright

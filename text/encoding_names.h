#pragma once

#include <optional>
#include <string>

#include "text/encodings.h"
#include "text/text.h"

namespace cuewright {

/// The encoding of a name as people and the library know it ("UTF-8", "utf16le", "cp1252", "Shift_JIS", "latin2");
/// nothing for a name that is unknown or of an encoding that texts aren't kept in. UTF-16 has a mark.
std::optional<DocumentEncoding> EncodingByName(TextView name);

/// The library's name of a code page's converter; empty for a code page without one.
std::string ConverterOfCodePage(int codePage);

/// True for a code page whose characters have one byte each.
bool HasOneByteCharacters(int codePage);

}  // namespace cuewright

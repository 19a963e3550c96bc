#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace cuewright {

/// Text of ISO 6937 bytes, where an accent stands in front of its letter. An undefined byte becomes U+FFFD.
Text FromIso6937(std::string_view bytes);

/// Appends the bytes of a text. A character that the code lacks becomes "?", and the result is false.
bool AppendIso6937(TextView text, std::string& out);

}  // namespace cuewright

#pragma once

#include <optional>

#include "text/text.h"

namespace cuewright {

/// The format that a file surely has, told from its first lines by what the format's rules demand of every file; empty
/// when they leave it open.
std::optional<Text> SniffFormat(TextView head);

}  // namespace cuewright

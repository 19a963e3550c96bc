#pragma once

#include <string>

namespace cuewright::bench {

/// A SubRip file in UTF-8 of `count` captions of one or two lines, a share of their words with letters beyond ASCII,
/// about 110 bytes each. The same count always gives the same bytes.
std::string MakeSubRip(int count);

}  // namespace cuewright::bench

#pragma once

#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// Where the override tag ends that begins at a place between braces: at the next backslash, but not at one in round
/// brackets, whose tags belong to the tag in front of them. `TextView::npos` when none follows.
inline std::size_t EndOfOverride(TextView tags, std::size_t at) {
  const std::size_t end = tags.find_first_of(u"\\(", at + 1);
  if (end == TextView::npos || tags[end] != u'(') return end;
  const std::size_t closing = tags.find(u')', end);
  return closing == TextView::npos ? closing : tags.find(u'\\', closing);
}

}  // namespace cuewright

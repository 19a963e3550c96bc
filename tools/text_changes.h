#pragma once

#include <vector>

#include "core/seen_text.h"
#include "text/text.h"

namespace cuewright {

/// The text with each of the stretches replaced, which are in order and don't overlap.
inline Text WithChanges(TextView text, const std::vector<SeenText::Change>& changes) {
  Text result;
  std::size_t from = 0;
  for (const SeenText::Change& change : changes) {
    result.append(text, from, change.from - from).append(change.text);
    from = change.to;
  }
  return result.append(text, from);
}

}  // namespace cuewright

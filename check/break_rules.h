#pragma once

#include <unordered_set>

#include "text/text.h"

namespace cuewright {

/// The places where a language lets no line end. All words are in small letters.
struct BreakRules {
  std::unordered_set<Text> lineEnds;  ///< words at which no line but the last one ends
  std::unordered_set<Text> pairs;     ///< words that stay with the next one, as "new york"

  bool Empty() const { return lineEnds.empty() && pairs.empty(); }
  /// True when a line that ends in `last` must not be followed by one that begins with `next`.
  bool Forbids(TextView last, TextView next) const;
};

/// The rules of a file: words at which no line ends, parted by blanks, and words that stay together, joined by "_". A
/// line that begins with ";" is a remark.
BreakRules ReadBreakRules(TextView text);

}  // namespace cuewright

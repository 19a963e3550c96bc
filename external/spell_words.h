#pragma once

#include <cstddef>
#include <vector>

#include "core/text.h"

namespace cuewright {

/// Where a word stands in a text.
struct WordPlace {
  std::size_t start = 0;
  std::size_t length = 0;

  bool operator==(const WordPlace&) const = default;
};

/// The words of a line whose spelling can be looked up, in their order. An apostrophe inside a word belongs to it.
/// Style tags, addresses of the web and of mail, words with digits, single letters, and scripts that put no blanks
/// between words are left out.
std::vector<WordPlace> WordsOf(TextView line);

/// The word with plain apostrophes.
Text PlainApostrophes(TextView word);

}  // namespace cuewright

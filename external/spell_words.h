#pragma once

#include <cstddef>
#include <vector>

#include "text/text.h"

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

/// The word with each letter and its accents as one character where there is one, as dictionaries have them.
Text ComposedLetters(TextView word);

/// The word with the apostrophe that stands right in front of it; empty when none does.
Text WithLeadingApostrophe(TextView line, const WordPlace& word);

}  // namespace cuewright

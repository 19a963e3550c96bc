#pragma once

#include <vector>

#include "core/seen_text.h"

namespace cuewright {

/// What turns one text into another: the stretches between the words that both have in the same order, so that a mark
/// stays at its word when words, blanks and line breaks in front of it come or go. It is one stretch, between the
/// common beginning and end, where that lies within a word, keeps all words at their places, or has no word in common.
std::vector<SeenText::Change> ChangesByWords(TextView old, TextView wanted);

}  // namespace cuewright

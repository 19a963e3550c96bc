#pragma once

#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// Characters that the tags of a file may still have looked through: nested brackets take time by the square of their
/// number, which no caption needs.
struct TagWork {
  std::size_t left = std::size_t{32} << 20;
};

/// A line without its tags. Line breaks and the tags of the three styles stay; the others are removed one by one, each
/// with all its copies, which may bring brackets together that make another.
Text StripTags(TextView line, TagWork& work);

/// The same for a line in which no tag stands in another; false, with `result` undefined, for any other line.
bool StripFlatTags(TextView line, Text& result);

/// `StripTags` as the rule has it, without looking for lines of flat tags first.
Text StripNestedTags(TextView line, TagWork& work);

}  // namespace cuewright

#pragma once

#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// How many characters may still be searched for the tags of a file: the time that nested brackets take grows with the
/// square of their number, and no caption needs many.
struct TagWork {
  std::size_t left = std::size_t{32} << 20;
};

/// A line without its tags. Line breaks and the tags of the three styles stay. Any other tag is removed with all its
/// copies, one tag after the other; what is left on both sides may form a further tag, which goes as well.
Text StripTags(TextView line, TagWork& work);

/// The same for a line in which no tag stands in another; false, with `result` undefined, for any other line.
bool StripFlatTags(TextView line, Text& result);

/// `StripTags` by the rule alone, without trying first whether no tag stands in another.
Text StripNestedTags(TextView line, TagWork& work);

}  // namespace cuewright

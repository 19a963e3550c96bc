#pragma once

#include <cstdint>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

/// What to look for in the captions.
struct FindOptions {
  TextView search;
  bool entireWord = false;  ///< only between blanks or the caption's ends
  bool matchCase = false;
};

/// Searches from the selected row down to the last and gives the number of rows that hold the text. The row found
/// becomes the selected one; a match in the row selected before doesn't hold a plain search. With `replacing` the text
/// gives way to `replacement` in the first row that holds it, with `replaceAll` in all of them, and the window shows
/// the result at once. In the classic manner a row that is replaced loses its line breaks, without `matchCase` its
/// capitals, with `entireWord` it gets a blank at each end, and the window still shows what was there. Marks are
/// neither found nor changed unless they are shown. The modified flag is left alone.
std::int16_t FindInCaptions(CaptionList& list, const FindOptions& options, bool replacing, TextView replacement,
                            bool replaceAll);

}  // namespace cuewright

#pragma once

#include <vector>

#include "core/caption_list.h"
#include "formats/format_state.h"
#include "text/codec.h"

namespace cuewright {

/// A place with letters that an encoding lacks.
struct LackingPlace {
  std::size_t line = 0;  ///< of the file that was read, from 1; 0: in none
  Row row = 0;           ///< of the caption; 0: it lies in none
  int rowLine = 0;       ///< the line of the caption's text, from 1
  Text letters;          ///< each once
};

/// Where the captions up to a row, and what is kept of their file beside them, hold letters that a codec lacks.
std::vector<LackingPlace> FindLackingLetters(const CaptionList& captions, Row lastRow, const SourceMap* source,
                                             const Codec& codec);

}  // namespace cuewright

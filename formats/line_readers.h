#pragma once

#include <memory>

#include "formats/fast/line_runs.h"
#include "formats/line_parsers.h"
#include "formats/record_pieces.h"

namespace cuewright {

/// What reads the lines of one format.
struct LineReader {
  std::unique_ptr<LineParser> parser;  ///< reads any line, by the rule
  std::unique_ptr<LineRun> run;        ///< reads those of the usual form faster; null: there is no such way
};

/// The reader of a format other than plain text. `bodySeen`: captions of Spruce's files begin at once.
LineReader MakeLineReader(TextView identifier, const ParseContext& context, const RecordPieces& pieces, bool bodySeen);

}  // namespace cuewright

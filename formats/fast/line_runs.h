#pragma once

#include <memory>

#include "formats/generic_parser.h"
#include "formats/line_parsers.h"
#include "formats/record_pieces.h"
#include "formats/sami_parser.h"
#include "text/text_file.h"

namespace cuewright {

/// Reads lines of the usual form straight from the file's bytes. What it gathers is what the format's parser would; any
/// other line is left to that parser.
class LineRun {
 public:
  virtual ~LineRun() = default;
  /// Reads on up to the next line for the parser, or the next pause of the import.
  virtual void ReadOn(TextFile& file) = 0;
};

std::unique_ptr<LineRun> MakeSubRipRun(const ParseContext& context);
std::unique_ptr<LineRun> MakeDialogueRun(const ParseContext& context);
std::unique_ptr<LineRun> MakeSamiRun(const ParseContext& context, const SamiParser& parser);
/// Null for a record whose lines can't be told by their beginning.
std::unique_ptr<LineRun> MakeRecordRun(const ParseContext& context, const RecordPieces& pieces, GenericParser& parser);

}  // namespace cuewright

#pragma once

#include <vector>

#include "core/caption_list.h"
#include "core/runtime_error.h"
#include "formats/definition.h"
#include "formats/record_pieces.h"
#include "text/encodings.h"
#include "text/text_file.h"

namespace cuewright {

class CaptionCollector;
class RecordWatch;
struct LineReader;
struct ParseContext;

/// How the lines of a file are to be read.
struct LineOrders {
  bool wide = false;             ///< the bytes of lines are to be paired to 16-bit text
  bool timecodeLiteral = false;  ///< the file's head holds the mask of a timecode
  bool intoEmptyList = false;    ///< the list holds one row at most
  bool exactTimes = true;        ///< times are counted to the last ms
  RecordPieces pieces = {};
  RecordWatch* watch = nullptr;  ///< notes where the records stand; null: nobody asks
};

/// Reads the lines of a file by the format in force.
class LineImport {
 public:
  /// `cancelled` is read after each pause.
  LineImport(const FormatSet& formats, const FormatTalk& talk, const Encodings& encodings, const bool& cancelled)
      : formats_(formats), talk_(talk), encodings_(encodings), cancelled_(cancelled) {}

  /// The captions of the file; what goes wrong on the way is noted.
  std::vector<Caption> Read(TextFile& file, const LineOrders& orders, const Text& separator, CarryOn& errors);

  /// The line at which the last reading stopped or failed, counted from 1; 0 when neither has happened.
  std::size_t TroubleLine() const { return troubleLine_; }
  void Clear() { troubleLine_ = 0; }

 private:
  void ReadLines(TextFile& file, const LineOrders& orders, CaptionCollector& captions, CarryOn& errors);
  bool StopsHere(TextFile& file, const CaptionCollector& captions);
  LineReader MakeReader(const ParseContext& context, const RecordPieces& pieces, bool bodySeen) const;

  FormatSet formats_;
  FormatTalk talk_;
  const Encodings& encodings_;
  const bool& cancelled_;
  std::size_t troubleLine_ = 0;
};

}  // namespace cuewright

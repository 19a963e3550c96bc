#pragma once

#include <cstdint>

#include "core/ms.h"
#include "formats/line_parsers.h"
#include "formats/record_pieces.h"
#include "text/text_search.h"

namespace cuewright {

/// A place in a line, counted from 1 and held in 8 bits; 0 means none.
class Column {
 public:
  operator std::size_t() const { return value_; }  // NOLINT(google-explicit-constructor)

  /// Takes a place; one past 255 is a run-time error, and the old value stays.
  void Set(std::size_t place, CarryOn& errors);

 private:
  std::uint8_t value_ = 0;
};

/// Reads captions by the pieces of the format's record alone. Digits are masked as "0" in the line as in the record,
/// and the pieces are looked for in it; where one is found, the field behind it is cut out of the line.
class GenericParser final : public LineParser {
 public:
  GenericParser(const ParseContext& context, const RecordPieces& pieces);

  void Parse(ImportLine& line) override;

  /// Where the text began in the last line with times; the text of the lines below begins there too.
  void SetTextColumn(std::size_t column) { textColumn_.Set(column, context_.errors); }

 private:
  void TakeLine(TextView text);
  std::size_t FieldEnd(const Needle& trail, TextView text) const;
  bool FieldIsShort() const;
  void ReadField(Ms& time);
  void ParseStartEndText();
  void ParseStartTextEnd();
  void ReadStart();
  void TakeFurtherLine();
  bool ClosesCaption() const;
  void ReadEnd();
  void TakeText(std::size_t end);

  ParseContext context_;
  CaptionCollector& captions_;
  TimecodeReader reader_;
  Needle startLead_, startTrail_, endLead_, endTrail_, captionLead_, captionTrail_;
  Needle startMask_;  // the lead with the mask of a time behind it
  Needle endMask_;
  std::size_t endLineLength_;  // of the end's lead and mask, without line ends
  bool keepsLines_;            // a line break of the file is one of the caption
  bool wholeSeconds_;

  Text line_;    // with CR LF behind it
  Text masked_;  // the line with its digits and the letters of frames as "0"
  bool startsRecord_ = false;
  bool holdsEnd_ = false;
  Column from_;  // of the time field in work
  Column to_;
  Column textColumn_;
};

}  // namespace cuewright

#pragma once

#include <memory>
#include <string_view>

#include "core/runtime_error.h"
#include "core/text.h"
#include "formats/caption_collector.h"
#include "formats/definition.h"
#include "formats/record_pieces.h"
#include "formats/text_file.h"
#include "formats/timecode.h"

namespace cuewright {

/// A line of the file without the blanks around it. It is decoded when somebody looks at its text.
class ImportLine {
 public:
  explicit ImportLine(const TextFile& file) : file_(file) {}

  /// The bytes as they lie in the file.
  void SetBytes(std::string_view bytes);
  /// A text that isn't what the bytes say.
  void SetText(Text text);
  void Clear();

  bool Empty() const { return decoded_ ? text_.empty() : bytes_.empty(); }
  /// The bytes are the text, in a code page in which ASCII is ASCII at the start of the line.
  bool HasBytes() const { return hasBytes_; }
  std::string_view Bytes() const { return bytes_; }
  TextView View();

  /// The line begins with an ASCII text, in the same case.
  bool StartsWith(std::string_view ascii);

 private:
  const TextFile& file_;
  std::string_view bytes_;
  bool hasBytes_ = false;
  bool decoded_ = true;
  TextView text_;
  Text own_;
  LineBuffer buffer_;
};

/// What a line parser works on: the caption in the making and the format in force.
struct ParseContext {
  CaptionCollector& captions;
  const FormatDefinition& definition;
  bool timecodeLiteral;  ///< the file's head holds a timecode mask
  float fps;
  CarryOn& errors;
};

/// Reads a file line by line into the caption list's form.
class LineParser {
 public:
  virtual ~LineParser() = default;
  virtual void Parse(ImportLine& line) = 0;
};

std::unique_ptr<LineParser> MakePlainTextParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeDialogueParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeTmPlayerParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeSamiParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeEncoreParser(const ParseContext& context);
/// `bodySeen`: captions begin at once, not behind a line that begins "SP_NUMBER".
std::unique_ptr<LineParser> MakeSpruceParser(const ParseContext& context, bool bodySeen);
/// Works from the record's pieces alone; see `RecordPieces`.
std::unique_ptr<LineParser> MakeGenericParser(const ParseContext& context, const RecordPieces& pieces);

}  // namespace cuewright

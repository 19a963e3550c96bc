#pragma once

#include <memory>

#include "core/runtime_error.h"
#include "formats/caption_collector.h"
#include "formats/definition.h"
#include "formats/timecode.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// A line of the file without the blanks around it.
class ImportLine {
 public:
  /// Takes the file's next line; false behind the last one. With `wide` its bytes are paired to 16-bit characters.
  [[nodiscard]] bool Next(TextFile& file, const Encodings* wide);
  void SetText(Text text);
  void Clear() { text_ = {}; }

  bool Empty() const { return text_.empty(); }
  TextView View() const { return text_; }

 private:
  TextView text_;
  Text own_;
  LineBuffer buffer_;
};

/// What a line parser works on: the caption in the making and the format in force.
struct ParseContext {
  CaptionCollector& captions;
  const FormatDefinition& definition;
  bool timecodeLiteral;  ///< the file's head holds a timecode mask
  TimeRules times;
  CarryOn& errors;
  std::string_view dropped = {};  ///< lines that begin so may be dropped, and are none for a `LineRun`
};

/// Reads a file line by line into the caption list's form.
class LineParser {
 public:
  virtual ~LineParser() = default;
  virtual void Parse(ImportLine& line) = 0;
};

/// Captions from one pause for the window's events to the next.
inline constexpr int kYieldEvery = 100;

std::unique_ptr<LineParser> MakePlainTextParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeDialogueParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeTmPlayerParser(const ParseContext& context);
std::unique_ptr<LineParser> MakeEncoreParser(const ParseContext& context);
/// `bodySeen`: captions begin at once, not behind a line that begins "SP_NUMBER".
std::unique_ptr<LineParser> MakeSpruceParser(const ParseContext& context, bool bodySeen);

}  // namespace cuewright

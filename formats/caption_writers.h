#pragma once

#include <string>
#include <vector>

#include "core/caption_list.h"
#include "core/ports/files.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "formats/codec.h"
#include "formats/definition.h"
#include "formats/encodings.h"
#include "formats/timecode.h"

namespace cuewright {

/// Lines of output on their way to the file, CR LF behind each.
class LineSink {
 public:
  LineSink(ByteSink& sink, const Codec& codec) : sink_(sink), codec_(codec), lineEnd_(codec.Encoded(kLineEnd)) {}

  void WriteLine(TextView line);
  /// Hands on what is held back.
  void Flush();

 private:
  ByteSink& sink_;
  const Codec& codec_;
  std::string lineEnd_;
  std::string held_;
};

/// What the writers need: rows 1 to `lastRow` in the form of `definition`.
struct WriteJob {
  const CaptionList& captions;
  Row lastRow;
  const FormatDefinition& definition;
  TextView identifier;
  float fps;
  CarryOn& errors;
};

/// One caption a line, separators and markers left as they are; all rows.
void WritePlainText(const WriteJob& job, LineSink& sink);

/// Two rows at the start and two at the end of each caption.
void WriteTmPlayer(const WriteJob& job, LineSink& sink);

/// The record for each caption. In `classic` reading the line is UTF-8 that goes through the system's code page once
/// more.
void WriteEncore(const WriteJob& job, const Encodings& encodings, bool classic, LineSink& sink);

/// Header, the record for each caption that isn't blank, footer.
void WriteTemplate(const WriteJob& job, LineSink& sink);

}  // namespace cuewright

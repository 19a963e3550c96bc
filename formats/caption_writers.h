#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/caption_list.h"
#include "core/ports/files.h"
#include "core/runtime_error.h"
#include "formats/beside_fields.h"
#include "formats/definition.h"
#include "formats/timecode.h"
#include "text/codec.h"
#include "text/encodings.h"
#include "text/text.h"

namespace cuewright {

/// Text on its way to the file, encoded and gathered in blocks.
class LineSink {
 public:
  LineSink(ByteSink& sink, const Codec& codec);

  void Put(TextView text);
  /// Bytes that are in the file's encoding.
  void PutBytes(std::string_view bytes) {
    char* const to = Room(bytes.size()).data();
    // Most are a few bytes between two fields; a call to copy them would take longer than the copying.
    if (bytes.size() <= 4) {
      for (std::size_t i = 0; i < bytes.size(); ++i) to[i] = bytes[i];
    } else {
      bytes.copy(to, bytes.size());
    }
    size_ += bytes.size();
  }
  /// Puts CR LF, and hands a full block on.
  void EndLine();
  void WriteLine(TextView line) {
    Put(line);
    EndLine();
  }
  /// Hands on what is held back.
  void Flush();

  bool IsUtf8() const { return utf8_; }
  /// True when ASCII stands in the file as it is.
  bool KeepsAscii() const { return codec_.AsciiIsPlain(); }

  /// Room for `count` bytes or more behind those held back; `Advance` takes what was put there.
  std::span<char> Room(std::size_t count) {
    if (capacity_ < size_ + count) Grow(count);
    return {held_.get() + size_, capacity_ - size_};
  }
  void Advance(std::size_t count) { size_ += count; }
  /// How many bytes are held back, and the way to drop the last ones of them.
  std::size_t Size() const { return size_; }
  void Cut(std::size_t size) { size_ = size; }

  std::string Encoded(TextView text) const { return codec_.Encoded(text); }

 private:
  void Grow(std::size_t count);

  ByteSink& sink_;
  const Codec& codec_;
  const bool utf8_;
  const std::string lineEnd_;
  std::unique_ptr<char[]> held_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
  std::string scratch_;
};

/// What the writers need: rows 1 to `lastRow` in the form of `definition`.
struct WriteJob {
  const CaptionList& captions;
  Row lastRow;
  const FormatDefinition& definition;
  TextView identifier;
  TimeRules times;
  CarryOn& errors;
  bool textsAreWritten = false;  ///< apart from their separators the texts are in the format's own marks
  const BesideFields* beside =
      nullptr;  ///< what the record's placeholder for it gets; null: there is no such placeholder
};

/// Whether the tags of a record style one line or all, in a format that has tags for either.
enum class TagsCover { Record, EveryLine };

/// True when the format's tags style one line each unless they are written for every line.
bool StylesLineByLine(TextView identifier);

/// A text whose markers are tags as the format's record has them; without them where it has none.
Text WithTagsOfRecord(Text text, const FormatDefinition& definition, TagsCover cover);

/// One caption a line, separators and markers left as they are; all rows.
void WritePlainText(const WriteJob& job, LineSink& sink);

/// Two rows at the start and two at the end of each caption.
void WriteTmPlayer(const WriteJob& job, LineSink& sink);

/// The record for each caption. In `classic` reading the line is UTF-8 that goes through the system's code page once
/// more.
void WriteEncore(const WriteJob& job, const Encodings& encodings, bool classic, LineSink& sink);

/// Header, the record for each caption that isn't blank, footer; by exact rules MicroDVD's rate in front.
void WriteTemplate(const WriteJob& job, LineSink& sink);

}  // namespace cuewright

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/caption_list.h"
#include "core/frame_rate.h"
#include "core/journal.h"
#include "formats/source/markup.h"
#include "formats/source/source_format.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

class CatalogueFormat;
class RecordWatch;

/// The file that a document was read from, in pieces: all its bytes, and for each caption that was read the place of
/// its record. With it the document is saved so that only the bytes of what was edited differ. A caption's `origin` is
/// the number of its record.
class SourceMap {
 public:
  /// A record and what was read in it.
  struct Piece {
    SourceRecord record;
    CaptionTimes times;
    std::size_t textHash = 0;
  };

  /// `format` is the identifier of the file's format.
  SourceMap(Text format, TextFile file, std::unique_ptr<SourceFormat> rules);

  /// Notes a record that lies behind all others; its number, which the caption gets as its origin.
  std::uint32_t Add(const SourceRecord& record, const Caption& caption);
  /// Takes over the records that were watched, one for each row, and gives the rows their numbers. Where rows have no
  /// record each, nothing is taken.
  void TakeWatched(const RecordWatch& watch, std::unique_ptr<CatalogueFormat> rules, TextView separator,
                   std::vector<Caption>& rows);
  void AddNotUnderstood(std::size_t place) { notUnderstood_.push_back(static_cast<std::uint32_t>(place)); }

  const Text& Format() const { return format_; }
  /// The rate by which its frames were counted; none for a format without frames.
  const FrameRate& Fps() const { return fps_; }
  void SetFps(const FrameRate& fps) { fps_ = fps; }

  /// Which of several classes of captions was read; empty: the file has one, or the first was.
  const Text& CaptionClass() const { return captionClass_; }
  void SetCaptionClass(Text name) { captionClass_ = std::move(name); }

  const TextFile& File() const { return file_; }
  TextFile& File() { return file_; }
  const SourceFormat& Rules() const { return *rules_; }
  SourceFormat& Rules() { return *rules_; }

  std::string_view Bytes() const { return file_.Bytes(); }
  const std::vector<Piece>& Pieces() const { return pieces_; }
  /// CR LF, LF or CR: what ends the first line.
  TextView LineEnd() const { return lineEnd_; }

  /// What the record of this number says beside its text; nothing for a caption that stands in none.
  Beside BesideOf(std::uint32_t origin) const;

  /// The caption's text is the one that was read.
  static bool SameText(const Piece& piece, const Caption& caption);

  /// The number of the line that a byte lies in, or of the block where the file has no lines, from 1.
  std::size_t LineOf(std::size_t place) const;
  /// Numbers of the lines that were not understood, from 1, in order.
  std::vector<std::size_t> LinesNotUnderstood() const;

 private:
  Text format_;
  TextFile file_;
  std::unique_ptr<SourceFormat> rules_;
  FrameRate fps_;
  Text captionClass_;
  Text lineEnd_ = u"\r\n";
  std::vector<Piece> pieces_;
  std::vector<std::uint32_t> notUnderstood_;
};

/// Whose marks stand in texts of this file. Without one, null, they are the tags that people know.
MarkKind MarksOf(const SourceMap* map);

/// What parts the format from the class of captions in the name that a journal keeps.
inline constexpr TextView kBeforeClass = u":";

/// The file of a map as a journal keeps it.
JournalSource KeptSource(const SourceMap& map);

}  // namespace cuewright

#pragma once

#include <string_view>
#include <vector>

#include "core/caption_list.h"
#include "core/ports/files.h"
#include "formats/source/source_map.h"
#include "formats/source/source_output.h"
#include "text/codec.h"

namespace cuewright {

/// Whether the times of unchanged captions stand in the file as they were read.
enum class SourceTimes {
  AsRead,
  Anew  ///< another frame rate is in force: every time is written
};

/// Saves a list over the file that it was read from.
class SourceWriter {
 public:
  /// Rows 1 to `lastRow` are written.
  SourceWriter(const SourceMap& map, const CaptionList& captions, Row lastRow, SourceTimes times)
      : map_(map), captions_(captions), lastRow_(lastRow), times_(times) {}

  /// The codec, or a format of bytes itself, has every character of the texts that would be written anew.
  bool HeldBy(const Codec& codec) const;
  /// The list isn't what was read.
  bool Differs() const;

  /// Writes the file without its mark, in its own encoding or, with `turned`, in that of the codec. What stands between
  /// the records stays, also where records went; a record that is not the file's own stands behind its predecessor;
  /// numbers move on by the records that came or went. An XML file that names its encoding names `declared`; the empty
  /// name leaves what stands there.
  void Write(const Codec& codec, bool turned, std::string_view declared, ByteSink& sink);

 private:
  bool Changed(const SourceMap::Piece& piece, const Caption& caption) const;
  bool TimeChanged(Ms before, Ms now) const { return times_ == SourceTimes::Anew || before != now; }
  /// The caption got an end of its own where the file has none.
  bool SetsEnd(Row row, const SourceMap::Piece& piece) const;
  bool IsBytes() const { return map_.Rules().BlockBytes() != 0; }
  TextView Separator() const { return captions_.Options().lineSeparator; }
  /// Goes through the old file up to a piece, or to its end.
  void KeepUpTo(std::size_t piece, SourceOutput& out);
  void Declare(std::string_view encoding, SourceOutput& out);
  /// Where the bytes of a record go on: behind its comma when it comes first in its list now. Where it comes first no
  /// longer, a comma is put in front.
  std::size_t PartRecord(Stretch whole, SourceOutput& out) const;
  void WriteRecord(Row row, std::uint32_t origin, SourceOutput& out) const;
  void WriteChanged(Row row, std::uint32_t origin, SourceOutput& out) const;
  /// Writes a record anew that the file hasn't, or, `own`, one that it has.
  void WriteNew(Row row, bool own, SourceOutput& out) const;
  void WriteBlocks(Row row, std::uint32_t origin, SourceOutput& out) const;
  void WriteRecords(const Codec& codec, bool turned, std::string_view declared, ByteSink& sink);

  const SourceMap& map_;
  const CaptionList& captions_;
  Row lastRow_;
  SourceTimes times_;
  std::vector<bool> written_;                // pieces that stand in the new file
  std::size_t next_ = 0;                     // the piece that the old file goes on with
  std::size_t done_ = 0;                     // the byte up to which it was gone through
  const SourceRecord* neighbour_ = nullptr;  // the one written last that the old file has
};

}  // namespace cuewright

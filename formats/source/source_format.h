#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/caption_list.h"
#include "formats/source/beside.h"
#include "formats/source/source_lines.h"
#include "formats/source/source_settings.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// A stretch of a file's bytes.
struct Stretch {
  std::uint32_t at = 0;
  std::uint32_t size = 0;

  bool Empty() const { return size == 0; }
  std::uint32_t End() const { return at + size; }
  std::string_view In(std::string_view bytes) const { return bytes.substr(at, size); }
  static Stretch Of(std::size_t at, std::size_t size) {
    return {static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(size)};
  }
  static Stretch Between(std::size_t at, std::size_t end) { return Of(at, end - at); }
};

/// Where a caption stands in its file. `whole` ends behind the line ends and blank lines that belong to the record; the
/// other stretches lie in it. One that the record hasn't is empty; an empty text has the place where it would stand.
struct SourceRecord {
  Stretch whole;
  Stretch number;
  Stretch start;
  Stretch end;
  Stretch text;
  bool endIsReckoned = false;  ///< no end is written: the next caption's start ends this one, or its length does
};

/// Takes what a reader finds in a file, in the file's order.
class SourceSink {
 public:
  virtual ~SourceSink() = default;
  /// A caption: times in ms, its text as `SourceFormat` tells. False: nothing more is wanted.
  [[nodiscard]] virtual bool Add(Ms start, Ms end, Text text, const SourceRecord& record) = 0;
  /// The line at this byte says something that the reader doesn't understand. It stays in the file.
  virtual void NotUnderstood(std::size_t place) = 0;
};

/// A file as a reader gets it: bytes in which ASCII stands for itself, without the mark of its encoding.
struct SourceText {
  std::string_view bytes;
  const TextFile& file;  ///< decodes its stretches

  Text Decoded(Stretch stretch) const { return file.Decoded(stretch.In(bytes)); }
};

/// What a record that the file hasn't yet is made of.
struct NewRecord {
  const Caption& caption;
  int number = 1;                   ///< of the caption in the list
  TextView lineEnd = u"\r\n";       ///< as the file's lines end
  std::string_view neighbour = {};  ///< bytes of the record in front of it, or behind; empty: the file has none
  bool isOwn = false;               ///< the neighbour is the caption's own record as it was
  Ms offset = 0;                    ///< `OffsetOf` the neighbour
  int moved = 0;                    ///< by how many places it comes later than it did
};

/// The text in front of all records of a file and behind them.
struct FileFrame {
  TextView front = {};
  TextView back = {};
};

/// A format by its published rules: reads a file with the places of all it reads, and writes single fields and records
/// of it. An instance belongs to one file and keeps what that file says of itself (its order of fields, its classes).
///
/// The text of a caption is the file's own, its marks in place, but for three things: its lines are parted by the line
/// separator of captions; a style that covers all of the text is one of the list's markers "<b>", "<i>", "<u>" in front
/// of it, without a closing mark; and characters that the format must write in another way are themselves, unless
/// they would be taken for a mark.
class SourceFormat {
 public:
  virtual ~SourceFormat() = default;

  /// Reads the whole file.
  virtual void Read(const SourceText& text, TextView separator, SourceSink& sink) = 0;

  /// A time in ms in the form of the field that it replaces (its digits, its signs), to the field's nearest step.
  virtual std::string TimeField(Ms ms, std::string_view old) const = 0;
  /// By how many ms a record comes later than its fields say, since what is around it begins later; `TimeField`
  /// doesn't know of it.
  virtual Ms OffsetOf(const SourceRecord& /*record*/) const { return 0; }
  /// A number in place of another; the default writes it in decimal.
  virtual std::string NumberField(int number, std::string_view old) const;
  /// The text of a caption as it stands in the field.
  virtual Text TextField(TextView text, TextView separator, TextView lineEnd) const = 0;
  /// A whole record with the line ends that belong to it.
  virtual Text Record(const NewRecord& record, TextView separator) const = 0;

  /// Records of this file say who speaks or where a caption stands.
  virtual bool TellsBeside() const { return false; }
  /// What a record of the file says beside its text.
  virtual Beside BesideOf(const SourceText& /*text*/, const SourceRecord& /*record*/) const { return {}; }

  /// The start and end of a record depend on each other or on the neighbours: a change of one writes all fields anew.
  virtual bool TimesAreLinked() const { return false; }
  /// The file has ends of captions at all; else they are reckoned from the starts.
  virtual bool WritesEnds() const { return true; }
  /// What stands behind a record to end it at a time where the record itself doesn't tell; nothing: such a record is
  /// written anew.
  virtual std::optional<Text> EndBehind(Ms /*end*/, TextView /*lineEnd*/) const { return {}; }
  /// Records are the parts of a list in square brackets; the comma in front of one belongs to it.
  virtual bool RecordsAreAList() const { return false; }
  /// What was edited can be written; else the file is only read.
  virtual bool WritesChanges() const { return true; }
  /// The size of the blocks of a file that is no text: an edited record is written whole, a character of it is a byte,
  /// and no encoding is chosen for it. 0: the file is text.
  virtual std::size_t BlockBytes() const { return 0; }
  /// Such a file has all letters of a text.
  virtual bool Holds(TextView, TextView) const { return true; }
  /// Puts right what such a file says of its own size, after it has got so many records more.
  virtual void CountAnew(std::string&, int) const {}
  /// What stands around the records in a new file.
  virtual FileFrame FrameOfNewFile() const { return {}; }
};

/// The rules of a format of the catalogue; null when it is read by the catalogue's record alone.
std::unique_ptr<SourceFormat> MakeSourceFormat(TextView identifier, const SourceSettings& settings = {});

}  // namespace cuewright

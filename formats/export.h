#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/caption_list.h"
#include "core/runtime_error.h"
#include "formats/definition.h"
#include "formats/file_access.h"
#include "formats/lacking_letters.h"
#include "formats/source/losses.h"
#include "formats/source/markup.h"
#include "formats/source/source_writer.h"
#include "text/text.h"

namespace cuewright {

class CarriedTexts;
struct WriteJob;

/// Writes the caption list in the format in force. Nothing is thrown: what went wrong is told in a box.
class Exporter {
 public:
  /// `path` is the document's own path and `modified` its flag; both are read and set at each export.
  Exporter(const FormatSet& formats, const FormatTalk& talk, const CaptionList& captions, const FileAccess& access,
           const Text& path, bool& modified)
      : formats_(formats), talk_(talk), captions_(captions), access_(access), path_(path), modified_(modified) {}

  /// Writes rows 1 to `lastRow` (PLAINTEXT: all of them) to the document's file. Where no file could be written the old
  /// one stays whole and the document modified: `Message::SaveFailed` tells it for error 75, a box with number and
  /// description for any other. A run-time error inside a line is told in that box as well, and the other lines are
  /// written. False when no file was written. Where the document's encoding lacks a character of it, UTF-8 is written
  /// and is the document's encoding from then on. A format that can only be read is written over its own file alone.
  bool ExportSubtitle(Row lastRow);

  /// How many captions up to a row would lose something by an export in the format in force, by the kind of what they
  /// lose.
  Losses Foreseen(Row lastRow) const;
  /// Where the document's encoding lacks letters of what such an export would write.
  std::vector<LackingPlace> LackingLetters(Row lastRow) const;

  /// The same of the last export.
  const Losses& Lost() const { return lost_; }

 private:
  /// True when the format in force can be written; tells the user why when it can't.
  bool MayBeWritten(Row lastRow) const;
  bool WriteFile(Row lastRow, CarryOn& errors);
  /// The format in force with what the encoding, the film's picture and carried marks change of it.
  FormatDefinition DefinitionToWrite(TextView id, const DocumentEncoding& encoding, const CarriedTexts* carried) const;
  void WriteLines(const WriteJob& job, const Codec& codec, ByteSink& bytes);
  static void WriteOver(const SourceMap& map, SourceWriter& source, const Codec& codec, int codePage, ByteSink& bytes);
  /// The file that the document was read from, when it is to be saved over that; null else.
  std::shared_ptr<const SourceMap> SourceOf(TextView id) const;
  /// The file that the texts are from, whatever format they are written in; null: none.
  const SourceMap* Origin() const { return formats_.state.Source.get(); }
  /// True when texts have marks that are to become those of the format.
  bool CarriesMarks(TextView id, Row lastRow) const;
  /// Counts what of the captions a format has no fields for. Marks in their texts are counted elsewhere.
  void CountFieldless(TextView id, Row lastRow, Losses& lost) const;
  SourceTimes TimesOf(const SourceMap& map) const;
  std::shared_ptr<const Codec> ChooseCodec(Row lastRow, const SourceWriter* source, DocumentEncoding& encoding) const;
  bool AllHeldBy(const Codec& codec, Row lastRow) const;
  bool Classic() const;
  void TellNotSaved(const RuntimeError& error);
  void TellError(const RuntimeError& error);

  FormatSet formats_;
  FormatTalk talk_;
  const CaptionList& captions_;
  FileAccess access_;
  const Text& path_;
  bool& modified_;
  Losses lost_;
};

}  // namespace cuewright

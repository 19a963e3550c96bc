#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "core/caption_list.h"
#include "core/journal.h"
#include "core/runtime_error.h"
#include "formats/definition.h"
#include "formats/file_access.h"
#include "formats/line_import.h"
#include "formats/recogniser.h"
#include "formats/rival_formats.h"
#include "formats/source/source_import.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// What becomes of the captions that are in the list when a file is read.
enum class Loading { NewDocument, Append };

/// Finds out the format of a file and reads it into the caption list. Nothing is thrown: what went wrong is told in a
/// box at the end of a load.
class Importer {
 public:
  /// `cancelled` is the flag that `cmdCancel` sets in a pause. The list's options say how text files are
  /// read.
  Importer(const FormatSet& formats, const FormatTalk& talk, CaptionList& captions, const FileAccess& access,
           bool& cancelled);

  /// Recognises the file and imports it; tells why when it doesn't know the format. A file that no format fits is tried
  /// again as 16-bit text, and a name that ends in "txt" is then plain text, which replaces the document even when
  /// appending. A file that several formats fit equally well, each reading it in another way, is asked about, the best
  /// of them first. After appending, the format, its definition, the rate and the encoding are the document's own
  /// again, whatever was read; what is appended comes later by the film's duration.
  void DetectFormat(TextView path, Loading loading, std::int32_t mediaSeconds = 0);

  /// The index of the format that `DetectFormat` settles on or offers first, plain text among them, without reading the
  /// file's captions. Nothing, after telling why, when no format fits or the file can't be read.
  [[nodiscard]] std::optional<int> SettleFormat(TextView path);

  /// Puts the file in force from which captions of a journal were read, so that they know their records again. Where it
  /// no longer reads as it did, no file is put in force.
  void RestoreSource(const JournalSource& kept);

  /// From now on files are read as text of this code page, whatever they look like; with nothing they are read as the
  /// options say.
  void ReadAs(std::optional<int> codePage) { codePage_ = codePage; }

  /// Reads a file with the format in force. A new document begins with an empty list.
  void ImportSubtitle(TextView path, Loading loading);

  /// The line at which the load was cut off or met its last error, counted from 1; 0: everything was read, or what
  /// went wrong has no line.
  std::size_t TroubleLine() const { return lines_.TroubleLine() != 0 ? lines_.TroubleLine() : source_.TroubleLine(); }

  /// Asks for a frame rate until one of 1 to 240 is typed, in the classic manner one of 15 to below 31; none when the
  /// user cancels. The film's own is offered where it is known.
  FrameRate PromptForFps();

 private:
  std::optional<TextFile> Open(TextView path, CarryOn& errors);
  /// False when a plain text replaced the document, even if the captions were to be appended.
  bool Detect(const Text& path, Loading loading);
  void Reject(TextView path, const CarryOn& errors);
  void ImportFile(const Text& path, std::optional<TextFile> file, bool wide, Loading loading, CarryOn& errors);
  void PutInForce(int format);
  TrialReading TryFormat(int format, const TextFile& file);
  /// The formats that fit the file equally well, the best of them first and in force; a single one is certain.
  std::vector<int> SettleRivals(const TextFile& file);
  /// Asks which of these a file is read by; false when the user cancels.
  bool ChooseFormat(const std::vector<int>& formats, const TextFile& file);
  /// Asks with the file's first lines below; the harmless answer to a warning is No.
  BoxAnswer AskAbout(const TextFile& file, Text question, BoxIcon icon, BoxButtons buttons);
  std::vector<Caption> ReadRows(TextFile file, bool wide, CarryOn& errors);
  std::vector<Caption> ReadByRules(const std::shared_ptr<SourceMap>& map, bool keep, CarryOn& errors);
  SourceSettings RulesSettings() const;
  /// Asks which class of captions is to be read where the file has several; false when the user cancels.
  bool ChooseClass(const TextFile& file);
  /// Asks about a file most of which wasn't understood; false when the user doesn't want what was.
  bool IsWanted(const std::vector<Caption>& rows, const SourceMap* map);
  void BeginImport();
  bool ReadFrameRate(TextFile* file);
  void FillList(std::vector<Caption> rows, Loading loading, CarryOn& errors);
  void TellAppended();
  void TellError(TextView path, const CarryOn& errors);

  FormatSet formats_;
  FormatTalk talk_;
  CaptionList& captions_;
  FileAccess access_;
  bool& cancelled_;
  FormatRecogniser recogniser_;
  LineImport lines_;
  SourceImport source_;
  std::optional<int> codePage_;
  Text captionClass_;              // the class of captions that is read of a file with several; empty: the first
  std::int32_t mediaSeconds_ = 0;  // of the film that an append goes with
  Ms appendOffset_ = 0;
};

}  // namespace cuewright

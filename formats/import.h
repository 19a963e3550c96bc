#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/caption_list.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/runtime_error.h"
#include "formats/definition.h"
#include "formats/line_readers.h"
#include "text/encodings.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright {

/// Finds out the format of a file and reads it into the caption list. Nothing is thrown: what went wrong is told in a
/// box at the end of a load.
class Importer {
 public:
  /// `cancelled` is the flag that `cmdCancel` sets while the host yields. The list's options say how text files are
  /// read.
  Importer(FormatLoader& loader, CaptionList& captions, const Files& files, const Encodings& encodings,
           bool& cancelled);

  /// Recognises the file and imports it; tells why when it doesn't know the format. Called with `wide` false; a file
  /// that no format fits is tried again as 16-bit text, and a name that ends in "txt" is then plain text, which
  /// replaces the document even when appending. After appending, the format, its definition, the rate and the encoding
  /// are the document's own again, whatever was read.
  void DetectFormat(TextView path, bool wide, bool append);

  /// The index of the format that `DetectFormat` settles on, plain text among them, without reading the file's
  /// captions. Nothing, after telling why, when no format fits or the file can't be read.
  std::optional<int> SettleFormat(TextView path);

  /// Reads a file with the format in force. Without `append` the list is emptied first.
  void ImportSubtitle(TextView path, bool wide, bool append);

  /// The line at which the load was cut off or met its last error, counted from 1; 0: everything was read, or what
  /// went wrong has no line.
  std::size_t TroubleLine() const { return troubleLine_; }

  /// Asks for a frame rate until one of 15 to below 31 is typed; 0 when the user cancels.
  float PromptForFps();

 private:
  struct Heads {
    Text full;
    Text brief;  ///< numbers of any length as "00"
  };

  void Detect(TextView path, bool wide, bool append);
  std::optional<TextFile> Open(TextView path, CarryOn& errors) const;
  Heads ReadHeads(TextFile& file, bool wide) const;
  /// Puts the recognised format in force and tells whether the file is 16-bit text; nothing when no format fits.
  std::optional<bool> Settle(std::optional<TextFile>& file, bool wide, CarryOn& errors);
  bool Recognise(const Heads& heads, CarryOn& errors);
  bool Fits(const Heads& heads) const;
  bool FitsSecondTemplate(const Heads& heads, TextView formatId);
  void SettleLookAlikes(const Heads& heads, CarryOn& errors);
  void Reject(TextView path, CarryOn& errors);

  void ImportFile(TextView path, std::optional<TextFile> file, bool wide, bool append, CarryOn& errors);
  void BeginImport();
  bool ReadFrameRate();
  void ReadLines(TextFile& file, bool wide, CaptionCollector& captions, const RecordPieces& pieces, CarryOn& errors);
  bool StopsHere(TextFile& file, const CaptionCollector& captions);
  void ParseLines(TextFile& file, bool wide, CaptionCollector& captions, const RecordPieces& pieces, CarryOn& errors);
  LineReader MakeReader(const ParseContext& context, const RecordPieces& pieces, bool bodySeen) const;
  void FillList(std::vector<Caption> rows, bool append, CarryOn& errors);
  void TellAppended();
  void TellError(TextView path, const CarryOn& errors);

  FormatLoader& loader_;
  CaptionList& captions_;
  const Files& files_;
  const Encodings& encodings_;
  bool& cancelled_;
  bool timecodeLiteral_ = false;
  std::int32_t appendOffset_ = 0;
  std::size_t troubleLine_ = 0;
};

}  // namespace cuewright

#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/ebu_text.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// True when the bytes begin as a file of EBU Tech 3264 does, letters in any case.
bool IsEbuHead(std::string_view bytes);

/// EBU subtitling data exchange (Tech 3264): a head of 1024 bytes and blocks of 128 for the captions. A caption has a
/// block or several; a changed one is written anew in the way of its own blocks, of which
/// everything stays that wasn't changed. Comments and users' data stay as they are.
class EbuFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  std::size_t BlockBytes() const override;
  bool Holds(TextView text, TextView separator) const override;
  void CountAnew(std::string& file, int moreRecords) const override;

 private:
  void ReadHead(std::string_view head);
  Ms ProgrammeStart(std::string_view digits) const;
  /// True when a caption in these blocks begins before a time.
  bool BeginsBefore(std::string_view blocks, Ms ms) const;
  /// Where the blocks of the caption end that begins at a place.
  std::size_t EndOfCaption(std::string_view bytes, std::size_t at) const;
  /// Hands the caption on; false when the sink takes no more.
  bool TakeCaption(std::string_view bytes, Stretch whole, TextView separator, SourceSink& sink) const;
  /// The text fields of the blocks joined together, without their unused bytes.
  std::string FieldOf(std::string_view blocks) const;
  Text TextOf(std::string_view blocks, TextView separator) const;
  int PlaceOf(std::string_view block) const;
  bool TimeOf(std::string_view field, Ms& ms) const;
  std::string BlocksOf(std::string_view field, std::string_view old) const;
  void PutPlace(const StyledText& text, const StyledText& before, TextView separator, std::string& block) const;
  void PutTime(Ms ms, std::size_t at, std::string& blocks) const;

  EbuTexts texts_;
  int rate_ = 25;
  int rows_ = 23;
  Ms programmeStart_ = 0;  ///< times in the file count from this one
  int firstNumber_ = 0;
  std::size_t size_ = 0;  // of the file
};

}  // namespace cuewright

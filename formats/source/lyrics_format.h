#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Lyrics (LRC): "[mm:ss.xx]words" with minutes that run on, several times in front of words that are sung again, and
/// in the enhanced form times of single words, which stay in the text. "[offset:ms]" moves all of them.
class LyricsFormat final : public SourceFormat {
 public:
  explicit LyricsFormat(const SourceSettings& settings) : settings_(settings) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool WritesEnds() const override { return writesEnds_; }

 private:
  bool TakeHeader(std::string_view line);

  SourceSettings settings_;
  Ms offset_ = 0;           ///< ms by which the words come earlier than their times
  bool writesEnds_ = true;  ///< false: the file has no ends of captions and gets none
};

}  // namespace cuewright

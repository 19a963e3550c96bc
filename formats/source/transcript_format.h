#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Segments as transcribers write them in JSON, of any shape around them: "start" and "end" or "duration" under their
/// several names, pairs under "timestamp" or "offsets", events with pieces of text. Times are seconds, clock times, or
/// milliseconds in files that have whole numbers alone.
class TranscriptFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool RecordsAreAList() const override { return !lines_; }
  FileFrame FrameOfNewFile() const override { return {u"{\"segments\": [", u"\r\n]}\r\n"}; }

 private:
  bool milliseconds_ = false;
  bool lines_ = false;
};

}  // namespace cuewright

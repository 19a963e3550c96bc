#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Segments with "start", "end" and "text" as transcribers write them in JSON, of any shape around them. Times are
/// seconds, or milliseconds in files that have whole numbers alone.
class TranscriptFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool RecordsAreAList() const override { return true; }
  FileFrame FrameOfNewFile() const override { return {u"{\"segments\": [", u"\r\n]}\r\n"}; }

 private:
  bool milliseconds_ = false;
};

}  // namespace cuewright

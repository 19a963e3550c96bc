#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Closed captions as Scenarist files have them: lines of a timecode and the words of line 21, each of two bytes in
/// hexadecimal digits, one word for each of 30000/1001 frames a second. A caption is no stretch of such a file but the
/// effect of many words, so the file is read but not changed.
class SccFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool WritesChanges() const override { return false; }
};

}  // namespace cuewright

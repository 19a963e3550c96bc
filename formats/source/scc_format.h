#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Closed captions as Scenarist files have them: lines of a timecode and the words of line 21, two bytes in hexadecimal
/// digits, one a frame of 30000/1001 a second. The captions lie in the words like a film in its code, so the file is
/// only read.
class SccFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool WritesChanges() const override { return false; }
};

}  // namespace cuewright

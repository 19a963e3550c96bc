#pragma once

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// SubRip as it is found: a number, "H:MM:SS,mmm --> H:MM:SS,mmm" and what may follow it, lines of text, blank lines.
/// Numbers and blank lines may lack, fractions have any number of digits behind a comma or a dot, hours one to three.
class SubRipFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
};

}  // namespace cuewright

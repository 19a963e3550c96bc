#pragma once

#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Whether a line of text is "H:MM:SS,mmm --> H:MM:SS,mmm", in any of the forms that `SubRipFormat` takes.
bool IsSubRipTimes(std::string_view line);

/// SubRip as it is found: a number, "H:MM:SS,mmm --> H:MM:SS,mmm" and what may follow it, lines of text, blank lines.
/// Numbers, hours and blank lines may lack, fractions have any number of digits behind a comma or a dot, hours one to
/// three; blanks may stand in a time, a colon in front of three digits of a fraction, and "->" for the arrow.
class SubRipFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
};

}  // namespace cuewright

#pragma once

#include <string>
#include <string_view>

#include "formats/source/source_format.h"
#include "formats/source/ttml_time.h"

namespace cuewright {

/// TTML, DFXP and the text profile of IMSC: paragraphs with times in any form, whatever the order of attributes and the
/// prefixes of name spaces. https://www.w3.org/TR/ttml1/
class TtmlFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(std::int32_t ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;

 private:
  TtmlClock clock_;
  Text elementPrefix_;          ///< of paragraphs, with its colon
  Text stylePrefix_ = u"tts:";  ///< of styles
  std::int32_t offset_ = 0;     ///< ms at which the element around the paragraphs begins
};

}  // namespace cuewright

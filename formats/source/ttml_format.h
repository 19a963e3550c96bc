#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "core/ms.h"
#include "formats/source/source_format.h"
#include "formats/source/ttml_text.h"
#include "formats/source/ttml_time.h"

namespace cuewright {

/// TTML, DFXP and the text profile of IMSC: paragraphs with times in any form, whatever the order of attributes and the
/// prefixes of name spaces. https://www.w3.org/TR/ttml1/
class TtmlFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool TellsBeside() const override { return !beside_.empty(); }
  Beside BesideOf(const SourceText& text, const SourceRecord& record) const override;

 private:
  TtmlClock clock_;
  TtmlNames names_;
  Ms offset_ = 0;  ///< ms at which the element around the paragraphs begins
  std::unordered_map<std::uint32_t, Beside>
      beside_;  ///< by the place of the paragraph's record, where it says something
};

}  // namespace cuewright

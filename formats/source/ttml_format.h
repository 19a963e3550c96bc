#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "core/ms.h"
#include "formats/source/source_format.h"
#include "formats/source/source_settings.h"
#include "formats/source/ttml_text.h"
#include "formats/source/ttml_time.h"
#include "formats/source/ttml_walk.h"

namespace cuewright {

/// TTML, DFXP and the text profile of IMSC: paragraphs with times in any form, whatever the order of attributes and the
/// prefixes of name spaces. https://www.w3.org/TR/ttml1/
class TtmlFormat final : public SourceFormat {
 public:
  explicit TtmlFormat(SourceSettings settings = {}) : settings_(std::move(settings)) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool TellsBeside() const override { return said_.beside || said_.styles != nullptr; }
  Beside BesideOf(const SourceText& text, const SourceRecord& record) const override;
  Ms OffsetOf(const SourceRecord& record) const override;
  bool WritesChanges() const override { return !said_.sequences; }

 private:
  SourceSettings settings_;
  TtmlClock clock_;
  TtmlNames names_;
  TtmlSaid said_;
};

}  // namespace cuewright

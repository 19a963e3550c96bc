#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// WebVTT: cues with or without a name, settings behind the times, and NOTE, STYLE and REGION blocks between them.
/// https://www.w3.org/TR/webvtt1/
class WebVttFormat final : public SourceFormat {
 public:
  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool TellsBeside() const override { return hasSettings_; }
  Beside BesideOf(const SourceText& text, const SourceRecord& record) const override;

 private:
  bool hasSettings_ = false;      ///< cues say where they stand
  bool namesHardBlanks_ = false;  ///< the file has "&nbsp;"
};

}  // namespace cuewright

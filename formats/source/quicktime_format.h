#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// QuickTime text: "[hh:mm:ss.xx]" and the lines below it. The digits behind the dot count the units that the header's
/// "{timeScale:n}" has in a second.
class QuickTimeFormat final : public SourceFormat {
 public:
  explicit QuickTimeFormat(const SourceSettings& settings) : settings_(settings) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool WritesEnds() const override { return writesEnds_; }

 private:
  void TakeHeader(std::string_view line);

  SourceSettings settings_;
  std::int32_t scale_ = 0;  ///< units of a second; 0: the file doesn't tell, the digits are a decimal fraction
  bool writesEnds_ = true;  ///< false: the file has no ends of captions and gets none
};

}  // namespace cuewright

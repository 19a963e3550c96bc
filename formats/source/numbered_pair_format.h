#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Formats of one line a caption that begins with two numbers in brackets: MicroDVD counts frames in braces, MPL2
/// tenths of a second in square brackets. Lines of a text are parted by "|".
class NumberedPairFormat final : public SourceFormat {
 public:
  enum class Variant { MicroDvd, Mpl2 };

  NumberedPairFormat(const SourceSettings& settings, Variant variant);

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;

 private:
  Ms MsOf(std::int32_t number) const;
  bool TakeRate(Ms start, std::string_view text);
  void TakeMarks(Text& text, TextView separator) const;

  SourceSettings settings_;
  Variant variant_;
};

}  // namespace cuewright

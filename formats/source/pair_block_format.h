#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Formats of a line "START,END" and lines of text below it. In SBV a line of the file is a line of the caption,
/// SubViewer 2 writes "[br]" and has lines of its own in square brackets.
class PairBlockFormat final : public SourceFormat {
 public:
  enum class Variant { Sbv, SubViewer2 };

  explicit PairBlockFormat(Variant variant) : variant_(variant) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;

 private:
  Variant variant_;
};

}  // namespace cuewright

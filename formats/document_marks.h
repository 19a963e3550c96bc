#pragma once

#include "core/caption_marks.h"
#include "formats/format_state.h"
#include "formats/source/markup.h"

namespace cuewright {

/// The marks in the texts of the document: those of the file that it was read from.
class DocumentMarks final : public CaptionMarks {
 public:
  /// The state must outlive this.
  explicit DocumentMarks(const FormatState& state) : state_(state) {}

  SeenCaption Read(TextView stored, TextView separator) const override;
  SeenCaption ReadOf(std::uint32_t origin, TextView stored, TextView separator) const override;
  Text ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const override;
  Text WithoutStyle(TextView stored, TextView marker, TextView separator) const override;

 private:
  const FormatState& state_;
};

}  // namespace cuewright

#pragma once

#include "capture/caption_grid.h"
#include "core/lang_strings.h"
#include "forms/house_check.h"

namespace cuewright {

/// What the house rules in force find of the captions, for the list to show.
class CheckedRows final : public RowFindings {
 public:
  CheckedRows(HouseCheck& check, CaptionGrid& grid, const LangStrings& strings);

  bool Any(Row row) const override;
  Text Reasons(Row row) const override;

 private:
  HouseCheck& check_;
  const LangStrings& strings_;
};

}  // namespace cuewright

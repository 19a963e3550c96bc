#pragma once

#include "core/caption_list.h"

namespace cuewright {

/// Rows `first` to `last`, both among them.
struct RowRange {
  Row first = 1;
  Row last = kMaxRow;

  /// The same without rows that the list doesn't have; `last` is below `first` when none is left.
  RowRange In(const CaptionList& list) const {
    return {first < 1 ? 1 : first, last < list.Rows() ? last : list.Rows() - 1};
  }
};

}  // namespace cuewright

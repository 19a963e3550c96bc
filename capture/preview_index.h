#pragma once

#include <cstdint>
#include <vector>

#include "core/caption_list.h"

namespace cuewright {

/// Finds the first caption that hasn't ended at a position, in a time that hardly grows with the list. The index is
/// built from the ends of all captions on the first call after they changed.
class PreviewIndex {
 public:
  explicit PreviewIndex(CaptionList& list);

  /// The row whose span is to be watched at a position in ms: 1 before the end of the first caption, else the row
  /// behind the first timed one at or behind whose end, and not behind whose successor's end, the position lies. 0 when
  /// there is none. The last caption of the list is never looked at for its successor.
  Row RowAt(Ms ms);

 private:
  void OnSplice(const Splice& splice);
  void Build();

  CaptionList& list_;
  Connection spliced_;
  bool built_ = false;
  bool timed_ = false;    // some caption but the last is timed
  std::vector<Ms> ends_;  // all different ends, rising
  std::vector<std::int16_t>
      rows_;  // the row for each end, followed by the one for the times between that end and the next
};

}  // namespace cuewright

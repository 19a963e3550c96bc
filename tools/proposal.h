#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/caption_list.h"

namespace cuewright {

/// A change of one caption that is shown before it is made.
struct Proposal {
  Row row = 0;
  std::optional<Caption> after;  ///< nothing: the caption is removed

  bool operator==(const Proposal&) const = default;
};

/// Makes the changes, at most one for each row and in the order of their rows, as one command and one change of the
/// list. Returns how many captions were changed or removed.
int CarryOut(CaptionList& list, EditKind kind, std::span<const Proposal> proposals);

/// All rows of a list, for what is done to all.
std::vector<Row> AllRows(const CaptionList& list);

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <optional>

#include "core/caption_list.h"

namespace cuewright {

/// Finds the caption that stands at a position of the film. What it found holds until the caption ends or the next one
/// begins, so that a film that plays asks for nothing in between.
class FilmRow {
 public:
  explicit FilmRow(CaptionList& list);

  /// The first row whose caption has begun and not ended at a position in ms; 0 for none.
  Row RowAt(Ms ms);

 private:
  /// The answer for all positions from `from` on and before `to`.
  struct Known {
    Row row = 0;
    std::int64_t from = 0;
    std::int64_t to = 0;
  };
  Known Find(Ms ms) const;

  CaptionList& list_;
  Connection spliced_;
  std::optional<Known> known_;
};

}  // namespace cuewright

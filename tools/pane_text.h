#pragma once

#include <cstddef>

#include "core/caption_list.h"
#include "core/seen_text.h"
#include "text/text.h"

namespace cuewright {

/// A caption's text as the text pane shows it, with LF for line ends, and stretches of it as they are stored.
class PaneText {
 public:
  /// The text of a row in range.
  PaneText(const CaptionList& list, Row row);

  TextView View() const { return hidesMarks_ ? seen_.View() : TextView(shown_); }

  /// A stretch without the blanks and line ends at both of its ends. Marks that aren't shown stay in every stretch that
  /// they reach.
  Text Piece(std::size_t from, std::size_t to) const;

 private:
  bool hidesMarks_;
  Text separator_;
  SeenText seen_;  ///< while marks are hidden
  Text shown_;     ///< else
};

/// Length of the dash with which a line of a dialogue begins, and of the blanks behind it; 0 when there is none.
std::size_t DashLength(TextView line);

}  // namespace cuewright

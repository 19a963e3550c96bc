#pragma once

#include <cstddef>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// A caption's text as its reader sees it: without tags, and with LF for each line separator. What is changed in it is
/// changed in the stored text, where the tags stay.
class VisibleText {
 public:
  /// Takes another text; room is used again.
  void Take(TextView stored, TextView separator);

  TextView View() const { return visible_; }

  /// A stretch of the visible text that gives way to another.
  struct Change {
    std::size_t from = 0;
    std::size_t to = 0;
    Text text;  ///< LF for each line separator
  };

  /// The stored text with these changes, which are in order and don't overlap. A tag inside a stretch stays at the
  /// character in front of which it stood, counted from the first one that is another, or behind the shorter new text.
  Text Changed(const std::vector<Change>& changes) const;

 private:
  void CopyStored(std::size_t from, std::size_t to, Text& out) const;
  void PutChange(const Change& change, Text& out) const;
  void PutVisible(TextView text, Text& out) const;
  std::size_t InsertionPlace(std::size_t at) const;

  TextView stored_;
  TextView separator_;
  Text visible_;
  // Where each visible character begins and ends in the stored text; what lies between two is tags.
  std::vector<std::size_t> begins_;
  std::vector<std::size_t> ends_;
};

/// Length of the tag at the beginning of the text: "<i>", "</font>", "<00:01.500>", "{\an8}", "{y:i}"; 0 when it begins
/// with none.
std::size_t TagLength(TextView text);

}  // namespace cuewright

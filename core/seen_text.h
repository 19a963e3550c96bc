#pragma once

#include <cstddef>
#include <vector>

#include "core/caption_marks.h"
#include "text/text.h"

namespace cuewright {

/// A caption's text as its reader sees it: without marks, and with LF for each line separator. What is changed in it is
/// changed in the stored text, where the marks stay.
class SeenText {
 public:
  /// Takes another text, whose marks are read so; room is used again.
  void Take(TextView stored, TextView separator, const CaptionMarks& marks);
  /// The same for a text of no known format: whatever looks like a tag is one.
  void Take(TextView stored, TextView separator);

  TextView View() const { return seen_; }
  const Text& Stored() const { return stored_; }

  /// A stretch of the seen text that gives way to another.
  struct Change {
    std::size_t from = 0;
    std::size_t to = 0;
    Text text;  ///< LF for each line separator
  };

  /// Carries out these changes, which are in order and don't overlap. A mark inside a stretch stays at the character in
  /// front of which it stood, counted from the first one that is another, or behind the shorter new text. What comes in
  /// is seen as it stands, be it a mark: it is read as one when the text is taken anew.
  void Apply(const std::vector<Change>& changes);

  /// Changes what the two texts differ in; marks stay at the words that both have, in whatever lines and with whatever
  /// blanks between them. A pair of tags that has nothing left
  /// between it goes.
  void ChangeTo(TextView wanted);

  /// Keeps this stretch of the seen text alone, with all marks but pairs of tags that have nothing left between them.
  void Keep(std::size_t from, std::size_t to);

 private:
  class Builder;

  void TakeBreaks();
  void PutChange(const Change& change, Builder& out) const;
  std::size_t InsertionPlace(std::size_t at) const;
  void DropEmptyPairs(std::size_t at);

  Text stored_;
  Text separator_;
  Text seen_;
  std::vector<TextPlace> places_;  ///< of each unit of the seen text; what lies between two is marks
};

/// Length of the tag at the beginning of the text: "<i>", "</font>", "<00:01.500>", "{\an8}", "{y:i}"; 0 when it begins
/// with none.
std::size_t TagLength(TextView text);

/// False for a text without any of the characters that marks are made of, in whatever format.
inline bool MayHaveMarks(TextView text) { return text.find_first_of(u"<{&\\/_") != TextView::npos; }

}  // namespace cuewright

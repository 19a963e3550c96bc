#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "core/caption_list.h"
#include "core/caption_marks.h"
#include "text/text.h"
#include "tools/proposal.h"
#include "tools/row_range.h"

namespace cuewright {

/// What is sought in captions, and what comes in its place.
struct ReplaceOrder {
  Text find;
  Text with;
  bool regex = false;      ///< `find` is a regular expression, and "$1" in `with` a group of it
  bool matchCase = false;  ///< else letters of both cases match
  bool wholeWord = false;  ///< no letter, digit or "_" stands beside what is found
};

/// Finds and replaces in the visible text of captions. A line separator counts as LF; tags are not seen, and stay.
class TextReplacer {
 public:
  enum class Fault : std::uint8_t {
    None,
    NothingToFind,
    BadPattern,
    BadReplacement,  ///< it names a group that the pattern lacks
    TooSlow          ///< the pattern needs more time than a pattern may
  };

  /// Without `marks` whatever looks like a tag is one. All texts together may take the time `most`.
  TextReplacer(const ReplaceOrder& order, TextView separator, const CaptionMarks* marks = nullptr,
               std::chrono::milliseconds most = std::chrono::seconds(10));
  ~TextReplacer();

  /// A second replacer for the same order, for use in another thread.
  std::unique_ptr<TextReplacer> Another() const;
  /// Takes over the problem of another replacer, if it met one.
  void TakeProblemOf(const TextReplacer& other);

  /// What is wrong with the order, or went wrong in using it. From then on nothing is found.
  Fault Problem() const { return fault_; }

  /// True when something is found in the text.
  bool FindsIn(TextView stored);
  /// The text with everything that was found replaced; nothing when that leaves the text as it is.
  std::optional<Text> Replaced(TextView stored);

 private:
  struct Engine;

  void Check(const Text& pattern);
  void TakeText(TextView stored);
  bool FindsInPlain(TextView stored);
  void FindAll();
  void NoteFailure();

  ReplaceOrder order_;
  Text separator_;
  const CaptionMarks* marks_;
  std::chrono::milliseconds most_;
  Fault fault_ = Fault::None;
  std::unique_ptr<Engine> engine_;
  std::chrono::steady_clock::duration spent_{};
};

/// Replaces in the captions of the range, as one command; how many changed. When the replacer meets a problem on the
/// way, none is changed.
int ReplaceInCaptions(CaptionList& list, const RowRange& rows, TextReplacer& replacer);

/// What replacing in these rows would change; nothing when the replacer meets a problem. Many rows are looked at by
/// all processors, so `marks` of the list are read by several threads at a time.
std::vector<Proposal> ProposeReplacements(const CaptionList& list, std::span<const Row> rows, TextReplacer& replacer);

}  // namespace cuewright

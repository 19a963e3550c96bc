#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

#include "core/caption_list.h"
#include "text/text.h"
#include "tools/row_range.h"

namespace cuewright {

/// What is sought in captions, and what comes in its place.
struct ReplaceOrder {
  Text find;
  Text with;
  bool regex = false;      ///< `find` is a regular expression, and "$1" in `with` a group of it
  bool matchCase = false;  ///< else letters of both cases match
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

  TextReplacer(const ReplaceOrder& order, TextView separator);
  ~TextReplacer();

  /// What is wrong with the order or became wrong in using it. Nothing is found from then on.
  Fault Problem() const { return fault_; }

  /// The text with all that was found replaced; nothing when nothing was found or nothing is another for it.
  std::optional<Text> Replaced(TextView stored);

 private:
  struct Engine;

  void Check(const Text& pattern);
  void FindAll();

  ReplaceOrder order_;
  Text separator_;
  Fault fault_ = Fault::None;
  std::unique_ptr<Engine> engine_;
  std::chrono::steady_clock::duration spent_{};
};

/// Replaces in the captions of the range, as one command; how many changed. When the replacer meets a problem on the
/// way, none is changed.
int ReplaceInCaptions(CaptionList& list, const RowRange& rows, TextReplacer& replacer);

}  // namespace cuewright

#pragma once

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "external/word_automation.h"

namespace cuewright {

/// Spelling checked by a word processor, over either of its two routes.
class WordSpelling {
 public:
  WordSpelling(WordAutomation& automation, const LangStrings& strings, Messages& messages)
      : automation_(automation), strings_(strings), messages_(messages) {}

  /// The corrected text by the older commands, or the given one when nothing usable came back. A failure is told, and
  /// sets `SpellFailed`.
  Text MsSpellCheck(TextView text);
  bool SpellFailed() const { return failed_; }

  /// The corrected text by the newer objects, with CR LF at its line ends, or the given one when nothing came back.
  Text CheckSpelling(TextView text);

 private:
  WordAutomation& automation_;
  const LangStrings& strings_;
  Messages& messages_;
  bool failed_ = false;
};

}  // namespace cuewright

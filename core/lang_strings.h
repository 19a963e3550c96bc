#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "core/message.h"
#include "text/text.h"

namespace cuewright {

/// Messages that are translated and counted, 0 to 468.
inline constexpr std::size_t kMessageCount = 469;
/// The further texts, 900 to 2999: a language that lacks one shows the English text and still counts as complete.
inline constexpr std::size_t kFirstFurtherText = 900;
inline constexpr std::size_t kEndOfTexts = 3000;

/// True for a number under which a language may have a text.
constexpr bool IsTextNumber(std::size_t id) {
  return id < kMessageCount || (id >= kFirstFurtherText && id < kEndOfTexts);
}

/// The message of a number, for those who go through a block of numbers.
constexpr Message NumberedMessage(std::size_t id) { return static_cast<Message>(id); }

/// The texts of the language in force.
class LangStrings {
 public:
  const Text& operator[](Message message) const { return rows_[Place(message)]; }
  void Set(Message message, Text text) { rows_[Place(message)] = std::move(text); }

  /// The language whose rules for plurals hold, as its code, such as "ar".
  void SetLanguageCode(std::string code) { code_ = std::move(code); }

  /// A text with a count in place of `mark`, such as u"%1". Where the text has forms for that mark, written
  /// "{%1|one|%1 caption|other|%1 captions}" with the names that plural rules have for them, the one that the language
  /// uses for the count stands in their place; a form that is missing is the last one.
  Text Counted(Message message, TextView mark, long long count) const { return Counted((*this)[message], mark, count); }
  /// The same in a text that has another count in its place already.
  Text Counted(Text text, TextView mark, long long count) const;

 private:
  static constexpr std::size_t Place(Message message) {
    const auto id = static_cast<std::size_t>(message);
    return id < kFirstFurtherText ? id : id - kFirstFurtherText + kMessageCount;
  }

  std::string code_ = "en";
  std::array<Text, kMessageCount + kEndOfTexts - kFirstFurtherText> rows_;
};

}  // namespace cuewright

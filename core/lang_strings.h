#pragma once

#include <array>
#include <cstddef>

#include "core/text.h"

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

/// The texts of the language in force by number: the messages 0 to 468 and the further texts 900 to 2999.
class LangStrings {
 public:
  const Text& operator[](std::size_t id) const { return rows_[Place(id)]; }
  void Set(std::size_t id, Text text) { rows_[Place(id)] = std::move(text); }

 private:
  static constexpr std::size_t Place(std::size_t id) {
    return id < kFirstFurtherText ? id : id - kFirstFurtherText + kMessageCount;
  }

  std::array<Text, kMessageCount + kEndOfTexts - kFirstFurtherText> rows_;
};

}  // namespace cuewright

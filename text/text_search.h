#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace cuewright {

/// The bytes that a text takes in memory, two a unit.
inline std::string_view StoredBytes(TextView text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

/// Position of a character at or behind `from`, `TextView::npos` when it doesn't occur.
std::size_t FindCharacter(TextView text, char16_t c, std::size_t from = 0);

/// Which of three characters the text holds: the bits 1, 2 and 4.
unsigned HeldOf(TextView text, char16_t a, char16_t b, char16_t c);

/// True when the text holds a digit or "ff", which stands for the frames in the mask of a time.
bool HoldsDigitOrFrames(TextView text);

/// A text to look for ignoring case, prepared once. The search looks for one of its characters that has no case, which
/// nearly every mark of a format holds, and compares the rest where it finds that one.
class Needle {
 public:
  Needle() = default;
  explicit Needle(Text text);

  const Text& Value() const { return text_; }
  std::size_t Size() const { return text_.size(); }
  bool Empty() const { return text_.empty(); }

  /// The first place of the needle, from 1, at or behind the place `from` (at least 1); 0 when it doesn't occur. An
  /// empty needle is found at `from` as long as that lies in the text.
  std::size_t Place(TextView text, std::size_t from = 1) const;

  bool In(TextView text) const { return Place(text) != 0; }

  /// Replaces the needle everywhere in the text.
  void Replace(Text& text, TextView to) const;

 private:
  bool MatchesAt(TextView text, std::size_t at) const;

  Text text_;
  bool cased_ = false;
  bool anchored_ = false;
  std::size_t anchor_ = 0;  // index of the character without case that is looked for
};

/// Position of an exact text in a long one, `TextView::npos` when it doesn't occur.
std::size_t FindExact(TextView text, TextView needle, std::size_t from = 0);

/// The text with every `from` replaced, ignoring case.
Text ReplaceLoose(TextView text, TextView from, TextView to);

/// Replaces every exact copy of `from` in place.
void Exchange(Text& text, TextView from, TextView to);

/// Digits 1 to 9 as "0".
void MaskDigits(Text& text);

}  // namespace cuewright

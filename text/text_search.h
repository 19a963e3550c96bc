#pragma once

#include <cstddef>

#include "text/text.h"

namespace cuewright {

/// Position of a character at or behind `from`, `TextView::npos` when it doesn't occur.
std::size_t FindCharacter(TextView text, char16_t c, std::size_t from = 0);

/// Which of three characters the text holds: the bits 1, 2 and 4.
unsigned HeldOf(TextView text, char16_t a, char16_t b, char16_t c);

/// True when the text holds a digit or "ff", of which masks of times are made.
bool HoldsDigitOrFrames(TextView text);

/// A text to look for ignoring case, prepared once. The search goes by a character of it that has no case, as nearly
/// every mark of a format holds one, and compares around it.
class Needle {
 public:
  Needle() = default;
  explicit Needle(Text text);

  const Text& Value() const { return text_; }
  std::size_t Size() const { return text_.size(); }
  bool Empty() const { return text_.empty(); }

  /// The 1-based place at or behind the place `from` (at least 1); 0 when it doesn't occur. An empty needle is found at
  /// `from` as long as that lies in the text.
  std::size_t Place(TextView text, std::size_t from = 1) const;

  bool In(TextView text) const { return Place(text) != 0; }

  /// Replaces every copy in the text.
  void Replace(Text& text, TextView to) const;

 private:
  bool MatchesAt(TextView text, std::size_t at) const;

  Text text_;
  bool cased_ = false;
  bool anchored_ = false;
  std::size_t anchor_ = 0;  // index of a character without case
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

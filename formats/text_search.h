#pragma once

#include <cstddef>

#include "core/text.h"

namespace cuewright {

/// A text to look for ignoring case, prepared once: one without letters is searched as it stands.
class Needle {
 public:
  Needle() = default;
  explicit Needle(Text text);

  const Text& Value() const { return text_; }
  std::size_t Size() const { return text_.size(); }

  /// The 1-based place at or behind the place `from` (at least 1); 0 when it doesn't occur. An empty needle is found at
  /// `from` as long as that lies in the text.
  std::size_t Place(TextView text, std::size_t from = 1) const;

  bool In(TextView text) const { return Place(text) != 0; }

 private:
  Text text_;
  bool cased_ = false;
};

/// Position of an exact text in a long one, `TextView::npos` when it doesn't occur.
std::size_t FindExact(TextView text, TextView needle, std::size_t from = 0);

/// The text with every `from` replaced, ignoring case.
Text ReplaceLoose(TextView text, TextView from, TextView to);

/// `count` characters from the 1-based place on, as many as there are; run-time error 5 for a place below 1 or a
/// negative count.
TextView Middle(TextView text, std::ptrdiff_t place, std::ptrdiff_t count);
/// All characters from the place on.
TextView Middle(TextView text, std::ptrdiff_t place);
/// The first `count` characters; run-time error 5 for a negative count.
TextView Left(TextView text, std::ptrdiff_t count);

/// Digits 1 to 9 as "0".
void MaskDigits(Text& text);

}  // namespace cuewright

#pragma once

#include <array>
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace cuewright {

/// Text inside the program: UTF-16, so lengths and positions count 16-bit units.
using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr TextView kLineEnd = u"\r\n";

/// Text of UTF-8 bytes. A byte that is no valid UTF-8 becomes the lone unit U+DC00 + byte, so that any
/// file name or stored value survives the way through `ToUtf8` back to the same bytes.
Text FromUtf8(std::string_view bytes);

/// Bytes of a text, the inverse of `FromUtf8`. A lone surrogate outside U+DC80..U+DCFF becomes "?".
std::string ToUtf8(TextView text);

/// The text without the blanks (U+0020 alone) at both ends.
TextView TrimBlanks(TextView text);

/// True for an empty text and one of blanks alone.
bool IsBlank(TextView text);

/// Every letter in upper (lower) case by Unicode's simple mappings; the length stays.
Text ToUpper(TextView text);
Text ToLower(TextView text);

/// Position of `needle` at or behind `from`, case and all; `TextView::npos` when it doesn't occur. Quick for the one
/// character of ASCII that most separators are.
std::size_t FindPlain(TextView text, TextView needle, std::size_t from = 0);

/// Position of `needle` at or behind `from`, ignoring the case of every letter that has one (simple
/// folding); `TextView::npos` when it doesn't occur.
std::size_t FindLoose(TextView text, TextView needle, std::size_t from = 0);

/// Several texts to look for in one go, ignoring the case of every letter as `FindLoose` does.
class LooseNeedles {
 public:
  LooseNeedles() = default;
  /// An empty text occurs in every text.
  explicit LooseNeedles(const std::vector<Text>& needles);

  /// True when one of them occurs in the text.
  bool AnyIn(TextView text) const;

 private:
  bool AnyAt(TextView text, std::size_t at) const;

  std::vector<Text> folded_;
  std::vector<Text> wide_;           ///< the needles with characters of two units
  std::array<bool, 0x80> begins_{};  ///< by character of ASCII: a needle may begin with it
};

/// True when both texts are equal but for the case of letters.
bool EqualLoose(TextView a, TextView b);

/// The text with every `from` (exact, left to right, not overlapping) replaced; an empty `from` changes nothing.
Text ReplaceAll(TextView text, TextView from, TextView to);

/// The text with the first `from` (exact) replaced.
Text ReplaceFirst(TextView text, TextView from, TextView to);

/// A value that is to be put into the text. Within right-to-left letters a path or a negative number gets invisible
/// marks around it, so that it still reads from left to right.
Text InItsOrder(TextView text, TextView value);
/// The same for a value that stands by itself where everything is read from right to left.
Text InItsOrderFromRight(TextView value);

/// The text with "%1" and "%2" filled in one pass, so that a "%1" inside a value is text.
Text Fill(TextView text, TextView first, TextView second = {});

/// A caption without the mark of its access key: "&Yes" and "Yes (&Y)" become "Yes", "&&" becomes "&".
Text WithoutAccessKey(TextView caption);

/// The pieces between the separators; at least one, possibly empty.
std::vector<Text> Split(TextView text, TextView separator);

/// A whole number as decimal text.
template <std::integral Number>
Text Decimal(Number number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

}  // namespace cuewright

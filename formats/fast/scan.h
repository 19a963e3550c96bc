#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "text/text.h"

namespace cuewright {

/// What `WidenLine` found in a line.
struct LineScan {
  std::size_t length = 0;  ///< bytes in front of the line's end
  std::size_t ascii = 0;   ///< bytes in front of the first one above 127
  bool angled = false;     ///< there is a "<"
  bool markedA = false;    ///< there is the first mark, or there may be the letter before a blank
  bool markedB = false;    ///< there is the second one
};

/// ASCII characters to look for on the way through a line, and a pair of them.
struct LineMarks {
  char a = '<';
  char b = '<';
  char beforeBlank = '\0';  ///< a small letter: it counts, in either case, with a blank behind it
};

/// Finds the line's end and widens the line's ASCII beginning into `out` on the way. Where it can't do so in whole
/// blocks, near the end of the bytes or of `out`, `ascii` is 0, and all is left to be decoded.
LineScan WidenLine(std::string_view bytes, char end, std::span<char16_t> out, LineMarks marks = {});

/// The places of the first `places.size()` copies of `mark`; false when `end` or the end of the bytes comes first.
[[nodiscard]] bool FindMarks(std::string_view bytes, char mark, char end, std::span<std::size_t> places);

/// How far `EncodeUtf8Until` came.
struct EncodedPart {
  std::size_t units = 0;
  std::size_t bytes = 0;
};

/// Three ASCII characters to stop at.
struct Stops {
  char16_t a, b, c;
  bool Has(char16_t unit) const { return unit == a || unit == b || unit == c; }
};

/// Does what `EncodeUtf8` does, up to the first of the stops.
[[nodiscard]] EncodedPart EncodeUtf8Until(TextView text, const Stops& stops, std::span<char> room);

}  // namespace cuewright

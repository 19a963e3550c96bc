#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "text/text.h"

namespace cuewright {

/// What a whole run of bytes is.
enum class Utf8Kind { Ascii, MultiByte, Invalid };

/// Looks at every byte; an empty run is `Ascii`.
Utf8Kind ExamineUtf8(std::string_view bytes);

/// True when no byte is above 127.
bool IsAscii(std::string_view bytes);

/// Place of the first `end`, the size when there is none; `ascii` tells whether no byte in front of it is above 127.
std::size_t FindLineEnd(std::string_view bytes, char end, bool& ascii);

/// What a look at a line found.
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

/// Finds the line's end like `FindLineEnd` and widens its ASCII beginning into `out`, which has room for `room` units,
/// on the way. Where it can't do so in whole blocks `ascii` is 0, and all is left to be decoded.
LineScan WidenLine(std::string_view bytes, char end, char16_t* out, std::size_t room, LineMarks marks = {});

/// The places of the first `places.size()` copies of `mark`; false when `end` or the end of the bytes comes first.
bool FindMarks(std::string_view bytes, char mark, char end, std::span<std::size_t> places);

/// Decodes into `out`, which has room for one unit a byte and 16 more; returns the units written. A byte
/// that is no valid UTF-8 becomes the lone unit U+DC00 + byte. With `surrogates` the three-byte forms of lone
/// surrogates are taken, as `AppendUtf8(.., true)` writes them; with `slack` 16 bytes behind the given ones may be
/// read, which saves time.
std::size_t DecodeUtf8(std::string_view bytes, char16_t* out, bool surrogates = false, bool slack = false);

/// Widens ASCII bytes, under the same demand on room.
void WidenAscii(std::string_view bytes, char16_t* out);

/// Encodes into `out`, which has room for three bytes a unit and 8 more, as `AppendUtf8` does; returns the bytes
/// written.
std::size_t EncodeUtf8(TextView text, char* out, bool surrogates = false);

/// How far `EncodeUtf8Until` came.
struct EncodedPart {
  std::size_t units = 0;
  std::size_t bytes = 0;
};

/// The same up to the first of three ASCII characters.
EncodedPart EncodeUtf8Until(TextView text, char16_t a, char16_t b, char16_t c, char* out);

/// Appends the text as UTF-8. A lone unit U+DC80 to U+DCFF is the byte that it stands for, another lone surrogate
/// "?", or with `surrogates` every lone one its three-byte form.
void AppendUtf8(TextView text, std::string& out, bool surrogates = false);

}  // namespace cuewright

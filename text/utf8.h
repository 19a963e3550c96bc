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

/// The end of a line: how many bytes lie in front of it, and whether all of them are ASCII.
struct LineExtent {
  std::size_t length = 0;
  bool ascii = true;
};

/// Looks for the first `end`; without one the line goes to the end of the bytes.
LineExtent FindLineEnd(std::string_view bytes, char end);

/// What becomes of surrogates that are no half of a pair. UTF-16 files, which are UTF-8 in memory, may hold such ones.
enum class Surrogates {
  AreInvalid,
  AreKept,  ///< as sequences of three bytes
};

/// Units that must be free for decoding so many bytes: one a byte, and a block of 16 more, since whole blocks are
/// written.
constexpr std::size_t DecodedRoom(std::size_t bytes) { return bytes + 16; }
/// Bytes that must be free for encoding so many units, for the same reason.
constexpr std::size_t EncodedRoom(std::size_t units) { return 3 * units + 8; }

/// Decodes into `room`, of `DecodedRoom` units or more; returns the units written. A byte that is no valid UTF-8
/// becomes the lone unit U+DC00 + byte. With `slack` 16 bytes behind the given ones may be read, which saves time.
[[nodiscard]] std::size_t DecodeUtf8(std::string_view bytes, std::span<char16_t> room,
                                     Surrogates surrogates = Surrogates::AreInvalid, bool slack = false);

/// Widens ASCII bytes into `room`, of `DecodedRoom` units or more.
void WidenAscii(std::string_view bytes, std::span<char16_t> room);

/// Encodes into `room`, of `EncodedRoom` bytes or more; returns the bytes written. A lone unit U+DC80 to U+DCFF is the
/// byte that it stands for; another lone surrogate that is not kept becomes "?".
[[nodiscard]] std::size_t EncodeUtf8(TextView text, std::span<char> room,
                                     Surrogates surrogates = Surrogates::AreInvalid);

/// The same at the end of a string.
void AppendUtf8(TextView text, std::string& out, Surrogates surrogates = Surrogates::AreInvalid);

}  // namespace cuewright

#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "text/text.h"

namespace cuewright {

inline constexpr int kCodePageUtf16Le = 1200;
inline constexpr int kCodePageUtf16Be = 1201;
inline constexpr int kCodePageUtf32Le = 12000;
inline constexpr int kCodePageUtf32Be = 12001;
inline constexpr int kCodePageWestern = 1252;
inline constexpr int kCodePageJohab = 1361;
/// ISO 8859-1, whose characters have the numbers of their bytes.
inline constexpr int kCodePageLatin1 = 28591;
inline constexpr int kCodePageUtf8 = 65001;

/// True for the code pages that text files are read and written in: 874, 932, 936, 949, 950, 1250 to 1258, 1361, 65001.
bool IsTextCodePage(int codePage);

/// Turns the bytes of one code page into text and back. ASCII is the same in all of them.
class Codec {
 public:
  virtual ~Codec() = default;

  /// Decodes into `room`, of `DecodedRoom` units or more; returns the units written. Never fails: what the code page
  /// does not define still becomes text.
  [[nodiscard]] virtual std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const = 0;

  /// Appends the bytes of the text. A character that the code page lacks becomes "?", and the result is false.
  virtual bool Encode(TextView text, std::string& out) const = 0;

  Text Decoded(std::string_view bytes) const;
  std::string Encoded(TextView text) const;

  /// True when the code page has every character of the text.
  virtual bool Holds(TextView text) const;

  /// True when a byte below 128 is that ASCII character wherever it stands, so that bytes can be searched.
  virtual bool AsciiIsPlain() const { return false; }

  /// True for UTF-8, which is worth a shorter way.
  virtual bool IsUtf8() const { return false; }
};

/// True for the encodings of two or four bytes a unit, which are read as UTF-8.
constexpr bool IsWideUnicode(int codePage) {
  return codePage == kCodePageUtf16Le || codePage == kCodePageUtf16Be || codePage == kCodePageUtf32Le ||
         codePage == kCodePageUtf32Be;
}

/// The codec of a code page that `EncodingByName` knows, among them those of `IsTextCodePage` and, for writing, UTF-16
/// and UTF-32; any other number gives 1252.
std::shared_ptr<const Codec> MakeCodec(int codePage);

}  // namespace cuewright

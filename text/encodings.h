#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "text/codec.h"
#include "text/text.h"

namespace cuewright {

/// Stands for the system's code page in the conversions below.
inline constexpr int kSystemCodePage = -1;

/// How a document's file is written: the code page (65001 UTF-8, 1200 and 1201 UTF-16, 12000 and 12001 UTF-32) and
/// whether a byte order mark goes in front. A new document is UTF-8 without one.
struct DocumentEncoding {
  int codePage = kCodePageUtf8;
  bool mark = false;

  bool operator==(const DocumentEncoding&) const = default;
};

/// The bytes of the mark of a Unicode encoding; empty for any other.
std::string_view MarkOf(int codePage);

/// The conversions between bytes and text, with the code page that counts as the system's.
class Encodings {
 public:
  /// `systemCodePage` is the ANSI code page of the user's locale; one that is not known counts as 1252.
  explicit Encodings(int systemCodePage = kCodePageWestern);

  int SystemCodePage() const { return systemCodePage_; }
  const std::shared_ptr<const Codec>& SystemCodec() const { return system_; }

  /// Text of bytes that end at the first NUL. `codePage` 0 and -1 are the system's; an invalid sequence of UTF-8
  /// becomes U+FFFD.
  Text BytesToText(std::string_view bytes, int codePage) const;

  /// Bytes of a text. `codePage` as above; a character that it lacks becomes "?".
  std::string TextToBytes(TextView text, int codePage) const;

  /// The text's UTF-8 bytes read in the system's code page, one character a byte.
  Text EncodeUtf8Line(TextView text) const;

  /// The text's bytes in the system's code page, two of them to a 16-bit character with the low byte first. A last odd
  /// byte is dropped.
  Text PairBytes(TextView text) const;

 private:
  std::shared_ptr<const Codec> CodecOf(int codePage) const;

  int systemCodePage_;
  std::shared_ptr<const Codec> system_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "text/encodings.h"
#include "text/text.h"
#include "text/utf8.h"

namespace cuewright {

/// Largest file that is read, in bytes. Nothing that people call a subtitle comes near it.
inline constexpr std::uint64_t kLargestTextFile = 256ULL << 20;

/// Longest line that is decoded, in bytes; what lies behind is left out.
inline constexpr std::size_t kLongestLine = 16 << 20;

/// Decoded text in a buffer that is used again for the next line.
class LineBuffer {
 public:
  TextView View() const { return {units_.get(), size_}; }
  std::size_t Size() const { return size_; }
  void SetSize(std::size_t size) { size_ = size; }

  /// All the room behind the first `kept` units, which stay: at least `DecodedRoom(count)` units.
  std::span<char16_t> RoomBehind(std::size_t kept, std::size_t count) {
    const std::size_t wanted = kept + DecodedRoom(count);
    if (capacity_ < wanted) Grow(wanted, kept);
    return {units_.get() + kept, capacity_ - kept};
  }

 private:
  void Grow(std::size_t wanted, std::size_t kept);

  std::unique_ptr<char16_t[]> units_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

/// The bytes of a text file with what was found out about them: encoding, mark and line ends. Lines are handed out
/// as bytes, so that only those that are needed as text are decoded.
class TextFile {
 public:
  /// Classic: the bytes are text of the system's code page, a mark among them, and a line ends at CR or CR LF.
  static TextFile Classic(std::string bytes, const Encodings& encodings);

  /// What a file counts as that has no mark and, as UTF-8, no character of several bytes.
  enum class Untold {
    SystemsCodePage,  ///< ASCII is text of the system's code page, and so is anything that is no UTF-8
    Unicode           ///< ASCII is UTF-8, UTF-16 and UTF-32 without a mark are known by their zeros
  };

  /// Looks at all bytes first. A mark tells UTF-8 or UTF-16, and with `Untold::Unicode` UTF-32, and is no text; else
  /// valid UTF-8 with a character of several bytes is UTF-8; anything else is of the system's code page. Without any CR
  /// a line ends at LF; CR CR LF is one line end. With `Untold::Unicode` the ends may mix.
  static TextFile Auto(std::string bytes, const Encodings& encodings, Untold untold = Untold::SystemsCodePage);

  /// A file whose `Bytes` and encoding were kept.
  static TextFile Kept(std::string bytes, const DocumentEncoding& encoding);

  /// The bytes are text of this encoding, whatever they look like; only its own mark is looked for.
  static TextFile As(std::string bytes, int codePage);

  /// Bytes that are no text: each is the character of its number.
  static TextFile OfBytes(std::string bytes);
  bool IsText() const { return isText_; }

  const DocumentEncoding& Encoding() const { return encoding_; }

  /// The next line without its end; false behind the last one. A file that ends in a line end has no line behind
  /// it.
  [[nodiscard]] bool NextLine(std::string_view& line);

  /// The same, decoded on the way. A line beyond `kLongestLine` is cut there.
  [[nodiscard]] bool NextText(LineBuffer& buffer);

  /// A line was cut since the file was opened.
  bool LineWasCut() const { return cutPlace_ != 0; }

  /// The place, in bytes, behind the lines that were read, and the one behind the line that was cut last.
  std::size_t Place() const { return at_; }
  std::size_t CutPlace() const { return cutPlace_; }
  /// How many lines lie before a place; reads the file up to there.
  std::size_t LinesBefore(std::size_t place);

  /// All the text's bytes, without the mark, as ASCII can be looked for in them: UTF-16 and UTF-32 were turned into
  /// UTF-8.
  std::string_view Bytes() const { return std::string_view(bytes_).substr(start_); }
  /// The code page of `Bytes`.
  int BytesCodePage() const { return codec_ == nullptr ? kCodePageUtf8 : encoding_.codePage; }

  /// How many of `Bytes` lie before the next line.
  std::size_t BytesRead() const { return at_ - start_; }

  /// All bytes from the next line on, for parsers that look ahead.
  std::string_view Rest() const { return std::string_view(bytes_).substr(at_); }
  /// A byte below 128 is that ASCII character wherever it stands, so that marks can be looked for in the bytes.
  bool AsciiIsPlain() const { return codec_ == nullptr || codec_->AsciiIsPlain(); }
  /// Lines end at either of CR and LF.
  bool EndsMix() const { return endsMix_; }
  /// The character that ends lines, unless their ends mix: CR or LF.
  char LineEnd() const { return lineEnd_; }
  /// Moves behind the next line, which is known to have `length` bytes, and its end.
  void SkipLine(std::size_t length) {
    at_ += length;
    if (at_ == bytes_.size() || ++at_ == bytes_.size() || bytes_[at_ - 1] == '\n') return;
    if (bytes_[at_] == '\n') {
      ++at_;
    } else if (doubledReturn_ && bytes_[at_] == '\r' && at_ + 1 < bytes_.size() && bytes_[at_ + 1] == '\n') {
      at_ += 2;
    }
  }

  /// Starts over at the first line.
  void Rewind() { at_ = start_; }

  void Decode(std::string_view line, LineBuffer& buffer) const;
  Text Decoded(std::string_view line) const;
  /// Decodes into `room`, of `DecodedRoom` units or more; returns the units written.
  [[nodiscard]] std::size_t DecodeTo(std::string_view line, std::span<char16_t> room) const {
    if (codec_ != nullptr) return codec_->Decode(line, room);
    const bool slack = line.data() + line.size() + 16 <= bytes_.data() + bytes_.size();
    return DecodeUtf8(line, room, surrogates_, slack);
  }

  /// Bytes that are left to read, for estimates.
  std::size_t BytesLeft() const { return bytes_.size() - at_; }

 private:
  TextFile() = default;
  void TurnIntoUtf8();
  LineExtent ExtentOfLine() const;

  std::string bytes_;
  std::size_t start_ = 0;
  std::size_t at_ = 0;
  DocumentEncoding encoding_;
  std::shared_ptr<const Codec> codec_;              // null: UTF-8
  Surrogates surrogates_ = Surrogates::AreInvalid;  // UTF-8 that was made of UTF-16 keeps them
  char lineEnd_ = '\r';
  bool doubledReturn_ = false;
  bool endsMix_ = false;
  bool isText_ = true;
  std::size_t cutPlace_ = 0;  // behind the line that was cut last; 0: none was
};

}  // namespace cuewright

#include "text/text_file.h"

#include <algorithm>
#include <utility>

#include "text/utf8.h"

namespace cuewright {
namespace {

/// UTF-16 is turned in pieces of this many bytes.
constexpr std::size_t kPiece = 1 << 16;
/// Bytes of a file that are looked at for zeros.
constexpr std::size_t kZerosLookedFor = 4096;

bool IsTakenForUtf8(Utf8Kind kind, TextFile::Untold untold) {
  return kind == Utf8Kind::MultiByte || (kind == Utf8Kind::Ascii && untold == TextFile::Untold::Unicode);
}

/// UTF-16 when every second byte or nearly so is zero and hardly another one, as in the digits and marks of a subtitle;
/// else UTF-8. Text of bytes has no zeros.
int Utf16WithoutMark(std::string_view bytes) {
  const std::string_view head = bytes.substr(0, kZerosLookedFor);
  if (bytes.size() % 2 != 0 || bytes.size() < 4) return kCodePageUtf8;
  std::size_t zeros[2] = {0, 0};
  for (std::size_t i = 0; i < head.size(); ++i) zeros[i % 2] += head[i] == '\0' ? 1 : 0;
  const std::size_t units = head.size() / 2;
  if (zeros[1] * 4 > units && zeros[0] * 16 < units) return kCodePageUtf16Le;
  if (zeros[0] * 4 > units && zeros[1] * 16 < units) return kCodePageUtf16Be;
  return kCodePageUtf8;
}

}  // namespace

void LineBuffer::Grow(std::size_t wanted, std::size_t kept) {
  const std::size_t capacity = wanted + wanted / 2 + 256;
  auto units = std::make_unique_for_overwrite<char16_t[]>(capacity);
  std::copy_n(units_.get(), kept, units.get());
  units_ = std::move(units);
  capacity_ = capacity;
}

TextFile TextFile::Classic(std::string bytes, const Encodings& encodings) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  file.encoding_ = {encodings.SystemCodePage(), false};
  file.codec_ = encodings.SystemCodec();
  return file;
}

TextFile TextFile::Auto(std::string bytes, const Encodings& encodings, Untold untold) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  for (const int codePage : {kCodePageUtf8, kCodePageUtf16Le, kCodePageUtf16Be}) {
    if (!file.bytes_.starts_with(MarkOf(codePage))) continue;
    file.encoding_ = {codePage, true};
    file.start_ = MarkOf(codePage).size();
    break;
  }
  if (untold == Untold::Unicode && !file.encoding_.mark) file.encoding_.codePage = Utf16WithoutMark(file.bytes_);
  if (file.encoding_.codePage != kCodePageUtf8) {
    file.TurnIntoUtf8(file.encoding_.codePage == kCodePageUtf16Be);
  } else if (!file.encoding_.mark && !IsTakenForUtf8(ExamineUtf8(file.bytes_), untold)) {
    file.encoding_ = {encodings.SystemCodePage(), false};
    file.codec_ = encodings.SystemCodec();
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  file.at_ = file.start_;
  return file;
}

TextFile TextFile::As(std::string bytes, int codePage) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  const std::string_view mark = MarkOf(codePage);
  file.encoding_ = {codePage, !mark.empty() && file.bytes_.starts_with(mark)};
  if (file.encoding_.mark) file.start_ = mark.size();
  if (codePage == kCodePageUtf16Le || codePage == kCodePageUtf16Be) {
    file.TurnIntoUtf8(codePage == kCodePageUtf16Be);
  } else if (codePage != kCodePageUtf8) {
    file.codec_ = MakeCodec(codePage);
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  file.at_ = file.start_;
  return file;
}

TextFile TextFile::Kept(std::string bytes, const DocumentEncoding& encoding) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  file.encoding_ = encoding;
  if (encoding.codePage == kCodePageUtf16Le || encoding.codePage == kCodePageUtf16Be) {
    file.surrogates_ = Surrogates::AreKept;
  } else if (encoding.codePage != kCodePageUtf8) {
    file.codec_ = MakeCodec(encoding.codePage);
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  return file;
}

void TextFile::TurnIntoUtf8(bool bigEndian) {
  const auto codec = MakeCodec(bigEndian ? kCodePageUtf16Be : kCodePageUtf16Le);
  const std::string_view source = std::string_view(bytes_).substr(start_);
  std::string turned;
  Text piece(1 + DecodedRoom(kPiece), u'\0');
  char16_t held = 0;  // the first half of a pair that the pieces cut in two
  for (std::size_t at = 0; at < source.size(); at += kPiece) {
    std::size_t count = 0;
    if (held != 0) piece[count++] = held;
    count += codec->Decode(source.substr(at, kPiece), std::span(piece).subspan(count));
    held = 0;
    if (count != 0 && (piece[count - 1] & 0xFC00) == 0xD800) held = piece[--count];
    AppendUtf8(TextView(piece).substr(0, count), turned, Surrogates::AreKept);
  }
  if (held != 0) AppendUtf8({&held, 1}, turned, Surrogates::AreKept);
  bytes_ = std::move(turned);
  surrogates_ = Surrogates::AreKept;
  start_ = 0;
}

bool TextFile::NextLine(std::string_view& line) {
  if (at_ == bytes_.size()) return false;
  line = Rest().substr(0, FindLineEnd(Rest(), lineEnd_).length);
  SkipLine(line.size());
  return true;
}

bool TextFile::NextText(LineBuffer& buffer) {
  if (at_ == bytes_.size()) return false;
  const LineExtent extent = FindLineEnd(Rest(), lineEnd_);
  const std::string_view line = Rest().substr(0, std::min(extent.length, kLongestLine));
  const std::span<char16_t> room = buffer.RoomBehind(0, line.size());
  if (extent.ascii) WidenAscii(line, room);
  buffer.SetSize(extent.ascii ? line.size() : DecodeTo(line, room));
  SkipLine(extent.length);
  if (extent.length > kLongestLine) cutPlace_ = at_;
  return true;
}

std::size_t TextFile::LinesBefore(std::size_t place) {
  const std::size_t here = at_;
  std::size_t count = 0;
  std::string_view line;
  for (Rewind(); at_ < place && NextLine(line);) ++count;
  at_ = here;
  return count;
}

void TextFile::Decode(std::string_view line, LineBuffer& buffer) const {
  buffer.SetSize(DecodeTo(line, buffer.RoomBehind(0, line.size())));
}

Text TextFile::Decoded(std::string_view line) const {
  Text text(DecodedRoom(line.size()), u'\0');
  text.resize(DecodeTo(line, text));
  return text;
}

}  // namespace cuewright

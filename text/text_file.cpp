#include "text/text_file.h"

#include <algorithm>
#include <utility>

#include "text/utf8.h"

namespace cuewright {
namespace {

/// UTF-16 is turned in pieces of this many bytes.
constexpr std::size_t kPiece = 1 << 16;
/// Room for a line, in units; a longer one is decoded apart.
constexpr std::size_t kUsualLine = 512;

}  // namespace

void LineBuffer::Grow(std::size_t count, std::size_t keep) {
  const std::size_t capacity = count + count / 2 + 256;
  auto units = std::make_unique_for_overwrite<char16_t[]>(capacity);
  std::copy_n(units_.get(), keep, units.get());
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

TextFile TextFile::Auto(std::string bytes, const Encodings& encodings) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  for (const int codePage : {kCodePageUtf8, kCodePageUtf16Le, kCodePageUtf16Be}) {
    if (!file.bytes_.starts_with(MarkOf(codePage))) continue;
    file.encoding_ = {codePage, true};
    file.start_ = MarkOf(codePage).size();
    break;
  }
  if (file.encoding_.codePage != kCodePageUtf8) {
    file.TurnIntoUtf8(file.encoding_.codePage == kCodePageUtf16Be);
  } else if (file.encoding_.mark || ExamineUtf8(file.bytes_) == Utf8Kind::MultiByte) {
    file.codec_ = MakeCodec(kCodePageUtf8);
    file.utf8_ = true;
  } else {
    file.encoding_ = {encodings.SystemCodePage(), false};
    file.codec_ = encodings.SystemCodec();
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  file.at_ = file.start_;
  return file;
}

void TextFile::TurnIntoUtf8(bool bigEndian) {
  const auto codec = MakeCodec(bigEndian ? kCodePageUtf16Be : kCodePageUtf16Le);
  const std::string_view source = std::string_view(bytes_).substr(start_);
  std::string turned;
  Text piece(kPiece / 2 + 16, u'\0');
  char16_t held = 0;  // the first half of a pair that the pieces cut in two
  for (std::size_t at = 0; at < source.size(); at += kPiece) {
    char16_t* const units = piece.data();
    std::size_t count = 0;
    if (held != 0) units[count++] = held;
    count += codec->Decode(source.substr(at, kPiece), units + count);
    held = 0;
    if (count != 0 && (units[count - 1] & 0xFC00) == 0xD800) held = units[--count];
    AppendUtf8({units, count}, turned, true);
  }
  if (held != 0) AppendUtf8({&held, 1}, turned, true);
  bytes_ = std::move(turned);
  utf8_ = true;
  start_ = 0;
}

bool TextFile::NextLine(std::string_view& line) {
  if (at_ == bytes_.size()) return false;
  const std::string_view rest = Rest();
  bool ascii = true;
  line = rest.substr(0, FindLineEnd(rest, lineEnd_, ascii));
  SkipLine(line.size());
  return true;
}

bool TextFile::NextText(LineBuffer& buffer) {
  if (at_ == bytes_.size()) return false;
  const std::string_view rest = Rest();
  char16_t* room = buffer.Room(kUsualLine);
  const LineScan scan = WidenLine(rest, lineEnd_, room, buffer.Capacity() - 16);
  std::size_t units = scan.ascii;
  if (scan.ascii != scan.length) {
    const std::size_t length = std::min(scan.length, kLongestLine);
    room = buffer.Room(length, scan.ascii);
    units += DecodeTo(rest.substr(scan.ascii, length - scan.ascii), room + scan.ascii);
  }
  buffer.SetSize(units);
  SkipLine(scan.length);
  if (scan.ascii != scan.length && scan.length > kLongestLine) cutPlace_ = at_;
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
  char16_t* const room = buffer.Room(line.size());
  buffer.SetSize(DecodeTo(line, room));
}

Text TextFile::Decoded(std::string_view line) const {
  Text text(line.size() + 16, u'\0');
  text.resize(DecodeTo(line, text.data()));
  return text;
}

}  // namespace cuewright

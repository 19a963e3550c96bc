#include "text/text_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

/// UTF-16 and UTF-32 are turned into UTF-8 in pieces of this many bytes.
constexpr std::size_t kPiece = 1 << 16;
/// Bytes of a file that are looked at for zeros.
constexpr std::size_t kZerosLookedFor = 4096;

bool IsTakenForUtf8(Utf8Kind kind, TextFile::Untold untold) {
  return kind == Utf8Kind::MultiByte || (kind == Utf8Kind::Ascii && untold == TextFile::Untold::Unicode);
}

/// Counts the zeros of a file's head by their place in groups of `Width` bytes.
template <std::size_t Width>
std::array<std::size_t, Width> ZerosByPlace(std::string_view head) {
  std::array<std::size_t, Width> zeros{};
  for (std::size_t i = 0; i < head.size(); ++i) zeros[i % Width] += head[i] == '\0' ? 1 : 0;
  return zeros;
}

/// UTF-32 when of every four bytes the highest one is zero, the next nearly always, and the lowest hardly ever.
std::optional<int> Utf32WithoutMark(std::string_view bytes) {
  const std::string_view head = bytes.substr(0, kZerosLookedFor);
  if (bytes.size() % 4 != 0 || bytes.size() < 8) return {};
  const auto zeros = ZerosByPlace<4>(head);
  const std::size_t units = head.size() / 4;
  if (zeros[3] == units && zeros[2] * 16 > units * 15 && zeros[0] * 16 < units) return kCodePageUtf32Le;
  if (zeros[0] == units && zeros[1] * 16 > units * 15 && zeros[3] * 16 < units) return kCodePageUtf32Be;
  return {};
}

/// UTF-32 as above; UTF-16 when many of the high bytes are zero, as in the digits and marks of a subtitle, and hardly
/// any of the low ones; else UTF-8. A text of one byte a unit has no zeros.
int WideWithoutMark(std::string_view bytes) {
  if (const std::optional<int> wider = Utf32WithoutMark(bytes)) return *wider;
  const std::string_view head = bytes.substr(0, kZerosLookedFor);
  if (bytes.size() % 2 != 0 || bytes.size() < 4) return kCodePageUtf8;
  const auto zeros = ZerosByPlace<2>(head);
  const std::size_t units = head.size() / 2;
  if (zeros[1] * 4 > units && zeros[0] * 16 < units) return kCodePageUtf16Le;
  if (zeros[0] * 4 > units && zeros[1] * 16 < units) return kCodePageUtf16Be;
  return kCodePageUtf8;
}

/// True when some lines end at LF alone and the file has a CR as well.
bool HasBothEnds(std::string_view bytes) {
  if (bytes.find('\r') == std::string_view::npos) return false;
  for (std::size_t at = bytes.find('\n'); at != std::string_view::npos; at = bytes.find('\n', at + 1)) {
    if (at == 0 || bytes[at - 1] != '\r') return true;
  }
  return false;
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
  const bool unicode = untold == Untold::Unicode;
  // The mark of UTF-16 begins that of UTF-32.
  for (const int codePage : {kCodePageUtf32Le, kCodePageUtf32Be, kCodePageUtf8, kCodePageUtf16Le, kCodePageUtf16Be}) {
    if (MarkOf(codePage).size() == 4 && !unicode) continue;
    if (!file.bytes_.starts_with(MarkOf(codePage))) continue;
    file.encoding_ = {codePage, true};
    file.start_ = MarkOf(codePage).size();
    break;
  }
  if (unicode && !file.encoding_.mark) file.encoding_.codePage = WideWithoutMark(file.bytes_);
  if (file.encoding_.codePage != kCodePageUtf8) {
    file.TurnIntoUtf8();
  } else if (!file.encoding_.mark && !IsTakenForUtf8(ExamineUtf8(file.bytes_), untold)) {
    file.encoding_ = {encodings.SystemCodePage(), false};
    file.codec_ = encodings.SystemCodec();
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  if (unicode) file.endsMix_ = HasBothEnds(file.bytes_);
  file.at_ = file.start_;
  return file;
}

TextFile TextFile::As(std::string bytes, int codePage) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  const std::string_view mark = MarkOf(codePage);
  file.encoding_ = {codePage, !mark.empty() && file.bytes_.starts_with(mark)};
  if (file.encoding_.mark) file.start_ = mark.size();
  if (IsWideUnicode(codePage)) {
    file.TurnIntoUtf8();
  } else if (codePage != kCodePageUtf8) {
    file.codec_ = MakeCodec(codePage);
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  file.endsMix_ = HasBothEnds(file.bytes_);
  file.at_ = file.start_;
  return file;
}

TextFile TextFile::OfBytes(std::string bytes) {
  TextFile file = As(std::move(bytes), kCodePageLatin1);
  file.isText_ = false;
  return file;
}

TextFile TextFile::Kept(std::string bytes, const DocumentEncoding& encoding) {
  TextFile file;
  file.bytes_ = std::move(bytes);
  file.encoding_ = encoding;
  if (IsWideUnicode(encoding.codePage)) {
    file.surrogates_ = Surrogates::AreKept;
  } else if (encoding.codePage != kCodePageUtf8) {
    file.codec_ = MakeCodec(encoding.codePage);
  }
  if (file.bytes_.find('\r') == std::string::npos) file.lineEnd_ = '\n';
  file.doubledReturn_ = true;
  file.endsMix_ = HasBothEnds(file.bytes_);
  return file;
}

void TextFile::TurnIntoUtf8() {
  const auto codec = MakeCodec(encoding_.codePage);
  const std::string_view source = std::string_view(bytes_).substr(start_);
  std::string turned;
  Text piece(1 + DecodedRoom(kPiece), u'\0');
  char16_t held = 0;  // the first half of a pair that the pieces cut in two
  for (std::size_t at = 0; at < source.size(); at += kPiece) {
    std::size_t count = 0;
    if (held != 0) piece[count++] = held;
    count += codec->Decode(source.substr(at, kPiece), std::span(piece).subspan(count));
    held = 0;
    if (count != 0 && IsLead(piece[count - 1])) held = piece[--count];
    AppendUtf8(TextView(piece).substr(0, count), turned, Surrogates::AreKept);
  }
  if (held != 0) AppendUtf8({&held, 1}, turned, Surrogates::AreKept);
  bytes_ = std::move(turned);
  surrogates_ = Surrogates::AreKept;
  start_ = 0;
}

LineExtent TextFile::ExtentOfLine() const {
  if (!endsMix_) return FindLineEnd(Rest(), lineEnd_);
  return {std::min(Rest().find_first_of("\r\n"), Rest().size()), false};
}

bool TextFile::NextLine(std::string_view& line) {
  if (at_ == bytes_.size()) return false;
  line = Rest().substr(0, ExtentOfLine().length);
  SkipLine(line.size());
  return true;
}

bool TextFile::NextText(LineBuffer& buffer) {
  if (at_ == bytes_.size()) return false;
  const LineExtent extent = ExtentOfLine();
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

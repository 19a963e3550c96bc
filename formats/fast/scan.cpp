#include "formats/fast/scan.h"

#include <algorithm>

#include "text/simd.h"
#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

bool HoldsBeforeBlank(std::string_view line, char letter) {
  if (letter == '\0') return false;
  for (std::size_t blank = line.find(' '); blank != std::string_view::npos; blank = line.find(' ', blank + 1)) {
    if (blank != 0 && (line[blank - 1] | 0x20) == letter) return true;
  }
  return false;
}

/// Looks at a line byte by byte, without widening it; the line is known not to end before `from`.
LineScan ScanByByte(std::string_view bytes, std::size_t from, char end, const LineMarks& marks) {
  LineScan scan;
  scan.length = from + FindLineEnd(bytes.substr(from), end).length;
  const std::string_view line = bytes.substr(0, scan.length);
  const auto holds = [&](char mark) { return line.find(mark) != std::string_view::npos; };
  scan.angled = holds('<');
  scan.markedA = holds(marks.a) || HoldsBeforeBlank(line, marks.beforeBlank);
  scan.markedB = holds(marks.b);
  return scan;
}

#if defined(__SSE2__)

/// The bytes of a block that are one of the characters looked for.
struct MarkHits {
  Block angles = NoBits();
  Block a = NoBits();
  Block b = NoBits();

  void Add(const MarkHits& more) {
    angles = _mm_or_si128(angles, more.angles);
    a = _mm_or_si128(a, more.a);
    b = _mm_or_si128(b, more.b);
  }
};

/// Compares blocks with the characters looked for.
class MarkFinder {
 public:
  explicit MarkFinder(const LineMarks& marks)
      : a_(AllBytes(marks.a)), b_(AllBytes(marks.b)), letter_(AllBytes(marks.beforeBlank)), pairs_(marks.beforeBlank) {}

  /// The marks in a block, which is the beginning of `rest`.
  MarkHits In(Block block, std::string_view rest) const {
    MarkHits hits{_mm_cmpeq_epi8(block, angle_), _mm_cmpeq_epi8(block, a_), _mm_cmpeq_epi8(block, b_)};
    if (pairs_ == '\0') return hits;
    const Block letters = _mm_cmpeq_epi8(_mm_or_si128(block, AllBytes(0x20)), letter_);
    // The second half of the pair may be the byte behind the block; where there is none, the letter alone counts.
    const bool whole = rest.size() > sizeof(Block);
    const Block blanks = whole ? _mm_cmpeq_epi8(LoadBlock(rest.data() + 1), AllBytes(' ')) : letters;
    hits.a = _mm_or_si128(hits.a, _mm_and_si128(letters, blanks));
    return hits;
  }

 private:
  Block angle_ = AllBytes('<');
  Block a_;
  Block b_;
  Block letter_;
  char pairs_;
};

#endif

}  // namespace

LineScan WidenLine(std::string_view bytes, char end, std::span<char16_t> out, LineMarks marks) {
  std::size_t at = 0;
#if defined(__SSE2__)
  const std::size_t limit = std::min(bytes.size(), out.size());
  const Block wanted = AllBytes(end);
  const MarkFinder finder(marks);
  MarkHits before;
  std::size_t ascii = bytes.size();
  for (; at + sizeof(Block) <= limit; at += sizeof(Block)) {
    const Block block = LoadBlock(bytes.data() + at);
    WidenBlock(block, out.data() + at);
    const MarkHits here = finder.In(block, bytes.substr(at));
    const unsigned high = BitsOf(block);
    if (high != 0) ascii = std::min(ascii, at + FirstBit(high));
    const unsigned ends = BitsOf(_mm_cmpeq_epi8(block, wanted));
    if (ends == 0) {
      before.Add(here);
      continue;
    }
    // Of this block only what lies in front of the line's end counts.
    const auto held = [&](Block blocks, Block last) {
      return BitsOf(blocks) != 0 || (BitsOf(last) & BitsBelowFirst(ends)) != 0;
    };
    const std::size_t length = at + FirstBit(ends);
    return {length, std::min(ascii, length), held(before.angles, here.angles), held(before.a, here.a),
            held(before.b, here.b)};
  }
#endif
  return ScanByByte(bytes, at, end, marks);
}

bool FindMarks(std::string_view bytes, char mark, char end, std::span<std::size_t> places) {
  std::size_t found = 0;
  std::size_t at = 0;
#if defined(__SSE2__)
  for (; at + sizeof(Block) <= bytes.size(); at += sizeof(Block)) {
    const Block block = LoadBlock(bytes.data() + at);
    unsigned hits = BitsOf(_mm_cmpeq_epi8(block, AllBytes(mark)));
    const unsigned ends = BitsOf(_mm_cmpeq_epi8(block, AllBytes(end)));
    if (ends != 0) hits &= BitsBelowFirst(ends);
    for (; hits != 0 && found != places.size(); hits &= hits - 1) places[found++] = at + FirstBit(hits);
    if (found == places.size()) return true;
    if (ends != 0) return false;
  }
#endif
  for (; at < bytes.size() && found != places.size() && bytes[at] != end; ++at) {
    if (bytes[at] == mark) places[found++] = at;
  }
  return found == places.size();
}

namespace {

/// Encodes the character beyond ASCII at `at`, with those behind it where it has more than two bytes, and moves both
/// places behind it.
void PutBeyondAscii(const char16_t*& at, const char16_t* end, char*& out) {
  if (*at < 0x800) {
    *out++ = LowByte(0xC0 | (*at >> 6));
    *out++ = LowByte(0x80 | (*at++ & 0x3F));
    return;
  }
  const char16_t* const start = at;
  while (at != end && *at >= 0x800) ++at;
  const TextView others(start, at);
  out += EncodeUtf8(others, {out, EncodedRoom(others.size())});
}

}  // namespace

EncodedPart EncodeUtf8Until(TextView text, const Stops& stops, std::span<char> room) {
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  char* out = room.data();
#if defined(__SSE2__)
  const Block stopA = AllUnits(stops.a);
  const Block stopB = AllUnits(stops.b);
  const Block stopC = AllUnits(stops.c);
#endif
  for (;;) {
#if defined(__SSE2__)
    while (end - at >= 8) {
      const Block units = LoadBlock(at);
      // All eight bytes may be written: `EncodedRoom` has three for each unit.
      NarrowBlock(units, out);
      const Block found = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi16(units, stopA), _mm_cmpeq_epi16(units, stopB)),
                                       _mm_cmpeq_epi16(units, stopC));
      const unsigned others = BitsOf(_mm_andnot_si128(found, AsciiUnits(units))) ^ 0xFFFFu;
      const std::size_t plain = others != 0 ? FirstBit(others) / 2 : 8;
      at += plain, out += plain;
      if (others != 0) break;
    }
#endif
    for (; at != end && *at < 0x80 && !stops.Has(*at); ++at) *out++ = LowByte(*at);
    if (at == end || *at < 0x80) break;
    PutBeyondAscii(at, end, out);
  }
  const std::size_t read = at - text.data();
  const std::size_t written = out - room.data();
  return {read, written};
}

}  // namespace cuewright

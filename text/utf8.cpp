#include "text/utf8.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "text/simd.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr char16_t kEscapeBase = 0xDC00;

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

const unsigned char* FirstByte(std::string_view bytes) { return reinterpret_cast<const unsigned char*>(bytes.data()); }

/// The first byte above 127 at or behind `at`; the end when there is none.
const unsigned char* SkipAscii(const unsigned char* at, const unsigned char* end) {
  while (end - at >= 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, 8);
    word &= 0x8080808080808080ULL;
    if (word != 0) {
      if constexpr (std::endian::native == std::endian::little) return at + std::countr_zero(word) / 8;
      break;
    }
    at += 8;
  }
  while (at != end && *at < 0x80) ++at;
  return at;
}

/// Length of the sequence of two to four bytes at `at`, 0 when there is no valid one.
std::size_t SequenceLength(const unsigned char* at, const unsigned char* end, Surrogates surrogates) {
  const std::size_t left = end - at;
  const unsigned char lead = *at;
  if (lead < 0xC2 || left < 2 || !IsContinuation(at[1])) return 0;
  if (lead < 0xE0) return 2;
  if (left < 3 || !IsContinuation(at[2])) return 0;
  if (lead < 0xF0) {
    const bool tooLong = lead == 0xE0 && at[1] < 0xA0;
    const bool surrogate = lead == 0xED && at[1] >= 0xA0;
    return tooLong || (surrogate && surrogates == Surrogates::AreInvalid) ? 0 : 3;
  }
  if (lead > 0xF4 || left < 4 || !IsContinuation(at[3])) return 0;
  if ((lead == 0xF0 && at[1] < 0x90) || (lead == 0xF4 && at[1] > 0x8F)) return 0;
  return 4;
}

char16_t* PutSequence(const unsigned char* at, std::size_t length, char16_t* out) {
  if (length == 2) {
    *out++ = LowUnit(((at[0] & 0x1Fu) << 6) | (at[1] & 0x3Fu));
  } else if (length == 3) {
    *out++ = LowUnit(((at[0] & 0x0Fu) << 12) | ((at[1] & 0x3Fu) << 6) | (at[2] & 0x3Fu));
  } else {
    const char32_t c = ((at[0] & 0x07u) << 18) | ((at[1] & 0x3Fu) << 12) | ((at[2] & 0x3Fu) << 6) | (at[3] & 0x3Fu);
    *out++ = LeadOf(c);
    *out++ = TrailOf(c);
  }
  return out;
}

/// Widens the ASCII run at `at` and moves both places behind it. `slack`: 16 bytes behind the end may be read.
void WidenRun(const unsigned char*& at, const unsigned char* end, char16_t*& out, bool slack) {
#if defined(__SSE2__)
  while (slack ? at < end : end - at >= 16) {
    const Block bytes = LoadBlock(at);
    WidenBlock(bytes, out);
    const std::ptrdiff_t run = FirstBit(BitsOf(bytes) | 0x10000u);
    const std::ptrdiff_t count = std::min(run, end - at);
    at += count, out += count;
    if (count < 16) return;
  }
#endif
  while (at != end && *at < 0x80) *out++ = *at++;
}

/// Narrows the ASCII run at `at` and moves both places behind it.
void NarrowRun(const char16_t*& at, const char16_t* end, char*& out) {
#if defined(__SSE2__)
  const char16_t* const start = at;
  while (end - at >= 8) {
    const Block units = LoadBlock(at);
    // Writing eight bytes is safe: a unit has room for three.
    NarrowBlock(units, out);
    const unsigned others = BitsOf(AsciiUnits(units)) ^ 0xFFFFu;
    const std::size_t count = others != 0 ? FirstBit(others) / 2 : 8;
    at += count, out += count;
    if (others != 0) return;
  }
  if (at != end && end - start >= 8) {
    // The last few are done together with those in front of them, once more.
    const Block units = LoadBlock(end - 8);
    if (BitsOf(AsciiUnits(units)) == 0xFFFF) {
      out += end - at;
      at = end;
      NarrowBlock(units, out - 8);
      return;
    }
  }
#endif
  while (at != end && *at < 0x80) *out++ = LowByte(*at++);
}

/// Puts the character of more than one byte at `at` and moves both places behind it.
void PutUnit(const char16_t*& at, const char16_t* end, char*& out, Surrogates surrogates) {
  const auto put = [&](std::uint32_t value) { *out++ = LowByte(value); };
  const auto putThree = [&](std::uint32_t c) {
    put(0xE0 | (c >> 12)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  };
  const char16_t unit = *at++;
  if (unit < 0x800) {
    put(0xC0u | (unit >> 6)), put(0x80u | (unit & 0x3Fu));
  } else if (IsLead(unit) && at != end && IsTrail(*at)) {
    const char32_t c = CharacterOfPair(unit, *at++);
    put(0xF0 | (c >> 18)), put(0x80 | ((c >> 12) & 0x3F)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  } else if (surrogates == Surrogates::AreKept || (!IsLead(unit) && !IsTrail(unit))) {
    putThree(unit);
  } else {
    put(unit >= 0xDC80 && unit <= 0xDCFF ? unit - kEscapeBase : '?');
  }
}

#if defined(__SSE2__)

/// What 64 bytes are, as a bit for each of them.
struct BlockMasks {
  std::uint64_t high = 0;          // above 127
  std::uint64_t continuation = 0;  // 80 to BF
  std::uint64_t three = 0;         // leads of three bytes
  bool doubtful = false;           // a byte that leads four, that only some second bytes may follow, or never valid
};

BlockMasks MasksOf(const unsigned char* at) {
  BlockMasks masks;
  Block doubtful = NoBits();
  for (int part = 0; part < 4; ++part) {
    const Block bytes = LoadBlock(at + 16 * part);
    const auto bits = [&](Block mask) { return std::uint64_t{BitsOf(mask)} << (16 * part); };
    const auto equal = [&](int byte) { return _mm_cmpeq_epi8(bytes, AllBytes(byte)); };
    // As signed numbers 80 to BF are -128 to -65, leads rise from -64, and ASCII is not negative.
    const Block negative = _mm_cmplt_epi8(bytes, NoBits());
    const Block three = _mm_and_si128(negative, _mm_cmpgt_epi8(bytes, AllBytes(0xDF)));
    const Block four = _mm_and_si128(negative, _mm_cmpgt_epi8(bytes, AllBytes(0xEF)));
    const Block never = _mm_or_si128(equal(0xC0), equal(0xC1));
    doubtful = _mm_or_si128(_mm_or_si128(doubtful, four), _mm_or_si128(never, _mm_or_si128(equal(0xE0), equal(0xED))));
    masks.high |= bits(bytes);
    masks.continuation |= bits(_mm_cmplt_epi8(bytes, AllBytes(-64)));
    masks.three |= bits(three);
  }
  masks.doubtful = BitsOf(doubtful) != 0;
  return masks;
}

/// The place behind all blocks that these masks prove valid; it is never inside a sequence.
const unsigned char* SkipCheckedBlocks(const unsigned char* at, const unsigned char* end) {
  while (end - at >= 64) {
    const BlockMasks masks = MasksOf(at);
    if (masks.doubtful) return at;
    // A sequence that the block's end may cut, of at most three bytes, is left for the next block.
    int length = 64;
    while (length > 61 && (masks.high >> (length - 1) & 1) != 0) {
      --length;
      if ((masks.continuation >> length & 1) == 0) break;
    }
    const std::uint64_t looked = length == 64 ? ~0ULL : (1ULL << length) - 1;
    const std::uint64_t leads = masks.high & ~masks.continuation & looked;
    const std::uint64_t wanted = leads << 1 | (masks.three & looked) << 2;
    if ((masks.continuation & looked) != wanted) return at;
    at += length;
  }
  return at;
}

#else

const unsigned char* SkipCheckedBlocks(const unsigned char* at, const unsigned char*) { return at; }

#endif

}  // namespace

Utf8Kind ExamineUtf8(std::string_view bytes) {
  const unsigned char* at = FirstByte(bytes);
  const unsigned char* const end = at + bytes.size();
  Utf8Kind kind = Utf8Kind::Ascii;
  for (;;) {
    at = SkipAscii(at, end);
    if (at == end) return kind;
    kind = Utf8Kind::MultiByte;
    at = SkipCheckedBlocks(at, end);
    while (at != end && *at >= 0x80) {
      const std::size_t length = SequenceLength(at, end, Surrogates::AreInvalid);
      if (length == 0) return Utf8Kind::Invalid;
      at += length;
    }
  }
}

bool IsAscii(std::string_view bytes) {
  const unsigned char* const end = FirstByte(bytes) + bytes.size();
  return SkipAscii(FirstByte(bytes), end) == end;
}

LineExtent FindLineEnd(std::string_view bytes, char end) {
  LineExtent found;
#if defined(__SSE2__)
  for (; found.length + sizeof(Block) <= bytes.size(); found.length += sizeof(Block)) {
    const Block block = LoadBlock(bytes.data() + found.length);
    const unsigned hits = BitsOf(_mm_cmpeq_epi8(block, AllBytes(end)));
    const unsigned high = BitsOf(block);
    if (hits != 0) return {found.length + FirstBit(hits), found.ascii && (high & BitsBelowFirst(hits)) == 0};
    found.ascii = found.ascii && high == 0;
  }
#endif
  for (; found.length < bytes.size() && bytes[found.length] != end; ++found.length) {
    found.ascii = found.ascii && ByteOf(bytes[found.length]) < 0x80;
  }
  return found;
}

std::size_t DecodeUtf8(std::string_view bytes, std::span<char16_t> room, Surrogates surrogates, bool slack) {
  char16_t* out = room.data();
  const unsigned char* at = FirstByte(bytes);
  const unsigned char* const end = at + bytes.size();
  for (;;) {
    WidenRun(at, end, out, slack);
    while (at != end && *at >= 0x80) {
      if (*at >= 0xC2 && *at < 0xE0 && end - at >= 2 && IsContinuation(at[1])) {
        out = PutSequence(at, 2, out);
        at += 2;
        continue;
      }
      const std::size_t length = SequenceLength(at, end, surrogates);
      if (length == 0) {
        *out++ = LowUnit(kEscapeBase + *at++);
      } else {
        out = PutSequence(at, length, out);
        at += length;
      }
    }
    if (at == end) return out - room.data();
  }
}

void WidenAscii(std::string_view bytes, std::span<char16_t> room) {
  const unsigned char* at = FirstByte(bytes);
  char16_t* out = room.data();
  WidenRun(at, at + bytes.size(), out, false);
}

std::size_t EncodeUtf8(TextView text, std::span<char> room, Surrogates surrogates) {
  char* out = room.data();
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  while (at != end) {
    NarrowRun(at, end, out);
    while (at != end && *at >= 0x80) PutUnit(at, end, out, surrogates);
  }
  return out - room.data();
}

void AppendUtf8(TextView text, std::string& out, Surrogates surrogates) {
  const std::size_t old = out.size();
  out.resize(old + EncodedRoom(text.size()));
  out.resize(old + EncodeUtf8(text, std::span(out).subspan(old), surrogates));
}

}  // namespace cuewright

#include "text/utf8.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace cuewright {
namespace {

constexpr char16_t kEscapeBase = 0xDC00;

bool IsLead(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsTrail(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }
bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

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
std::size_t SequenceLength(const unsigned char* at, const unsigned char* end, bool surrogates) {
  const auto left = static_cast<std::size_t>(end - at);
  const unsigned char lead = *at;
  if (lead < 0xC2 || left < 2 || !IsContinuation(at[1])) return 0;
  if (lead < 0xE0) return 2;
  if (left < 3 || !IsContinuation(at[2])) return 0;
  if (lead < 0xF0) {
    const bool tooLong = lead == 0xE0 && at[1] < 0xA0;
    const bool surrogate = lead == 0xED && at[1] >= 0xA0;
    return tooLong || (surrogate && !surrogates) ? 0 : 3;
  }
  if (lead > 0xF4 || left < 4 || !IsContinuation(at[3])) return 0;
  if ((lead == 0xF0 && at[1] < 0x90) || (lead == 0xF4 && at[1] > 0x8F)) return 0;
  return 4;
}

char16_t* PutSequence(const unsigned char* at, std::size_t length, char16_t* out) {
  if (length == 2) {
    *out++ = static_cast<char16_t>(((at[0] & 0x1Fu) << 6) | (at[1] & 0x3Fu));
  } else if (length == 3) {
    *out++ = static_cast<char16_t>(((at[0] & 0x0Fu) << 12) | ((at[1] & 0x3Fu) << 6) | (at[2] & 0x3Fu));
  } else {
    const std::uint32_t c =
        ((at[0] & 0x07u) << 18) | ((at[1] & 0x3Fu) << 12) | ((at[2] & 0x3Fu) << 6) | (at[3] & 0x3Fu);
    *out++ = static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
    *out++ = static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
  }
  return out;
}

/// Widens the ASCII run at `at` and moves both places behind it. `slack`: 16 bytes behind the end may be read.
void WidenRun(const unsigned char*& at, const unsigned char* end, char16_t*& out, bool slack) {
#if defined(__SSE2__)
  while (slack ? at < end : end - at >= 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm_unpackhi_epi8(bytes, zero));
    const auto high = static_cast<unsigned>(_mm_movemask_epi8(bytes)) | 0x10000u;
    const std::ptrdiff_t count = std::min<std::ptrdiff_t>(std::countr_zero(high), end - at);
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
  const __m128i beyond = _mm_set1_epi16(static_cast<short>(0xFF80));
  while (end - at >= 8) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i plain = _mm_cmpeq_epi16(_mm_and_si128(units, beyond), _mm_setzero_si128());
    // Writing eight bytes is safe: a unit has room for three.
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(units, units));
    const auto others = ~static_cast<unsigned>(_mm_movemask_epi8(plain)) & 0xFFFFu;
    const int count = others != 0 ? std::countr_zero(others) / 2 : 8;
    at += count, out += count;
    if (others != 0) return;
  }
  if (at != end && end - start >= 8) {
    // The last few are done together with those in front of them, once more.
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(end - 8));
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(units, beyond), _mm_setzero_si128())) == 0xFFFF) {
      out += end - at;
      at = end;
      _mm_storel_epi64(reinterpret_cast<__m128i*>(out - 8), _mm_packus_epi16(units, units));
      return;
    }
  }
#endif
  while (at != end && *at < 0x80) *out++ = static_cast<char>(*at++);
}

/// Puts the character of more than one byte at `at` and moves both places behind it.
void PutUnit(const char16_t*& at, const char16_t* end, char*& out, bool surrogates) {
  const auto put = [&](std::uint32_t value) { *out++ = static_cast<char>(value); };
  const auto putThree = [&](std::uint32_t c) {
    put(0xE0 | (c >> 12)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  };
  const char16_t unit = *at++;
  if (unit < 0x800) {
    put(0xC0u | (unit >> 6)), put(0x80u | (unit & 0x3Fu));
  } else if (IsLead(unit) && at != end && IsTrail(*at)) {
    const std::uint32_t c = 0x10000u + ((unit & 0x3FFu) << 10) + (*at++ & 0x3FFu);
    put(0xF0 | (c >> 18)), put(0x80 | ((c >> 12) & 0x3F)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  } else if (surrogates || (!IsLead(unit) && !IsTrail(unit))) {
    putThree(unit);
  } else {
    put(unit >= 0xDC80 && unit <= 0xDCFF ? static_cast<std::uint32_t>(unit - kEscapeBase) : U'?');
  }
}

#if defined(__SSE2__)

/// A bit a byte for 64 bytes: which are continuations, and which lead how long a sequence.
struct BlockMasks {
  std::uint64_t high = 0;          // above 127
  std::uint64_t continuation = 0;  // 80 to BF
  std::uint64_t three = 0;         // leads of three bytes
  bool doubtful = false;           // some byte leads four, or is valid with some second bytes only, or never
};

BlockMasks MasksOf(const unsigned char* at) {
  BlockMasks masks;
  __m128i doubtful = _mm_setzero_si128();
  for (int part = 0; part < 4; ++part) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + 16 * part));
    const auto bits = [&](__m128i mask) {
      return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(mask))) << (16 * part);
    };
    const auto equal = [&](int byte) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(byte))); };
    // As signed numbers 80 to BF are -128 to -65, leads rise from -64, and ASCII is not negative.
    const __m128i negative = _mm_cmplt_epi8(bytes, _mm_setzero_si128());
    const __m128i three = _mm_and_si128(negative, _mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xDF))));
    const __m128i four = _mm_and_si128(negative, _mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(0xEF))));
    const __m128i never = _mm_or_si128(equal(0xC0), equal(0xC1));
    doubtful = _mm_or_si128(_mm_or_si128(doubtful, four), _mm_or_si128(never, _mm_or_si128(equal(0xE0), equal(0xED))));
    masks.high |= bits(bytes);
    masks.continuation |= bits(_mm_cmplt_epi8(bytes, _mm_set1_epi8(-64)));
    masks.three |= bits(three);
  }
  masks.doubtful = _mm_movemask_epi8(doubtful) != 0;
  return masks;
}

/// The place behind all blocks that are valid beyond doubt; it is never inside a sequence.
const unsigned char* SkipCheckedBlocks(const unsigned char* at, const unsigned char* end) {
  while (end - at >= 64) {
    const BlockMasks masks = MasksOf(at);
    if (masks.doubtful) return at;
    // A sequence that the block's end may cut is left for the next one; it has at most three bytes.
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
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const unsigned char* const end = at + bytes.size();
  Utf8Kind kind = Utf8Kind::Ascii;
  for (;;) {
    at = SkipAscii(at, end);
    if (at == end) return kind;
    kind = Utf8Kind::MultiByte;
    at = SkipCheckedBlocks(at, end);
    while (at != end && *at >= 0x80) {
      const std::size_t length = SequenceLength(at, end, false);
      if (length == 0) return Utf8Kind::Invalid;
      at += length;
    }
  }
}

bool IsAscii(std::string_view bytes) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  return SkipAscii(at, at + bytes.size()) == at + bytes.size();
}

std::size_t DecodeUtf8(std::string_view bytes, char16_t* out, bool surrogates, bool slack) {
  const char16_t* const start = out;
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
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
        *out++ = static_cast<char16_t>(kEscapeBase + *at++);
      } else {
        out = PutSequence(at, length, out);
        at += length;
      }
    }
    if (at == end) return static_cast<std::size_t>(out - start);
  }
}

std::size_t FindLineEnd(std::string_view bytes, char end, bool& ascii) {
  std::size_t at = 0;
#if defined(__SSE2__)
  unsigned high = 0;
  const __m128i wanted = _mm_set1_epi8(end);
  for (; at + 16 <= bytes.size(); at += 16) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + at));
    const auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    const auto above = static_cast<unsigned>(_mm_movemask_epi8(block));
    if (hits != 0) {
      const unsigned inFront = (hits & (0u - hits)) - 1;
      ascii = ((above & inFront) | high) == 0;
      return at + static_cast<std::size_t>(std::countr_zero(hits));
    }
    high |= above;
  }
  ascii = high == 0;
#else
  ascii = true;
#endif
  for (; at < bytes.size() && bytes[at] != end; ++at) ascii = ascii && static_cast<unsigned char>(bytes[at]) < 0x80;
  return at;
}

namespace {

bool HoldsBeforeBlank(std::string_view line, char letter) {
  if (letter == '\0') return false;
  for (std::size_t blank = line.find(' '); blank != std::string_view::npos; blank = line.find(' ', blank + 1)) {
    if (blank != 0 && (line[blank - 1] | 0x20) == letter) return true;
  }
  return false;
}

}  // namespace

bool FindMarks(std::string_view bytes, char mark, char end, std::span<std::size_t> places) {
  std::size_t found = 0;
  std::size_t at = 0;
#if defined(__SSE2__)
  const __m128i wanted = _mm_set1_epi8(mark);
  const __m128i stop = _mm_set1_epi8(end);
  for (; at + 16 <= bytes.size(); at += 16) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + at));
    auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    const auto stops = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, stop)));
    if (stops != 0) hits &= (stops & (0u - stops)) - 1;
    for (; hits != 0 && found != places.size(); hits &= hits - 1) {
      places[found++] = at + static_cast<std::size_t>(std::countr_zero(hits));
    }
    if (found == places.size()) return true;
    if (stops != 0) return false;
  }
#endif
  for (; at < bytes.size() && found != places.size() && bytes[at] != end; ++at) {
    if (bytes[at] == mark) places[found++] = at;
  }
  return found == places.size();
}

LineScan WidenLine(std::string_view bytes, char end, char16_t* out, std::size_t room, LineMarks marks) {
  LineScan scan;
  std::size_t at = 0;
#if defined(__SSE2__)
  const __m128i wanted = _mm_set1_epi8(end);
  const __m128i angle = _mm_set1_epi8('<');
  const __m128i zero = _mm_setzero_si128();
  const std::size_t limit = std::min(bytes.size(), room);
  const __m128i markA = _mm_set1_epi8(marks.a);
  const __m128i markB = _mm_set1_epi8(marks.b);
  const __m128i letter = _mm_set1_epi8(marks.beforeBlank);
  __m128i angles = zero;
  __m128i hitsA = zero;
  __m128i hitsB = zero;
  std::size_t ascii = bytes.size();
  for (; at + 16 <= limit; at += 16) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + at));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + at), _mm_unpacklo_epi8(block, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + at + 8), _mm_unpackhi_epi8(block, zero));
    const __m128i anglesHere = _mm_cmpeq_epi8(block, angle);
    __m128i hitsAHere = _mm_cmpeq_epi8(block, markA);
    const __m128i hitsBHere = _mm_cmpeq_epi8(block, markB);
    if (marks.beforeBlank != '\0') {
      // The byte behind the block belongs to the pair; without one the letter alone counts.
      const bool whole = at + 17 <= bytes.size();
      const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + at + (whole ? 1 : 0)));
      const __m128i blanks = whole ? _mm_cmpeq_epi8(next, _mm_set1_epi8(' ')) : _mm_cmpeq_epi8(zero, zero);
      const __m128i letters = _mm_cmpeq_epi8(_mm_or_si128(block, _mm_set1_epi8(0x20)), letter);
      hitsAHere = _mm_or_si128(hitsAHere, _mm_and_si128(letters, blanks));
    }
    const auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    const auto high = static_cast<unsigned>(_mm_movemask_epi8(block)) | 0x10000u;
    ascii = high == 0x10000u ? ascii : std::min(ascii, at + static_cast<std::size_t>(std::countr_zero(high)));
    if (hits == 0) {
      angles = _mm_or_si128(angles, anglesHere);
      hitsA = _mm_or_si128(hitsA, hitsAHere);
      hitsB = _mm_or_si128(hitsB, hitsBHere);
      continue;
    }
    // Of this block only what lies in front of the line's end counts.
    const unsigned inFront = (hits & (0u - hits)) - 1;
    const auto held = [&](__m128i before, __m128i here) {
      return _mm_movemask_epi8(before) != 0 || (static_cast<unsigned>(_mm_movemask_epi8(here)) & inFront) != 0;
    };
    scan.length = at + static_cast<std::size_t>(std::countr_zero(hits));
    scan.ascii = std::min(ascii, scan.length);
    scan.angled = held(angles, anglesHere);
    scan.markedA = held(hitsA, hitsAHere);
    scan.markedB = held(hitsB, hitsBHere);
    return scan;
  }
#endif
  // Too near the end of the bytes or of the room for whole blocks.
  bool plain = true;
  scan.length = at + FindLineEnd(bytes.substr(at), end, plain);
  const std::string_view line = bytes.substr(0, scan.length);
  scan.angled = line.find('<') != std::string_view::npos;
  scan.markedA = line.find(marks.a) != std::string_view::npos || HoldsBeforeBlank(line, marks.beforeBlank);
  scan.markedB = line.find(marks.b) != std::string_view::npos;
  return scan;
}

void WidenAscii(std::string_view bytes, char16_t* out) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  WidenRun(at, at + bytes.size(), out, false);
}

std::size_t EncodeUtf8(TextView text, char* out, bool surrogates) {
  char* to = out;
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  while (at != end) {
    NarrowRun(at, end, to);
    while (at != end && *at >= 0x80) PutUnit(at, end, to, surrogates);
  }
  return static_cast<std::size_t>(to - out);
}

EncodedPart EncodeUtf8Until(TextView text, char16_t a, char16_t b, char16_t c, char* out) {
  char* to = out;
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
#if defined(__SSE2__)
  const auto all = [](char16_t unit) { return _mm_set1_epi16(static_cast<short>(unit)); };
  const __m128i stopA = all(a);
  const __m128i stopB = all(b);
  const __m128i stopC = all(c);
  const __m128i beyond = all(0xFF80);
  const auto plainOf = [&](__m128i units) {
    const __m128i stops = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi16(units, stopA), _mm_cmpeq_epi16(units, stopB)),
                                       _mm_cmpeq_epi16(units, stopC));
    return _mm_andnot_si128(stops, _mm_cmpeq_epi16(_mm_and_si128(units, beyond), _mm_setzero_si128()));
  };
#endif
  while (at != end) {
#if defined(__SSE2__)
    while (end - at >= 8) {
      const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
      // Writing eight bytes is safe: a unit has room for three.
      _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(units, units));
      const auto others = ~static_cast<unsigned>(_mm_movemask_epi8(plainOf(units))) & 0xFFFFu;
      const int count = others != 0 ? std::countr_zero(others) / 2 : 8;
      at += count, to += count;
      if (others == 0) continue;
      if (*at < 0x80) return {static_cast<std::size_t>(at - text.data()), static_cast<std::size_t>(to - out)};
      PutUnit(at, end, to, false);
    }
#endif
    for (; at != end && *at < 0x80; ++at) {
      if (*at == a || *at == b || *at == c) {
        return {static_cast<std::size_t>(at - text.data()), static_cast<std::size_t>(to - out)};
      }
      *to++ = static_cast<char>(*at);
    }
    while (at != end && *at >= 0x80) PutUnit(at, end, to, false);
  }
  return {text.size(), static_cast<std::size_t>(to - out)};
}

void AppendUtf8(TextView text, std::string& out, bool surrogates) {
  const std::size_t old = out.size();
  out.resize(old + 3 * text.size() + 8);
  out.resize(old + EncodeUtf8(text, out.data() + old, surrogates));
}

}  // namespace cuewright

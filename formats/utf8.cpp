#include "formats/utf8.h"

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

/// Widens the ASCII run at `at` and moves both places behind it.
void WidenRun(const unsigned char*& at, const unsigned char* end, char16_t*& out) {
#if defined(__SSE2__)
  while (end - at >= 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm_unpackhi_epi8(bytes, zero));
    const auto high = static_cast<unsigned>(_mm_movemask_epi8(bytes));
    if (high != 0) {
      const int count = std::countr_zero(high);
      at += count, out += count;
      return;
    }
    at += 16, out += 16;
  }
  if (end - at >= 8) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    const auto high = static_cast<unsigned>(_mm_movemask_epi8(bytes)) & 0xFFu;
    const int count = high != 0 ? std::countr_zero(high) : 8;
    at += count, out += count;
    if (high != 0) return;
  }
#endif
  while (at != end && *at < 0x80) *out++ = *at++;
}

}  // namespace

Utf8Kind ExamineUtf8(std::string_view bytes) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const unsigned char* const end = at + bytes.size();
  Utf8Kind kind = Utf8Kind::Ascii;
  for (;;) {
    at = SkipAscii(at, end);
    if (at == end) return kind;
    kind = Utf8Kind::MultiByte;
    do {
      const std::size_t length = SequenceLength(at, end, false);
      if (length == 0) return Utf8Kind::Invalid;
      at += length;
    } while (at != end && *at >= 0x80);
  }
}

bool IsAscii(std::string_view bytes) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  return SkipAscii(at, at + bytes.size()) == at + bytes.size();
}

std::size_t DecodeUtf8(std::string_view bytes, char16_t* out, bool surrogates) {
  const char16_t* const start = out;
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const unsigned char* const end = at + bytes.size();
  for (;;) {
    WidenRun(at, end, out);
    while (at != end && *at >= 0x80) {
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

void WidenAscii(std::string_view bytes, char16_t* out) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  WidenRun(at, at + bytes.size(), out);
}

void AppendUtf8(TextView text, std::string& out, bool surrogates) {
  const auto put = [&](std::uint32_t value) { out.push_back(static_cast<char>(value)); };
  const auto putThree = [&](std::uint32_t c) {
    put(0xE0 | (c >> 12)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  };
  const std::size_t size = text.size();
  for (std::size_t at = 0; at < size;) {
    std::size_t run = at;
    while (run < size && text[run] < 0x80) ++run;
    if (run != at) {
      const std::size_t old = out.size();
      out.resize(old + (run - at));
      char* to = out.data() + old;
      for (; at < run; ++at) *to++ = static_cast<char>(text[at]);
      if (at == size) return;
    }
    const char16_t unit = text[at];
    if (unit < 0x800) {
      put(0xC0u | (unit >> 6)), put(0x80u | (unit & 0x3Fu));
    } else if (IsLead(unit) && at + 1 < size && IsTrail(text[at + 1])) {
      const std::uint32_t c = 0x10000u + ((unit & 0x3FFu) << 10) + (text[at + 1] & 0x3FFu);
      put(0xF0 | (c >> 18)), put(0x80 | ((c >> 12) & 0x3F)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
      ++at;
    } else if (!IsLead(unit) && !IsTrail(unit)) {
      putThree(unit);
    } else if (surrogates) {
      putThree(unit);
    } else {
      put(unit >= 0xDC80 && unit <= 0xDCFF ? static_cast<std::uint32_t>(unit - kEscapeBase) : U'?');
    }
    ++at;
  }
}

}  // namespace cuewright

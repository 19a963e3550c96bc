#include "text/iso6937.h"

#include <unicode/unorm2.h>

#include <array>

#include "text/units.h"

namespace cuewright {
namespace {

constexpr char16_t kNone = 0xFFFD;
constexpr unsigned char kFirstHigh = 0xA0;
constexpr unsigned char kFirstAccent = 0xC1;
constexpr unsigned char kLastAccent = 0xCF;

/// Bytes 0xA0 to 0xFF; the accents as the combining characters that stand for them behind a letter.
constexpr std::array<char16_t, 96> kHigh = {
    0x00A0, 0x00A1, 0x00A2, 0x00A3, u'$',   0x00A5, u'#',   0x00A7, 0x00A4, 0x2018, 0x201C, 0x00AB,  // A0
    0x2190, 0x2191, 0x2192, 0x2193, 0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x00D7, 0x00B5, 0x00B6, 0x00B7,  // AC
    0x00F7, 0x2019, 0x201D, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF, kNone,  0x0300, 0x0301, 0x0302,  // B8
    0x0303, 0x0304, 0x0306, 0x0307, 0x0308, 0x0308, 0x030A, 0x0327, 0x0332, 0x030B, 0x0328, 0x030C,  // C4
    0x2015, 0x00B9, 0x00AE, 0x00A9, 0x2122, 0x266A, 0x00AC, 0x00A6, kNone,  kNone,  kNone,  kNone,   // D0
    0x215B, 0x215C, 0x215D, 0x215E, 0x2126, 0x00C6, 0x0110, 0x00AA, 0x0126, kNone,  0x0132, 0x013F,  // DC
    0x0141, 0x00D8, 0x0152, 0x00BA, 0x00DE, 0x0166, 0x014A, 0x0149, 0x0138, 0x00E6, 0x0111, 0x00F0,  // E8
    0x0127, 0x0131, 0x0133, 0x0140, 0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x0167, 0x014B, 0x00AD,  // F4
};

char16_t CharacterOf(unsigned char byte) {
  if (byte >= kFirstHigh) return kHigh[byte - kFirstHigh];
  if (byte == 0x24) return 0x00A4;
  return byte < 0x7F ? byte : kNone;
}

bool IsAccent(unsigned char byte) { return byte >= kFirstAccent && byte <= kLastAccent; }

/// The byte of a character without an accent, or of a combining one; 0: it has none.
unsigned char ByteOfCharacter(char16_t c) {
  if (c != u'$' && c < 0x7F) return ByteOf(LowByte(c));
  // Two bytes, C8 and C9, stand for the two dots above a letter; the first of them is written.
  unsigned char byte = kFirstHigh;
  for (const char16_t known : kHigh) {
    if (known == c && c != kNone) return byte;
    ++byte;
  }
  return c == 0x03A9 ? 0xE0 : 0;
}

const UNormalizer2* Composer() {
  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2* const composer = unorm2_getNFCInstance(&status);
  return U_SUCCESS(status) ? composer : nullptr;
}

/// A letter and the accent on it; false for a character that is not made of two that the code has.
bool Decompose(char16_t c, unsigned char& letter, unsigned char& accent) {
  const UNormalizer2* const composer = Composer();
  if (composer == nullptr) return false;
  std::array<UChar, 8> parts{};
  UErrorCode status = U_ZERO_ERROR;
  if (unorm2_getRawDecomposition(composer, c, parts.data(), parts.size(), &status) != 2 || U_FAILURE(status)) {
    return false;
  }
  letter = ByteOfCharacter(parts[0]);
  accent = ByteOfCharacter(parts[1]);
  return letter != 0 && letter < 0x7F && IsAccent(accent);
}

}  // namespace

Text FromIso6937(std::string_view bytes) {
  const UNormalizer2* const composer = Composer();
  Text text;
  text.reserve(bytes.size());
  char16_t accent = 0;
  for (const char c : bytes) {
    const unsigned char byte = ByteOf(c);
    if (IsAccent(byte)) {
      if (accent != 0) text += kNone;
      accent = CharacterOf(byte);
      continue;
    }
    const char16_t letter = CharacterOf(byte);
    if (accent == 0) {
      text += letter;
      continue;
    }
    const UChar32 whole = composer == nullptr ? -1 : unorm2_composePair(composer, letter, accent);
    if (whole > 0 && whole < 0x10000) {
      text += LowUnit(whole);
    } else {
      text += letter;
      text += accent;
    }
    accent = 0;
  }
  if (accent != 0) text += kNone;
  return text;
}

bool AppendIso6937(TextView text, std::string& out) {
  bool held = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char letter = ByteOfCharacter(text[i]);
    unsigned char accent = 0;
    if (letter == 0 && !Decompose(text[i], letter, accent)) {
      held = false;
      letter = '?';
    }
    // An accent that stands behind its letter in the text.
    const unsigned char behind = i + 1 < text.size() ? ByteOfCharacter(text[i + 1]) : 0;
    if (accent == 0 && IsAccent(behind)) {
      accent = behind;
      ++i;
    }
    if (accent != 0) out += LowByte(accent);
    out += LowByte(letter);
  }
  return held;
}

}  // namespace cuewright

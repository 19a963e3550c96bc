#include "external/spell_words.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>
#include <algorithm>

#include "core/counting.h"
#include "text/digits.h"
#include "text/icu_text.h"

namespace cuewright {
namespace {

constexpr char16_t kApostrophe = u'\'';
constexpr char16_t kCurved = 0x2019;
constexpr char16_t kSoftHyphen = 0xAD;
constexpr char16_t kNonJoiner = 0x200C;
constexpr char16_t kJoiner = 0x200D;

enum class Kind { Other, Letter, Digit, Inside, Apostrophe, Unspaced };

/// A character of a text and where the next one begins.
struct Step {
  Kind kind = Kind::Other;
  std::size_t next = 0;
};

/// Letters of a script whose words stand together without blanks.
bool IsUnspaced(UChar32 c) {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(c, &status)) {
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_THAI:
    case USCRIPT_LAO:
    case USCRIPT_KHMER:
    case USCRIPT_MYANMAR:
    case USCRIPT_TIBETAN:
      return true;
    default:
      return false;
  }
}

/// The letters of most texts, which are told without the library.
Kind KindOfPlain(UChar32 c) {
  const UChar32 lower = c | 0x20;
  if (lower >= u'a' && lower <= u'z') return Kind::Letter;
  if (c == kApostrophe) return Kind::Apostrophe;
  return IsDigit(c) || c == u'_' ? Kind::Digit : Kind::Other;
}

Kind KindOf(UChar32 c) {
  if (c < 0x80) return KindOfPlain(c);
  if (c == kCurved) return Kind::Apostrophe;
  if (c == kSoftHyphen || c == kNonJoiner || c == kJoiner) return Kind::Inside;
  if (u_isdigit(c)) return Kind::Digit;
  if ((U_GET_GC_MASK(c) & U_GC_M_MASK) != 0) return Kind::Inside;
  if (!u_isalpha(c)) return Kind::Other;
  return IsUnspaced(c) ? Kind::Unspaced : Kind::Letter;
}

Step StepAt(TextView text, std::size_t at) {
  UChar32 c = 0;
  std::size_t next = at;
  U16_NEXT(text.data(), next, text.size(), c);
  return {KindOf(c), next};
}

/// The end of a tag or of a block of style codes that begins here; `at` when none does.
std::size_t EndOfTag(TextView line, std::size_t at) {
  const bool tag = line[at] == u'<' && at + 1 < line.size() && (u_isalpha(line[at + 1]) || line[at + 1] == u'/');
  const bool codes = line[at] == u'{' && at + 1 < line.size() && line[at + 1] == u'\\';
  if (!tag && !codes) return at;
  const std::size_t end = line.find(tag ? u'>' : u'}', at);
  return end == TextView::npos ? at : end + 1;
}

bool IsBlankUnit(char16_t unit) { return unit < 0x80 ? unit <= u' ' : u_isUWhiteSpace(unit) != 0; }

/// True for the piece between blanks that is an address.
bool IsAddress(TextView piece) {
  if (piece.find(u"://") != TextView::npos) return true;
  if (piece.find(u'.') == 3 && EqualLoose(piece.substr(0, 3), u"www")) return true;
  const std::size_t sign = piece.find(u'@');
  return sign != TextView::npos && sign != 0 && piece.find(u'.', sign) != TextView::npos;
}

/// The end of the address that begins here; `at` when none does.
std::size_t EndOfAddress(TextView line, std::size_t at) {
  if (at != 0 && !IsBlankUnit(line[at - 1]) && line[at - 1] != u'>' && line[at - 1] != u'(') return at;
  const auto* from = line.begin() + at;
  const auto* end = std::find_if(from, line.end(), [](char16_t c) { return IsBlankUnit(c) || c == u'<'; });
  const std::size_t length = end - from;
  return IsAddress(line.substr(at, length)) ? at + length : at;
}

/// Reads letters, marks, digits and inner apostrophes from `at` on; the end, and whether it is a word to look up.
std::size_t EndOfWord(TextView line, std::size_t at, bool& word) {
  int letters = 0;
  bool plain = true;
  while (at < line.size()) {
    const Step step = StepAt(line, at);
    if (step.kind == Kind::Other) break;
    if (step.kind == Kind::Apostrophe && (step.next == line.size() || StepAt(line, step.next).kind != Kind::Letter)) {
      break;
    }
    if (step.kind == Kind::Letter) ++letters;
    plain = plain && step.kind != Kind::Digit && step.kind != Kind::Unspaced;
    at = step.next;
  }
  word = plain && letters > 1;
  return at;
}

}  // namespace

std::vector<WordPlace> WordsOf(TextView line) {
  std::vector<WordPlace> words;
  std::size_t at = 0;
  while (at < line.size()) {
    std::size_t end = EndOfTag(line, at);
    if (end == at) end = EndOfAddress(line, at);
    if (end == at) {
      const Step step = StepAt(line, at);
      end = step.next;
      if (step.kind != Kind::Other && step.kind != Kind::Apostrophe) {
        bool word = false;
        end = EndOfWord(line, at, word);
        if (word) words.push_back({at, end - at});
      }
    }
    at = end;
  }
  return words;
}

Text PlainApostrophes(TextView word) {
  Text plain(word);
  std::replace(plain.begin(), plain.end(), kCurved, kApostrophe);
  return plain;
}

Text ComposedLetters(TextView word) {
  if (std::all_of(word.begin(), word.end(), [](char16_t unit) { return unit < 0x300; })) return Text(word);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) || composer == nullptr) return Text(word);
  const icu::UnicodeString composed = composer->normalize(Aliased(word), status);
  if (U_FAILURE(status)) return Text(word);
  return TextOf(composed);
}

Text WithLeadingApostrophe(TextView line, const WordPlace& word) {
  if (word.start == 0 || (line[word.start - 1] != kApostrophe && line[word.start - 1] != kCurved)) return {};
  return Text(line.substr(word.start - 1, word.length + 1));
}

}  // namespace cuewright

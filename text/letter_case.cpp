#include "text/letter_case.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>

#include "text/icu_text.h"

namespace cuewright {
namespace {

constexpr TextView kDashes = u"-\u2010\u2012\u2013\u2014";

/// Writes the first letter from a place on in upper case.
void Capitalise(Text& text, std::size_t from) {
  for (std::size_t at = from; at < text.size();) {
    const std::size_t begin = at;
    UChar32 c = 0;
    U16_NEXT(text.data(), at, text.size(), c);
    if (!u_isalpha(c) && !u_isdigit(c)) continue;
    text.replace(begin, at - begin, ToUpper(TextView(text).substr(begin, at - begin)));
    return;
  }
}

void CapitaliseSentences(Text& text) {
  Text flat = text;
  // A line's end within a sentence doesn't end it.
  std::ranges::replace(flat, u'\n', u' ');
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> sentences(
      ubrk_open(UBRK_SENTENCE, "", flat.data(), LengthForIcu(flat), &status), &ubrk_close);
  if (U_FAILURE(status) != 0) return Capitalise(text, 0);
  for (std::int32_t at = ubrk_first(sentences.get()); at != UBRK_DONE; at = ubrk_next(sentences.get())) {
    Capitalise(text, at);
  }
}

}  // namespace

Text InCase(TextView text, LetterCase wanted) {
  if (wanted == LetterCase::Upper) return ToUpper(text);
  Text changed = ToLower(text);
  if (wanted == LetterCase::Lower) return changed;
  CapitaliseSentences(changed);
  for (std::size_t line = 0; line < changed.size();) {
    if (kDashes.find(changed[line]) != TextView::npos) Capitalise(changed, line);
    const std::size_t end = changed.find(u'\n', line);
    line = end == Text::npos ? changed.size() : end + 1;
  }
  return changed;
}

}  // namespace cuewright

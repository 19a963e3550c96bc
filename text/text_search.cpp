#include "text/text_search.h"

#include <string.h>  // NOLINT(modernize-deprecated-headers): memmem

#include <algorithm>
#include <utility>

#include "text/digits.h"
#include "text/simd.h"
#include "text/units.h"

namespace cuewright {
namespace {

bool IsCaseless(char16_t c) { return c < 0x80 && !(LowerAscii(c) >= u'a' && LowerAscii(c) <= u'z'); }

/// A character without case that does not stand in nearly every line.
bool IsRare(char16_t c) { return IsCaseless(c) && c != u' ' && c != u'0'; }

bool IsAsciiText(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; });
}

}  // namespace

std::size_t FindCharacter(TextView text, char16_t c, std::size_t from) {
  std::size_t at = from;
#if defined(__SSE2__)
  const Block wanted = AllUnits(c);
  for (; at + 8 <= text.size(); at += 8) {
    const Block units = LoadBlock(text.data() + at);
    const unsigned hits = BitsOf(_mm_cmpeq_epi16(units, wanted));
    if (hits != 0) return at + FirstBit(hits) / 2;
  }
#endif
  for (; at < text.size(); ++at) {
    if (text[at] == c) return at;
  }
  return TextView::npos;
}

unsigned HeldOf(TextView text, char16_t a, char16_t b, char16_t c) {
  unsigned held = 0;
  std::size_t at = 0;
#if defined(__SSE2__)
  const Block wanted[] = {AllUnits(a), AllUnits(b), AllUnits(c)};
  Block hits[] = {NoBits(), NoBits(), NoBits()};
  for (; at + 8 <= text.size(); at += 8) {
    const Block units = LoadBlock(text.data() + at);
    for (int i = 0; i < 3; ++i) hits[i] = _mm_or_si128(hits[i], _mm_cmpeq_epi16(units, wanted[i]));
  }
  for (unsigned i = 0; i < 3; ++i) held |= BitsOf(hits[i]) != 0 ? 1u << i : 0u;
#endif
  for (; at < text.size(); ++at) {
    held |= (text[at] == a ? 1u : 0u) | (text[at] == b ? 2u : 0u) | (text[at] == c ? 4u : 0u);
  }
  return held;
}

bool HoldsDigitOrFrames(TextView text) {
  std::size_t at = 0;
#if defined(__SSE2__)
  const Block below = AllUnits(u'0' - 1);
  const Block above = AllUnits(u'9' + 1);
  const Block letter = AllUnits(u'f');
  Block hits = NoBits();
  for (; at + 9 <= text.size(); at += 8) {
    // As signed numbers the units from 8000 hex on are below the digits.
    const Block units = LoadBlock(text.data() + at);
    const Block next = LoadBlock(text.data() + at + 1);
    const Block digits = _mm_and_si128(_mm_cmpgt_epi16(units, below), _mm_cmplt_epi16(units, above));
    const Block frames = _mm_and_si128(_mm_cmpeq_epi16(units, letter), _mm_cmpeq_epi16(next, letter));
    hits = _mm_or_si128(hits, _mm_or_si128(digits, frames));
  }
  if (BitsOf(hits) != 0) return true;
#endif
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) return true;
    if (text[at] == u'f' && at + 1 < text.size() && text[at + 1] == u'f') return true;
  }
  return false;
}

Needle::Needle(Text text) : text_(std::move(text)) {
  cased_ = ToLower(text_) != ToUpper(text_);
  auto anchor = std::find_if(text_.begin(), text_.end(), IsRare);
  if (anchor == text_.end()) anchor = std::find_if(text_.begin(), text_.end(), IsCaseless);
  anchored_ = anchor != text_.end() && (!cased_ || IsAsciiText(text_));
  anchor_ = anchor - text_.begin();
}

bool Needle::MatchesAt(TextView text, std::size_t at) const {
  if (!cased_) return text.substr(at, text_.size()) == text_;
  for (std::size_t i = 0; i < text_.size(); ++i) {
    const char16_t a = text[at + i];
    const char16_t b = text_[i];
    if (a == b || LowerAscii(a) == LowerAscii(b)) continue;
    // Two characters beyond ASCII are cases of ASCII letters: the Kelvin sign and the long s.
    if (!(a == 0x212A && LowerAscii(b) == u'k') && !(a == 0x017F && LowerAscii(b) == u's')) return false;
  }
  return true;
}

std::size_t Needle::Place(TextView text, std::size_t from) const {
  if (from > text.size()) return 0;
  if (text_.empty()) return from;
  if (!anchored_) {
    const std::size_t hit = FindLoose(text, text_, from - 1);
    return hit == TextView::npos ? 0 : hit + 1;
  }
  if (text.size() < text_.size()) return 0;
  const std::size_t last = text.size() - text_.size();
  const TextView part = text.substr(0, last + anchor_ + 1);
  for (std::size_t hit = FindCharacter(part, text_[anchor_], from - 1 + anchor_); hit != TextView::npos;
       hit = FindCharacter(part, text_[anchor_], hit + 1)) {
    // The neighbour settles most places at once.
    if (anchor_ != 0 && text[hit - 1] < 0x80 && LowerAscii(text[hit - 1]) != LowerAscii(text_[anchor_ - 1])) continue;
    if (MatchesAt(text, hit - anchor_)) return hit - anchor_ + 1;
  }
  return 0;
}

void Needle::Replace(Text& text, TextView to) const {
  std::size_t place = text_.empty() ? 0 : Place(text);
  if (place == 0) return;
  Text result;
  std::size_t at = 0;
  for (; place != 0; place = Place(text, at + 1)) {
    result.append(text, at, place - 1 - at).append(to);
    at = place - 1 + text_.size();
  }
  text = result.append(text, at);
}

std::size_t FindExact(TextView text, TextView needle, std::size_t from) {
  if (needle.empty()) return from <= text.size() ? from : TextView::npos;
  const std::string_view bytes = StoredBytes(text);
  const std::string_view wanted = StoredBytes(needle);
  for (std::size_t at = std::min(from, text.size()) * sizeof(char16_t);;) {
    const void* const hit = ::memmem(bytes.data() + at, bytes.size() - at, wanted.data(), wanted.size());
    if (hit == nullptr) return TextView::npos;
    const std::size_t offset = static_cast<const char*>(hit) - bytes.data();
    if (offset % sizeof(char16_t) == 0) return offset / sizeof(char16_t);
    at = offset + 1;
  }
}

Text ReplaceLoose(TextView text, TextView from, TextView to) {
  if (from.empty()) return Text(text);
  Text result;
  std::size_t at = 0;
  for (std::size_t hit = FindLoose(text, from); hit != TextView::npos; hit = FindLoose(text, from, at)) {
    result.append(text, at, hit - at).append(to);
    at = hit + from.size();
  }
  return result.append(text, at);
}

void Exchange(Text& text, TextView from, TextView to) {
  if (from.empty()) return;
  const auto next = [&](std::size_t at) {
    for (;;) {
      at = FindCharacter(text, from.front(), at);
      if (at == TextView::npos || TextView(text).substr(at).starts_with(from)) return at;
      ++at;
    }
  };
  std::size_t hit = next(0);
  if (hit == TextView::npos) return;
  if (to.size() > from.size()) {
    text = ReplaceAll(text, from, to);
    return;
  }
  std::size_t end = hit;  // behind what has been written; it never passes the place that is read next
  while (hit != TextView::npos) {
    to.copy(text.data() + end, to.size());
    end += to.size();
    const std::size_t at = hit + from.size();
    hit = next(at);
    const std::size_t length = (hit == TextView::npos ? text.size() : hit) - at;
    std::char_traits<char16_t>::move(text.data() + end, text.data() + at, length);
    end += length;
  }
  text.resize(end);
}

void MaskDigits(Text& text) {
  for (char16_t& c : text) c = c >= u'1' && c <= u'9' ? u'0' : c;
}

}  // namespace cuewright

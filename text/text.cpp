#include "text/text.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

#include "text/digits.h"
#include "text/text_search.h"
#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

char16_t MapUnit(char16_t unit, UChar32 (*map)(UChar32)) {
  const UChar32 mapped = map(unit);
  return mapped <= 0xFFFF ? LowUnit(mapped) : unit;
}

template <class AsciiMap>
Text MapText(TextView text, AsciiMap ascii, UChar32 (*map)(UChar32)) {
  Text result(text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    const char16_t unit = result[i];
    if (unit < 0x80) {
      result[i] = ascii(unit);
    } else if (U16_IS_LEAD(unit) && i + 1 < result.size() && U16_IS_TRAIL(result[i + 1])) {
      const UChar32 mapped = map(U16_GET_SUPPLEMENTARY(unit, result[i + 1]));
      if (mapped > 0xFFFF) result[i] = U16_LEAD(mapped), result[i + 1] = U16_TRAIL(mapped);
      ++i;
    } else if (!U16_IS_SURROGATE(unit)) {
      result[i] = MapUnit(unit, map);
    }
  }
  return result;
}

UChar32 Fold(UChar32 c) { return u_foldCase(c, U_FOLD_CASE_DEFAULT); }

char16_t FoldUnit(char16_t unit) {
  if (unit < 0x80) return LowerAscii(unit);
  return U16_IS_SURROGATE(unit) ? unit : MapUnit(unit, Fold);
}

Text FoldText(TextView text) { return MapText(text, FoldUnit, Fold); }

bool HasSupplementary(TextView text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return U16_IS_SURROGATE(unit); });
}

}  // namespace

Text FromUtf8(std::string_view bytes) {
  Text text(DecodedRoom(bytes.size()), u'\0');
  text.resize(DecodeUtf8(bytes, text));
  return text;
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  AppendUtf8(text, bytes);
  return bytes;
}

TextView TrimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

bool IsBlank(TextView text) { return text.find_first_not_of(u' ') == TextView::npos; }

Text ToUpper(TextView text) { return MapText(text, UpperAscii<char16_t>, u_toupper); }

Text ToLower(TextView text) { return MapText(text, LowerAscii<char16_t>, u_tolower); }

std::size_t FindPlain(TextView text, TextView needle, std::size_t from) {
  if (needle.size() != 1 || needle[0] >= 0x80) return text.find(needle, from);
  // The library looks for a byte many times faster than for a unit.
  const std::string_view bytes = StoredBytes(text);
  const char byte = LowByte(needle[0]);
  std::size_t hit = bytes.find(byte, from * sizeof(char16_t));
  while (hit != std::string_view::npos && text[hit / sizeof(char16_t)] != needle[0]) hit = bytes.find(byte, hit + 1);
  return hit == std::string_view::npos ? TextView::npos : hit / sizeof(char16_t);
}

std::size_t FindLoose(TextView text, TextView needle, std::size_t from) {
  if (from > text.size() || needle.size() > text.size() - from) return TextView::npos;
  if (needle.empty()) return from;
  const Text folded = FoldText(needle);
  if (HasSupplementary(folded)) return FoldText(text).find(folded, from);
  const std::size_t last = text.size() - needle.size();
  for (std::size_t at = from; at <= last; ++at) {
    std::size_t i = 0;
    while (i < folded.size() && FoldUnit(text[at + i]) == folded[i]) ++i;
    if (i == folded.size()) return at;
  }
  return TextView::npos;
}

LooseNeedles::LooseNeedles(const std::vector<Text>& needles) {
  for (const Text& needle : needles) {
    Text folded = FoldText(needle);
    if (folded.empty() || HasSupplementary(folded)) {
      wide_.push_back(needle);
      continue;
    }
    for (std::size_t unit = 0; unit < begins_.size(); ++unit) {
      if (FoldUnit(LowUnit(unit)) == folded.front()) begins_[unit] = true;
    }
    folded_.push_back(std::move(folded));
  }
}

bool LooseNeedles::AnyAt(TextView text, std::size_t at) const {
  const char16_t first = FoldUnit(text[at]);
  return std::ranges::any_of(folded_, [&](const Text& needle) {
    if (needle.front() != first || needle.size() > text.size() - at) return false;
    std::size_t i = 1;
    while (i < needle.size() && FoldUnit(text[at + i]) == needle[i]) ++i;
    return i == needle.size();
  });
}

bool LooseNeedles::AnyIn(TextView text) const {
  for (std::size_t at = 0; at < text.size(); ++at) {
    // Most characters begin none of them.
    if (text[at] < begins_.size() && !begins_[text[at]]) continue;
    if (AnyAt(text, at)) return true;
  }
  return std::ranges::any_of(wide_, [&](const Text& needle) { return FindLoose(text, needle) != TextView::npos; });
}

bool EqualLoose(TextView a, TextView b) { return a.size() == b.size() && FoldText(a) == FoldText(b); }

Text ReplaceAll(TextView text, TextView from, TextView to) {
  Text result;
  if (from.empty()) return Text(text);
  std::size_t at = 0;
  for (std::size_t hit = text.find(from); hit != TextView::npos; hit = text.find(from, at)) {
    result.append(text, at, hit - at).append(to);
    at = hit + from.size();
  }
  return result.append(text, at);
}

Text ReplaceFirst(TextView text, TextView from, TextView to) {
  Text result(text);
  const std::size_t hit = from.empty() ? Text::npos : result.find(from);
  if (hit != Text::npos) result.replace(hit, from.size(), to);
  return result;
}

Text InItsOrderFromRight(TextView value) {
  constexpr char16_t kLeftToRight = 0x2066;
  constexpr char16_t kEnd = 0x2069;
  const bool negative = value.size() > 1 && value[0] == u'-' && IsDigit(value[1]);
  return negative || value.starts_with(u'/') ? kLeftToRight + Text(value) + kEnd : Text(value);
}

Text InItsOrder(TextView text, TextView value) {
  const bool rightToLeft = std::ranges::any_of(text, [](char16_t unit) {
    const UCharDirection direction = u_charDirection(unit);
    return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC;
  });
  return rightToLeft ? InItsOrderFromRight(value) : Text(value);
}

Text Fill(TextView text, TextView first, TextView second) {
  Text result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const TextView mark = text.substr(at, 2);
    if (mark == u"%1" || (mark == u"%2" && second.data() != nullptr)) {
      result += InItsOrder(text, mark == u"%1" ? first : second);
      ++at;
    } else {
      result += text[at];
    }
  }
  return result;
}

Text WithoutAccessKey(TextView caption) {
  Text plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption.substr(i, 2) == u"(&" && i + 3 < caption.size() && caption[i + 3] == u')') {
      while (plain.ends_with(u' ')) plain.pop_back();
      i += 3;
      continue;
    }
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

std::vector<Text> Split(TextView text, TextView separator) {
  std::vector<Text> pieces;
  std::size_t at = 0;
  for (;;) {
    const std::size_t hit = text.find(separator, at);
    if (hit == TextView::npos) break;
    pieces.emplace_back(text.substr(at, hit - at));
    at = hit + separator.size();
  }
  pieces.emplace_back(text.substr(at));
  return pieces;
}

}  // namespace cuewright

#include "formats/text_search.h"

#include <string.h>  // NOLINT(modernize-deprecated-headers): memmem

#include <algorithm>
#include <utility>

#include "core/runtime_error.h"

namespace cuewright {

Needle::Needle(Text text) : text_(std::move(text)) { cased_ = ToLower(text_) != ToUpper(text_); }

std::size_t Needle::Place(TextView text, std::size_t from) const {
  if (from > text.size()) return 0;
  if (text_.empty()) return from;
  const std::size_t hit = cased_ ? FindLoose(text, text_, from - 1) : text.find(text_, from - 1);
  return hit == TextView::npos ? 0 : hit + 1;
}

std::size_t FindExact(TextView text, TextView needle, std::size_t from) {
  if (needle.empty()) return from <= text.size() ? from : TextView::npos;
  const char* const start = reinterpret_cast<const char*>(text.data());
  const char* const end = start + text.size() * sizeof(char16_t);
  const char* at = start + std::min(from, text.size()) * sizeof(char16_t);
  for (;;) {
    const void* const hit =
        ::memmem(at, static_cast<std::size_t>(end - at), needle.data(), needle.size() * sizeof(char16_t));
    if (hit == nullptr) return TextView::npos;
    const auto offset = static_cast<std::size_t>(static_cast<const char*>(hit) - start);
    if (offset % sizeof(char16_t) == 0) return offset / sizeof(char16_t);
    at = start + offset + 1;
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

TextView Middle(TextView text, std::ptrdiff_t place) {
  if (place < 1) ThrowInvalidCall();
  const auto at = static_cast<std::size_t>(place) - 1;
  return at < text.size() ? text.substr(at) : TextView();
}

TextView Middle(TextView text, std::ptrdiff_t place, std::ptrdiff_t count) { return Left(Middle(text, place), count); }

TextView Left(TextView text, std::ptrdiff_t count) {
  if (count < 0) ThrowInvalidCall();
  return text.substr(0, static_cast<std::size_t>(count));
}

void MaskDigits(Text& text) {
  for (char16_t& c : text) c = c >= u'1' && c <= u'9' ? u'0' : c;
}

}  // namespace cuewright

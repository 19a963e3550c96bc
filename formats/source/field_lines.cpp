#include "formats/source/field_lines.h"

#include <algorithm>

namespace cuewright {

Text FieldToText(Text field, TextView separator) {
  const std::size_t first = field.find_first_of(u"\r\n");
  if (first == Text::npos) {
    const TextView trimmed = TrimBlanks(field);
    return trimmed.size() == field.size() ? std::move(field) : Text(trimmed);
  }
  Text text;
  text.reserve(field.size() + 2 * separator.size());
  TextView rest = field;
  for (;;) {
    const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
    text += TrimBlanks(rest.substr(0, end));
    if (end == rest.size()) return text;
    const TextView behind = rest.substr(end);
    rest.remove_prefix(end + (behind.starts_with(u"\r\r\n") ? 3 : behind.starts_with(u"\r\n") ? 2 : 1));
    text += separator;
  }
}

Text TextToField(Text text, TextView separator, TextView lineEnd) {
  if (separator.empty() || separator == lineEnd) return text;
  return ReplaceAll(text, separator, lineEnd);
}

}  // namespace cuewright

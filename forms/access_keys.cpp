#include "forms/access_keys.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

namespace cuewright {
namespace {

/// A letter that a keyboard of its language types by one key.
bool IsOnAKey(char16_t unit) {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(unit, &status)) {
    case USCRIPT_LATIN:
    case USCRIPT_CYRILLIC:
    case USCRIPT_GREEK:
    case USCRIPT_ARABIC:
    case USCRIPT_HEBREW:
      return u_isalpha(unit);
    default:
      return false;
  }
}

char16_t Lower(char16_t unit) { return ToLower(TextView(&unit, 1))[0]; }

}  // namespace

Text AccessKeys::Give(TextView caption) {
  const std::size_t mark = caption.find(u'&');
  if (mark != TextView::npos && mark + 1 < caption.size() && taken_.insert(Lower(caption[mark + 1])).second) {
    return Text(caption);
  }
  Text plain = WithoutAccessKey(caption);
  for (std::size_t i = 0; i < plain.size(); ++i) {
    if (!IsOnAKey(plain[i]) || !taken_.insert(Lower(plain[i])).second) continue;
    return plain.insert(i, 1, u'&');
  }
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    if (taken_.insert(Lower(letter)).second) return plain + u"(&" + Text(1, letter) + u")";
  }
  return plain;
}

}  // namespace cuewright

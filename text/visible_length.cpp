#include "text/visible_length.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace cuewright {
namespace {

/// Below this every character has a place of its own and none is wide.
constexpr char16_t kFirstCombining = 0x0300;

int WidthOf(UChar32 c, bool wideLetters) {
  const int type = u_charType(c);
  const bool none =
      type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR || (type == U_CONTROL_CHAR);
  if (none) return 0;
  if (!wideLetters) return 1;
  const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

int VisibleLength(TextView text, bool wideLetters) {
  int length = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] < kFirstCombining) {
      length += text[at] >= u' ' && text[at] != u'\u00ad' ? 1 : 0;
      ++at;
      continue;
    }
    UChar32 c = 0;
    U16_NEXT(text.data(), at, text.size(), c);
    length += WidthOf(c, wideLetters);
  }
  return length;
}

}  // namespace cuewright

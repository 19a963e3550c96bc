#include "core/caption_time.h"

#include <algorithm>

#include "core/numbers.h"

namespace cuewright {
namespace {

/// The number that a group of characters is as a whole; 0 when any of them is no digit.
std::int32_t Group(TextView text, std::size_t at, std::size_t length) {
  const TextView group = at < text.size() ? text.substr(at, length) : TextView();
  std::int32_t value = 0;
  for (const char16_t c : group) {
    if (c < u'0' || c > u'9') return 0;
    value = value * 10 + (c - u'0');
  }
  return value;
}

}  // namespace

Text MsToTimeText(Ms time) {
  if (time <= 0) return u"00:00:00,000";
  const std::int32_t ms = time.Count();
  const Checked8 hours(ms / 3600000);
  return Padded(hours.Value(), 2) + u":" + Padded(ms / 60000 % 60, 2) + u":" + Padded(ms / 1000 % 60, 2) + u"," +
         Padded(ms % 1000, 3);
}

Ms TimeTextToMs(TextView text) {
  const std::size_t tail = text.size() - std::min<std::size_t>(text.size(), 3);
  return Group(text, 0, 2) * 3600000 + Group(text, 3, 2) * 60000 + Group(text, 6, 2) * 1000 + Group(text, tail, 3);
}

}  // namespace cuewright

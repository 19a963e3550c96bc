#include "tools/typed_time.h"

#include <limits>

#include "core/numbers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::size_t kMostDigits = 9;
constexpr std::size_t kMostDecimals = 3;
constexpr std::int64_t kMsPerSecond = 1000;

}  // namespace

std::optional<std::int32_t> TypedNumber(TextView text) {
  text = TrimBlanks(text);
  if (text.empty() || text.size() > kMostDigits) return {};
  std::int32_t number = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c)) return {};
    number = number * 10 + (c - u'0');
  }
  return number;
}

std::optional<Ms> TypedTime(TextView text) {
  text = TrimBlanks(text);
  std::int64_t ms = 0;
  if (const std::size_t point = text.find_first_of(u".,"); point != TextView::npos) {
    Text decimals(text.substr(point + 1));
    if (decimals.empty() || decimals.size() > kMostDecimals) return {};
    decimals.resize(kMostDecimals, u'0');
    const std::optional<std::int32_t> rest = TypedNumber(decimals);
    if (!rest) return {};
    ms = *rest;
    if (point == 0) return *rest;
    text = text.substr(0, point);
  }
  const std::vector<Text> fields = Split(text, u":");
  if (fields.size() > 3) return {};
  std::int64_t seconds = 0;
  for (const Text& field : fields) {
    const std::optional<std::int32_t> number = TypedNumber(field);
    if (!number) return {};
    seconds = seconds * 60 + *number;
  }
  ms += seconds * kMsPerSecond;
  if (ms > std::numeric_limits<std::int32_t>::max()) return {};
  return Checked32(ms).Value();
}

}  // namespace cuewright

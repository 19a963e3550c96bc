#include "core/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/counting.h"
#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// True when a number can't go on with this character.
bool EndsNumber(char16_t c) {
  return c > u'9' ? c != u'e' && c != u'E' : c != u'.' && c != u' ' && c != u'\t' && c != u'\r' && c != u'\n';
}

/// A number of a few plain digits, the usual case; false for anything else.
bool ReadPlainDigits(TextView text, double& value) {
  std::size_t at = 0;
  int number = 0;
  while (at < text.size() && at < 9 && IsDigit(text[at])) number = number * 10 + (text[at++] - u'0');
  value = number;
  return at != 0 && (at == text.size() || (!IsDigit(text[at]) && EndsNumber(text[at])));
}

}  // namespace

double LeadingNumber(TextView text) {
  if (double plain = 0; ReadPlainDigits(text, plain)) return plain;
  std::string digits;
  std::size_t at = 0;
  const auto skipBlanks = [&] {
    while (at < text.size() && (text[at] == u' ' || text[at] == u'\t' || text[at] == u'\r' || text[at] == u'\n')) ++at;
  };
  // Only signs, digits and the dot are taken, which are the same in bytes.
  const auto takeOne = [&] { digits.push_back(LowByte(text[at++])); };
  const auto take = [&] { takeOne(), skipBlanks(); };
  skipBlanks();
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) take();
  bool any = false;
  while (at < text.size() && IsDigit(text[at])) take(), any = true;
  if (at < text.size() && text[at] == u'.') {
    take();
    while (at < text.size() && IsDigit(text[at])) take(), any = true;
  }
  if (!any) return 0;
  if (at + 1 < text.size() && (text[at] == u'e' || text[at] == u'E')) {
    const bool sign = text[at + 1] == u'-' || text[at + 1] == u'+';
    if (IsDigit(text[at + 1]) || (sign && at + 2 < text.size() && IsDigit(text[at + 2]))) {
      digits.push_back('e');
      ++at;
      if (sign) takeOne();
      while (at < text.size() && IsDigit(text[at])) takeOne();
    }
  }
  // The digits are plain ASCII with a dot, and the program keeps LC_NUMERIC at "C".
  const double value = std::strtod(digits.c_str(), nullptr);
  return std::isfinite(value) ? value : 0;
}

std::int32_t LeadingInt(TextView text) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<double>(LeadingNumber(text), Limits::min(), Limits::max()));
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

std::int32_t RoundToInt32(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) ThrowOverflow();
  return static_cast<std::int32_t>(rounded);
}

Text Padded(long long number, int digits) {
  Text text = Decimal(number < 0 ? -number : number);
  if (CountOf(text) < digits) text.insert(0, SizeOf(digits - CountOf(text)), u'0');
  return number < 0 ? u"-" + text : text;
}

}  // namespace cuewright

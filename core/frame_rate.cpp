#include "core/frame_rate.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <string>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr double kThousandths = 1000;
/// Beyond this a number is no rate; its thousandths and their products still fit.
constexpr double kLargestNumber = 1000000;
constexpr double kLeastUsual = 1;
constexpr double kMostUsual = 240;
constexpr std::size_t kLongestText = 24;

/// The whole rates that run a thousandth slower in television.
constexpr std::array kSlowed = {24, 30, 48, 60, 120, 240};

/// `numerator` / `denominator`, which is positive, to the nearest whole; a tie goes up.
std::int32_t Rounded(std::int64_t numerator, std::int64_t denominator) {
  const std::int64_t doubled = 2 * numerator + denominator;
  std::int64_t result = doubled / (2 * denominator);
  if (doubled < 0 && doubled % (2 * denominator) != 0) --result;
  return Checked32(result);
}

}  // namespace

FrameRate::FrameRate(double perSecond) {
  if (!(perSecond > 0) || perSecond > kLargestNumber) return;
  const auto thousandths = static_cast<std::int32_t>(std::lround(perSecond * kThousandths));
  if (thousandths == 0) return;
  given_ = static_cast<float>(perSecond);
  const auto shared = std::gcd(thousandths, 1000);
  numerator_ = thousandths / shared;
  denominator_ = 1000 / shared;
  for (const int whole : kSlowed) {
    const bool cut = std::lround(whole * kThousandths * 1000 / 1001) == thousandths;
    // With two digits, as 29.97, the third is 0.
    if (!cut && std::lround(whole * 100.0 * 1000 / 1001) * 10 != thousandths) continue;
    numerator_ = whole * 1000;
    denominator_ = 1001;
  }
}

FrameRate FrameRate::FromText(TextView text) {
  text = TrimBlanks(text);
  bool sign = false;
  std::string number;
  for (const char16_t c : text) {
    const bool isSign = c == u'.' || c == u',';
    if ((!isSign && !IsDigit(c)) || (isSign && sign) || number.size() > kLongestText) return {};
    sign = sign || isSign;
    number += isSign ? '.' : LowByte(c);
  }
  if (number.empty() || number.front() == '.' || number.back() == '.') return {};
  return std::strtod(number.c_str(), nullptr);
}

bool FrameRate::IsUsual() const { return given_ >= kLeastUsual && given_ <= kMostUsual; }

Text FrameRate::AsText(char16_t sign) const {
  const std::int64_t thousandths = Rounded(std::int64_t{1000} * numerator_, denominator_);
  const Text whole = Decimal(thousandths / 1000);
  Text decimals = Padded(thousandths % 1000, 3);
  while (decimals.ends_with(u'0')) decimals.pop_back();
  return decimals.empty() ? whole : whole + sign + decimals;
}

Ms FrameRate::MsOfFrames(std::int64_t frames) const {
  if (numerator_ == 0) throw RuntimeError{11, u"Division by zero"};
  constexpr std::int64_t kMostFrames = std::int64_t{1} << 40;
  if (frames > kMostFrames || frames < -kMostFrames) ThrowOverflow();
  return Rounded(frames * 1000 * denominator_, numerator_);
}

std::int64_t FrameRate::FramesOfMs(Ms ms) const {
  if (numerator_ == 0) return 0;
  return Rounded(ms.Wide() * numerator_, std::int64_t{1000} * denominator_);
}

}  // namespace cuewright

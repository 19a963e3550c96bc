#include "forms/held_hand.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/ms.h"
#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr int kMostLate = 2000;  ///< ms
constexpr int kMostSpread = 1000;
constexpr double kDeviations = 1.4826;  ///< of a normal law: its standard by its median deviation

std::int16_t Within(int value, int least, int most) { return Checked16(std::clamp(value, least, most)); }

}  // namespace

HandTimes HandTimesOf(const AppOptions& options, int hand) {
  return {options.pressLate.at(hand), options.pressSpread.at(hand), options.releaseLate.at(hand),
          options.releaseSpread.at(hand)};
}

void KeepHandTimes(AppOptions& options, int hand, const HandTimes& times) {
  options.pressLate.at(hand) = Within(times.pressLate, -kMostLate, kMostLate);
  options.pressSpread.at(hand) = Within(times.pressSpread, 0, kMostSpread);
  options.releaseLate.at(hand) = Within(times.releaseLate, -kMostLate, kMostLate);
  options.releaseSpread.at(hand) = Within(times.releaseSpread, 0, kMostSpread);
}

std::optional<Reaction> HandInForce(const AppOptions& options) {
  const HandTimes times = HandTimesOf(options, options.hand);
  if (times == HandTimes{}) return std::nullopt;
  Reaction hand;
  hand.start = times.pressLate;
  hand.end = times.releaseLate;
  // Without a measurement the spread of people in general stands; a few presses can't narrow it further than that.
  if (times.pressSpread > 0) {
    hand.startSigma = std::clamp(times.pressSpread / std::max(hand.start, 60.0), 0.2, 0.5);
  }
  if (times.releaseSpread > 0) hand.endSpread = std::clamp<double>(times.releaseSpread, 60, 200);
  return hand;
}

int MedianLateness(std::vector<int> values) {
  const auto middle = values.begin() + values.size() / 2;
  std::ranges::nth_element(values, middle);
  return *middle;
}

int LatenessSpread(std::vector<int> values) {
  const int median = MedianLateness(values);
  for (int& value : values) value = std::abs(value - median);
  return Ms::Nearest(kDeviations * MedianLateness(std::move(values))).Count();
}

}  // namespace cuewright

#pragma once

#include <optional>
#include <vector>

#include "core/app_options.h"
#include "voice/reaction.h"

namespace cuewright {

/// How late the person is with what captions are held with now; empty while nobody has measured or told it.
std::optional<Reaction> HandInForce(const AppOptions& options);

/// Keeps a measured or typed hand. Spreads are the standard deviations in ms.
struct HandTimes {
  int pressLate = 0;
  int pressSpread = 0;
  int releaseLate = 0;
  int releaseSpread = 0;

  bool operator==(const HandTimes&) const = default;
};
HandTimes HandTimesOf(const AppOptions& options, int hand);
void KeepHandTimes(AppOptions& options, int hand, const HandTimes& times);

/// The median of latenesses, and the spread that a normal law with their median deviation has. Not for none.
int MedianLateness(std::vector<int> values);
int LatenessSpread(std::vector<int> values);

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cuewright::testing {

/// What a load came to, and what it did on the way.
struct WaveOutcome {
  enum class End { Loaded, Failed, GivenUp };

  End end = End::Failed;
  std::int32_t peakCount = 0;
  std::vector<std::int16_t> peaks;  ///< filled entries
  std::int32_t upperBound = 0;
  std::vector<std::string> events;  ///< "header", "begin", "screenful COLUMN", "progress POSITION/SIZE"

  bool operator==(const WaveOutcome&) const = default;
};

/// Reads a wave one sample after another, as simply as it can be told. `screenColumns` is the width of a screenful;
/// the load is given up at the progress with this number (0: never).
WaveOutcome ReadWaveSlowly(std::string_view file, std::int32_t screenColumns, int giveUpAt = 0);

}  // namespace cuewright::testing

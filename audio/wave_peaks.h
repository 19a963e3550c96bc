#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/counting.h"

namespace cuewright {

/// The peaks of a wave: one maximum and one minimum for each column of 10 ms, two entries a column. What the table
/// reaches to and has not been given yet reads as 0.
class WavePeaks {
 public:
  /// The number of entries that the wave's header announces; kept until the next wave.
  std::int32_t PeakCount() const { return peakCount_; }
  void SetPeakCount(std::int32_t count) { peakCount_ = count; }

  /// The last entry that the table has.
  std::int32_t UpperBound() const { return upperBound_; }

  /// Brings the table down to one entry of 0.
  void Forget() {
    filled_.clear();
    filled_.shrink_to_fit();
    upperBound_ = 0;
  }

  /// Lets the table reach to `PeakCount` + 1, all of it 0. No room is taken before peaks come.
  void Reach() {
    filled_.clear();
    upperBound_ = peakCount_ + 1;
  }

  /// Reserves room for the announced columns; pages that are never written to take no memory.
  void Expect(std::size_t columns) {
    constexpr std::size_t kMostAtOnce = 1 << 20;
    filled_.reserve(2 * std::min(columns, kMostAtOnce));
  }

  /// An entry up to `UpperBound`: the maximum of a column at an even place, its minimum behind it.
  std::int16_t At(std::int32_t entry) const { return entry < CountOf(filled_) ? filled_[entry] : std::int16_t{0}; }

  /// Stores the next column.
  void Append(std::int16_t maximum, std::int16_t minimum) {
    filled_.push_back(maximum);
    filled_.push_back(minimum);
  }

  /// Columns that have been stored.
  std::int32_t Columns() const { return CountOf(filled_) / 2; }

 private:
  std::int32_t peakCount_ = 0;
  std::int32_t upperBound_ = 0;
  std::vector<std::int16_t> filled_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/ms.h"

namespace cuewright {

/// What a hand changed of the shots that were found in a film. All times are ms at which shots begin.
class ShotMarks {
 public:
  enum class Change : std::uint8_t { Set, Taken };

  /// Takes away the mark nearest to a time, of those that a hand set or the detector found, or sets one there when none
  /// is within `reach`. Where a mark was taken away it comes back.
  Change Toggle(Ms ms, const std::vector<Ms>& found, Ms reach);
  /// The shots that were found, in order, with what was set and without what was taken away.
  std::vector<Ms> Apply(const std::vector<Ms>& found) const;
  void Clear();

  /// As lines "set 1200" and "taken 3400".
  std::string Lines() const;
  /// Takes over such lines; others are passed over.
  void Read(std::string_view lines);

 private:
  std::vector<Ms> set_;
  std::vector<Ms> taken_;
};

}  // namespace cuewright

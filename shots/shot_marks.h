#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cuewright {

/// What a hand changed of the shots that were found in a film. All times are ms at which shots begin.
class ShotMarks {
 public:
  enum class Change : std::uint8_t { Set, Taken };

  /// Takes away the mark nearest to a time, of those that a hand set or the detector found, or sets one there when none
  /// is within `reach`. Where a mark was taken away it comes back.
  Change Toggle(std::int32_t ms, const std::vector<std::int32_t>& found, std::int32_t reach);
  /// The shots that were found, in order, with what was set and without what was taken away.
  std::vector<std::int32_t> Apply(const std::vector<std::int32_t>& found) const;
  void Clear();

  /// As lines "set 1200" and "taken 3400".
  std::string Lines() const;
  /// Takes over such lines; others are passed over.
  void Read(std::string_view lines);

 private:
  std::vector<std::int32_t> set_;
  std::vector<std::int32_t> taken_;
};

}  // namespace cuewright

#pragma once

#include <cstdint>
#include <vector>

namespace cuewright {

/// A time of a caption.
enum class CaptionEdge : std::uint8_t { Start, End };

/// What an edge of a caption can snap to.
enum class SnapKind : std::uint8_t { Caption, Shot, Voice };
struct SnapPoint {
  std::int32_t ms = 0;
  SnapKind kind = SnapKind::Caption;

  bool operator==(const SnapPoint&) const = default;
};

/// What knows places at which captions start or end well.
class SnapPoints {
 public:
  virtual ~SnapPoints() = default;

  /// Appends the places for an edge between two times, in ms, both included.
  virtual void Find(CaptionEdge edge, std::int32_t from, std::int32_t to, std::vector<SnapPoint>& found) const = 0;
};

/// What a house asks of edges near others, in ms.
struct EdgeRules {
  std::int32_t leastGap = 0;    ///< between captions
  std::int32_t shotZone = 0;    ///< an edge this near to a shot belongs to it
  std::int32_t beforeShot = 0;  ///< how long before the shot a caption ends then
  std::int32_t chainBelow = 0;  ///< a gap shorter than this is closed up to the least one

  bool operator==(const EdgeRules&) const = default;
};

}  // namespace cuewright

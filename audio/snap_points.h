#pragma once

#include <cstdint>
#include <vector>

#include "core/ms.h"

namespace cuewright {

/// A time of a caption.
enum class CaptionEdge : std::uint8_t { Start, End };

/// What an edge of a caption can snap to.
enum class SnapKind : std::uint8_t { Caption, Shot, Voice };
struct SnapPoint {
  Ms ms = 0;
  SnapKind kind = SnapKind::Caption;

  bool operator==(const SnapPoint&) const = default;
};

/// What knows places at which captions start or end well.
class SnapPoints {
 public:
  virtual ~SnapPoints() = default;

  /// Appends the places for an edge between two times, in ms, both included.
  virtual void Find(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const = 0;
};

/// What a house asks of edges near others, in ms.
struct EdgeRules {
  Ms leastGap = 0;    ///< between captions
  Ms shotZone = 0;    ///< an edge this near to a shot belongs to it
  Ms beforeShot = 0;  ///< how long before the shot a caption ends then
  Ms chainBelow = 0;  ///< a gap shorter than this is closed up to the least one

  bool operator==(const EdgeRules&) const = default;
};

}  // namespace cuewright

#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "audio/snap_points.h"
#include "core/ms.h"

namespace cuewright {

/// The changes of shot of the film, as far as they were measured.
class ShotSnaps final : public SnapPoints {
 public:
  /// The ms at which shots begin, in order.
  void SetShots(std::vector<Ms> shots) { shots_ = std::move(shots); }
  const std::vector<Ms>& Shots() const { return shots_; }
  void SetRules(const EdgeRules& rules) { rules_ = rules; }

  void Find(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const override;

 private:
  std::vector<Ms> shots_;
  EdgeRules rules_;
};

/// Appends what lies between two times: captions end a little before the shot, and start with it.
inline void ShotSnaps::Find(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const {
  const Ms before = edge == CaptionEdge::End ? rules_.beforeShot : 0;
  for (auto at = std::lower_bound(shots_.begin(), shots_.end(), from + before);
       at != shots_.end() && *at - before <= to; ++at) {
    found.push_back({*at - before, SnapKind::Shot});
  }
}

}  // namespace cuewright

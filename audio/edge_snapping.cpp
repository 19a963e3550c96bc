#include "audio/edge_snapping.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace cuewright {
namespace {

/// No caption becomes shorter than this.
constexpr Ms kLeastDuration = 200;

bool IsTimed(const CaptionTimes& times) { return times.start > 0 && times.end > times.start; }

class Snapper {
 public:
  Snapper(const std::vector<Ms>& shots, const EdgeRules& rules) : shots_(shots), rules_(rules) {}

  CaptionTimes ToShots(const CaptionTimes& times) const {
    CaptionTimes snapped = times;
    if (const auto shot = ShotNear(times.start)) snapped.start = std::max<Ms>(*shot, 1);
    if (const auto shot = ShotNear(times.end)) snapped.end = *shot - rules_.beforeShot;
    return IsLong(snapped) ? snapped : times;
  }

  /// The end of a caption before one that starts at `next`.
  Ms EndBefore(const CaptionTimes& times, Ms next) const {
    const Ms gap = next - times.end;
    if (gap < 0 || gap == rules_.leastGap || (gap > rules_.leastGap && gap >= rules_.chainBelow)) return times.end;
    const Ms end = next - rules_.leastGap;
    const bool stays = gap > rules_.leastGap ? HasShot(times.end, end) : !IsLong({times.start, end});
    return stays ? times.end : end;
  }

 private:
  static bool IsLong(const CaptionTimes& times) { return times.end - times.start >= kLeastDuration; }

  std::optional<Ms> ShotNear(Ms ms) const {
    const auto behind = std::ranges::lower_bound(shots_, ms);
    std::optional<Ms> nearest;
    if (behind != shots_.end()) nearest = *behind;
    if (behind != shots_.begin() && (!nearest || ms - *(behind - 1) <= *nearest - ms)) nearest = *(behind - 1);
    return nearest && Abs(*nearest - ms) < rules_.shotZone ? nearest : std::nullopt;
  }

  /// A caption that ends at `end` and went on to `to` would be seen over a change of shot, or too near to one.
  bool HasShot(Ms end, Ms to) const {
    const auto shot = std::ranges::lower_bound(shots_, end);
    return shot != shots_.end() && *shot - rules_.beforeShot < to;
  }

  const std::vector<Ms>& shots_;
  const EdgeRules& rules_;
};

}  // namespace

std::vector<CaptionTimes> SnapEdges(std::span<const CaptionTimes> times, const std::vector<bool>& wanted,
                                    const std::vector<Ms>& shots, const EdgeRules& rules) {
  const Snapper snapper(shots, rules);
  std::vector<CaptionTimes> snapped(times.begin(), times.end());
  for (std::size_t i = 0; i < snapped.size(); ++i) {
    if (wanted[i] && IsTimed(snapped[i])) snapped[i] = snapper.ToShots(snapped[i]);
  }
  for (std::size_t i = 0; i + 1 < snapped.size(); ++i) {
    if (!wanted[i] || !IsTimed(snapped[i]) || !IsTimed(snapped[i + 1])) continue;
    snapped[i].end = snapper.EndBefore(snapped[i], snapped[i + 1].start);
  }
  return snapped;
}

}  // namespace cuewright

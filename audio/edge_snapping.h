#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "audio/snap_points.h"
#include "core/caption_list.h"

namespace cuewright {

/// The times of captions, in order of their rows, as a house wants their edges: those near a shot go to it, gaps that
/// are too short become as long as the least, and short ones are closed up to it, unless a shot lies in them. Captions
/// without times, and those that aren't `wanted`, stay; so does one that would lose its duration. `shots` are in order.
std::vector<CaptionTimes> SnapEdges(std::span<const CaptionTimes> times, const std::vector<bool>& wanted,
                                    const std::vector<Ms>& shots, const EdgeRules& rules);

}  // namespace cuewright

#include "audio/board_captions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace cuewright {
namespace {

/// Pixels around an edge that take hold of it; a narrow caption keeps half of itself to be moved by.
constexpr int kGrip = 4;
/// A caption narrower than this shows no findings, and they aren't looked for: a picture of hours would ask for those
/// of all captions.
constexpr int kLeastForFindings = 3;

int PixelOf(const WaveScale& scale, Ms ms) {
  // What lies far outside is as good as just outside.
  constexpr double kFar = 1e6;
  return static_cast<int>(std::floor(std::clamp(scale.XOf(ms), -kFar, kFar)));
}

}  // namespace

void BoardCaptions::Build(const WaveScale& scale, const BoardDrag* drag) {
  blocks_.clear();
  overlaps_.clear();
  Collect(scale, drag);
  const auto earlier = [](const BoardBlock& a, const BoardBlock& b) { return a.times.start < b.times.start; };
  if (!std::ranges::is_sorted(blocks_, earlier)) std::ranges::stable_sort(blocks_, earlier);
  PlaceLanes(scale);
}

void BoardCaptions::Collect(const WaveScale& scale, const BoardDrag* drag) {
  lastEnd_ = 0;
  const double from = scale.Left();
  const double to = scale.Right();
  for (Row row = 1; row < list_.Rows(); ++row) {
    const CaptionTimes* const moved = drag != nullptr ? drag->TimesOf(row) : nullptr;
    const CaptionTimes times = moved != nullptr ? *moved : list_.TimesAt(row);
    if (times.start <= 0 || times.end <= times.start) continue;
    lastEnd_ = std::max(lastEnd_, times.end);
    if (times.end.Count() <= from || times.start.Count() >= to) continue;
    const int left = PixelOf(scale, times.start);
    const int right = std::max(PixelOf(scale, times.end), left + 1);
    const bool found = right - left >= kLeastForFindings && grid_.HasFindings(row);
    blocks_.push_back({row, times, left, right, false, list_.SelectedRows().Has(row), found});
  }
}

void BoardCaptions::PlaceLanes(const WaveScale& scale) {
  hasLower_ = false;
  Ms upperEnd = 0;
  Ms latestEnd = 0;
  for (BoardBlock& block : blocks_) {
    block.lower = block.times.start < upperEnd;
    hasLower_ = hasLower_ || block.lower;
    if (block.times.start < latestEnd) {
      const int right = PixelOf(scale, std::min(block.times.end, latestEnd));
      overlaps_.push_back({block.left, std::max(right, block.left + 1)});
    }
    if (!block.lower) upperEnd = block.times.end;
    latestEnd = std::max(latestEnd, block.times.end);
  }
}

BoardHit BoardCaptions::At(int x, Ms gap, bool single) const {
  const BoardBlock* body = nullptr;
  const BoardBlock* starts = nullptr;
  const BoardBlock* ends = nullptr;
  const auto nearer = [&](const BoardBlock* old, int oldX, const BoardBlock& block, int edge) {
    if (old == nullptr || block.selected != old->selected) return old == nullptr || block.selected;
    return std::abs(x - edge) < std::abs(x - oldX);
  };
  for (const BoardBlock& block : blocks_) {
    const int grip = std::min(kGrip, std::max(block.Width() / 4, 1));
    if (std::abs(x - block.left) <= grip && nearer(starts, starts ? starts->left : 0, block, block.left))
      starts = &block;
    if (std::abs(x - block.right) <= grip && nearer(ends, ends ? ends->right : 0, block, block.right)) ends = &block;
    if (x >= block.left && x < block.right && (body == nullptr || block.selected || !body->selected)) body = &block;
  }
  if (starts != nullptr && ends != nullptr && !single && starts != ends) {
    const Ms between = starts->times.start - ends->times.end;
    if (between >= 0 && between <= gap) return {BoardPart::Border, ends->row, starts->row};
  }
  if (starts != nullptr && ends != nullptr) {
    // Between two edges the side tells: the end lies to the left of a border.
    const bool start = starts == ends ? x - starts->left < ends->right - x : x >= (ends->right + starts->left + 1) / 2;
    (start ? ends : starts) = nullptr;
  }
  if (starts != nullptr) return {BoardPart::Start, starts->row, 0};
  if (ends != nullptr) return {BoardPart::End, ends->row, 0};
  if (body != nullptr) return {BoardPart::Body, body->row, 0};
  return {};
}

}  // namespace cuewright

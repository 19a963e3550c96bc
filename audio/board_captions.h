#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "audio/board_drag.h"
#include "audio/wave_scale.h"
#include "capture/caption_grid.h"
#include "core/caption_list.h"

namespace cuewright {

/// A caption in the picture of the wave, in pixels of it.
struct BoardBlock {
  Row row = 0;
  CaptionTimes times;
  int left = 0;
  int right = 0;       ///< behind its last pixel
  bool lower = false;  ///< it stands below another that it overlaps
  bool selected = false;
  bool found = false;  ///< house rules find something

  int Width() const { return right - left; }
};

/// A stretch of pixels, `right` not with it.
struct BoardSpan {
  int left = 0;
  int right = 0;
};

/// The captions that a picture of the wave shows.
class BoardCaptions {
 public:
  BoardCaptions(const CaptionList& list, const CaptionGrid& grid) : list_(list), grid_(grid) {}

  /// Finds what the picture shows; `drag` tells times that captions would get.
  void Build(const WaveScale& scale, const BoardDrag* drag);

  /// By their starts.
  const std::vector<BoardBlock>& Blocks() const { return blocks_; }
  /// Where two captions stand at once.
  const std::vector<BoardSpan>& Overlaps() const { return overlaps_; }
  bool HasLower() const { return hasLower_; }
  /// When the last one ends.
  Ms LastEnd() const { return lastEnd_; }

  /// What lies at a pixel. Edges within a few pixels go before what they bound, and among them those of selected
  /// captions. Two captions with at most `gap` ms between them have a border, which `single` takes for two edges.
  BoardHit At(int x, Ms gap, bool single) const;

 private:
  void Collect(const WaveScale& scale, const BoardDrag* drag);
  void PlaceLanes(const WaveScale& scale);

  const CaptionList& list_;
  const CaptionGrid& grid_;
  std::vector<BoardBlock> blocks_;
  std::vector<BoardSpan> overlaps_;
  Ms lastEnd_ = 0;
  bool hasLower_ = false;
};

}  // namespace cuewright

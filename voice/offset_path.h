#pragma once

#include <functional>
#include <span>
#include <vector>

#include "voice/offset_scores.h"

namespace cuewright {

/// The move that one caption takes on the best way through all of them.
struct OffsetChoice {
  std::size_t place = 0;  ///< of the grid
  float margin = 0;       ///< how much worse the best way is that has this caption elsewhere
};

/// The best way of captions, sorted by their starts, over the places of a grid. Each caption keeps the move of the one
/// before or pays for another move, less when the two are far apart, and never passes the one before.
class OffsetPath {
 public:
  OffsetPath(const OffsetScores& scores, std::span<const CaptionTimes> captions, double ratio, float price);

  /// The worth of the best way.
  float Best() const;

  /// The choice of each caption on the best way; `elsewhereMs` is how far a caption must lie from its place to lie
  /// elsewhere.
  std::vector<OffsetChoice> Choices(int elsewhereMs) const;

 private:
  using Places = std::vector<float>;

  /// The price of another move between a caption and the one before it.
  float PriceBefore(std::size_t caption) const;
  std::size_t PlacesBetween(std::size_t caption) const;
  void Score(std::size_t caption, Places& scores) const;
  /// Makes the best worth up to a caption from the best worth up to the caption before it.
  void Forward(std::size_t caption, const Places& scores, Places& best) const;
  /// Makes the best worth behind the caption before this one from the best worth from this one on.
  void Backward(std::size_t caption, Places& best) const;

  const OffsetScores& scores_;
  std::span<const CaptionTimes> captions_;
  double ratio_;
  float price_;
};

}  // namespace cuewright

#pragma once

#include <functional>
#include <span>
#include <vector>

#include "voice/offset_scores.h"

namespace cuewright {

/// The move that one caption takes on the best way through all of them.
struct OffsetChoice {
  std::size_t place = 0;  ///< of the grid
  float margin = 0;       ///< how much worse the best way is on which this caption lies elsewhere
};

/// The best way of captions, sorted by their starts, over the places of a grid: each keeps the move of the one before
/// or pays for another one, and never passes it. Captions far apart pay less.
class OffsetPath {
 public:
  OffsetPath(const OffsetScores& scores, std::span<const CaptionTimes> captions, double ratio, float price);

  /// What the best way is worth.
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
  /// What is the best up to a caption, from that up to the one before it.
  void Forward(std::size_t caption, const Places& scores, Places& best) const;
  /// What is the best behind the caption before this one, from that from this one on.
  void Backward(std::size_t caption, Places& best) const;

  const OffsetScores& scores_;
  std::span<const CaptionTimes> captions_;
  double ratio_;
  float price_;
};

}  // namespace cuewright

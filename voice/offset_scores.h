#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/caption_list.h"
#include "voice/voice_likeness.h"

namespace cuewright {

/// A fraction by which times are multiplied.
struct TimeRatio {
  std::int64_t numerator = 1;
  std::int64_t denominator = 1;

  double Value() const { return static_cast<double>(numerator) / static_cast<double>(denominator); }
  bool operator==(const TimeRatio&) const = default;
};

/// What counts when a caption is laid over a voice.
struct ScoreWeights {
  float overlap = 1;  ///< weight of a voice while the caption is shown
  float onset = 1;    ///< weight of a voice that begins where the caption does
  float ending = 0;   ///< weight of a voice that ends where the caption does
};

/// How well captions lie on a voice when they are moved, for all moves of a grid at once. A score is counted in
/// standard deviations of the scores of places taken by chance.
class OffsetScores {
 public:
  /// The grid has a place every `stepMs` from `-reachMs` to `reachMs`; captions end before `lastMs`.
  OffsetScores(const VoiceTrack& voice, int stepMs, int reachMs, Ms lastMs, const ScoreWeights& weights);

  std::size_t Places() const { return places_; }
  int StepMs() const { return stepMs_; }
  /// The move of a place in ms.
  int MoveOf(std::size_t place) const { return (static_cast<int>(place) - reach_) * stepMs_; }
  /// The place of a move within reach.
  std::size_t PlaceOf(int ms) const { return (ms + reach_ * stepMs_) / stepMs_; }

  /// Adds to `scores`, by place, those of a caption whose times are multiplied by a ratio.
  void Add(const CaptionTimes& caption, double ratio, std::span<float> scores) const;

  /// The usual size of a score at a place taken by chance, by which `Add` divides.
  void SetUnit(float unit) { scale_ = 1 / unit; }

 private:
  std::ptrdiff_t PlaceOfTime(double ms) const;

  int stepMs_;
  int reach_;  ///< steps to either side
  std::size_t places_;
  ScoreWeights weights_;
  float scale_ = 1;
  std::ptrdiff_t pad_;       ///< steps before the film's beginning
  std::vector<float> sums_;  ///< sum of the voice up to each step
};

}  // namespace cuewright

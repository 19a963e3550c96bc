#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "voice/fit_voice_model.h"

namespace cuewright {

/// Log likelihoods of the steps of a window in which a voice begins or ends.
struct EdgeEvidence {
  std::ptrdiff_t first = 0;    ///< the step of the first value
  std::vector<double> values;  ///< up to a constant

  /// The value of a step; far below all others outside the window.
  double At(std::ptrdiff_t step) const {
    constexpr double kOutside = -1e9;
    const std::ptrdiff_t place = step - first;
    return place < 0 || place >= std::ssize(values) ? kOutside : values[place];
  }
  /// The step that a value is of.
  std::ptrdiff_t StepOf(std::ptrdiff_t place) const { return first + place; }
};

/// The weight of a likelihood that was added up over steps, since these are far from independent of each other.
struct EdgeTrust {
  static constexpr double kAlone = 0.065;     ///< nothing but the voice's beginning or end is known
  static constexpr double kWithWords = 0.05;  ///< the caption's own words are known as well
};

/// How well the steps of a window divide sound without a voice from sound with one: before and behind a start,
/// the other way round at an end.
EdgeEvidence StartEvidence(const VoiceModel& model, std::ptrdiff_t first, std::size_t count, double trust);
EdgeEvidence EndEvidence(const VoiceModel& model, std::ptrdiff_t first, std::size_t count, double trust);

/// The part of a voice that noise drowns.
enum class Drowned : std::uint8_t { Start, End };

/// Allows for a start or end that noise drowns: the voice begins or ends so many steps, in the mean, before or behind
/// the first or last sound of it that is heard.
void AddDrowned(EdgeEvidence& edge, double length, Drowned side);

/// Where a voice begins or ends by all that is known.
struct EdgeGuess {
  double ms = 0;
  double confidence = 0;  ///< the probability of +-50 ms
  double risk = 0;        ///< the probability that the guess is more than a frame further off than the usual place
};
/// `usualMs` is where the edge is held to be without what was heard: the guess is no further from there than that the
/// risk stays within `mostRisk`.
EdgeGuess GuessEdge(const EdgeEvidence& evidence, double usualMs, double mostRisk);

}  // namespace cuewright

#include "voice/fit_edge.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr std::ptrdiff_t kSight = 40;  ///< steps to each side that tell of an edge
constexpr double kNear = 5.5;          ///< steps
constexpr double kBack = 0.5;
constexpr double kLeastProbability = 1e-9;

/// The evidence as probabilities.
std::vector<double> Probabilities(const std::vector<double>& values) {
  std::vector<double> all = values;
  const double most = std::ranges::max(all);
  double sum = 0;
  for (double& value : all) sum += value = std::exp(value - most);
  for (double& value : all) value /= sum;
  return all;
}

EdgeEvidence ChangeEvidence(const VoiceModel& model, std::ptrdiff_t first, std::size_t count, double weight) {
  const auto steps = static_cast<std::size_t>(2 * kSight) + count;
  std::vector<double> sums(steps + 1, 0);
  for (std::size_t step = 0; step < steps; ++step) {
    sums[step + 1] = sums[step] + model.Voice(first - kSight + static_cast<std::ptrdiff_t>(step));
  }
  EdgeEvidence evidence{first, std::vector<double>(count)};
  constexpr auto kSteps = static_cast<std::size_t>(kSight);
  for (std::size_t place = 0; place < count; ++place) {
    const double before = sums[place + kSteps] - sums[place];
    const double behind = sums[place + 2 * kSteps] - sums[place + kSteps];
    evidence.values[place] = weight * (behind - before);
  }
  return evidence;
}

/// The probability that an edge is nearer to the usual place than to the guess, by a frame of 24 a second less what the
/// usual place is uncertain by.
double RiskOf(const std::vector<double>& probability, double usual, double guess) {
  constexpr double kFrameSteps = 3.5;
  const double apart = std::abs(guess - usual);
  if (apart <= kFrameSteps) return 0;
  double risk = 0;
  for (std::size_t place = 0; place < probability.size(); ++place) {
    const double at = static_cast<double>(place);
    if (std::abs(at - guess) > std::abs(at - usual) + kFrameSteps) risk += probability[place];
  }
  return risk;
}

}  // namespace

EdgeEvidence StartEvidence(const VoiceModel& model, std::ptrdiff_t first, std::size_t count, double trust) {
  return ChangeEvidence(model, first, count, trust);
}

EdgeEvidence EndEvidence(const VoiceModel& model, std::ptrdiff_t first, std::size_t count, double trust) {
  return ChangeEvidence(model, first, count, -trust);
}

void AddDrowned(EdgeEvidence& edge, double length, Drowned side) {
  const std::size_t count = edge.values.size();
  std::vector<double> tail(count);
  double sum = 0;
  for (std::size_t step = 0; step < count; ++step) sum += tail[step] = std::exp(-static_cast<double>(step) / length);
  const std::vector<double> told = Probabilities(edge.values);
  std::vector<double> all(count, 0);
  for (std::size_t at = 0; at < count; ++at) {
    for (std::size_t step = 0; at + step < count; ++step) {
      const bool end = side == Drowned::End;
      all[end ? at + step : at] += told[end ? at : at + step] * tail[step] / sum;
    }
  }
  for (std::size_t at = 0; at < count; ++at) edge.values[at] = std::log(all[at] + kLeastProbability);
}

EdgeGuess GuessEdge(const EdgeEvidence& evidence, double usualMs, double mostRisk) {
  const std::vector<double> probability = Probabilities(evidence.values);
  // The median errs least in the mean, and between the steps it is finer than they are.
  std::size_t middle = 0;
  double before = 0;
  while (middle + 1 < probability.size() && before + probability[middle] < 0.5) before += probability[middle++];
  const double within = std::clamp((0.5 - before) / std::max(probability[middle], kLeastProbability), 0.0, 1.0) - 0.5;
  const double first = static_cast<double>(evidence.first);
  const double usual = usualMs / SoundTable::kStepMs - first;
  double place = static_cast<double>(middle) + within;
  EdgeGuess guess;
  const double back = place > usual ? -kBack : kBack;
  while ((guess.risk = RiskOf(probability, usual, place)) > mostRisk) place += back;
  guess.ms = (first + place) * SoundTable::kStepMs;
  for (std::size_t step = 0; step < probability.size(); ++step) {
    if (std::abs(static_cast<double>(step) - place) <= kNear) guess.confidence += probability[step];
  }
  guess.confidence = std::min(guess.confidence, 1.0);
  return guess;
}

}  // namespace cuewright

#include "voice/fit_edge.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kSight = 40;     ///< steps to each side that tell of an edge
constexpr double kNear = 5.5;  ///< steps
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
  const std::size_t steps = 2 * kSight + count;
  std::vector<double> sums(steps + 1, 0);
  std::ptrdiff_t heard = first - kSight;
  for (std::size_t step = 0; step < steps; ++step, ++heard) sums[step + 1] = sums[step] + model.Voice(heard);
  EdgeEvidence evidence{first, std::vector<double>(count)};
  for (std::size_t place = 0; place < count; ++place) {
    const double before = sums[place + kSight] - sums[place];
    const double behind = sums[place + 2 * kSight] - sums[place + kSight];
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
  for (int at = 0; at < CountOf(probability); ++at) {
    if (std::abs(at - guess) > std::abs(at - usual) + kFrameSteps) risk += ItemAt(probability, at);
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
  const int count = CountOf(edge.values);
  std::vector<double> tail(edge.values.size());
  double sum = 0;
  for (int step = 0; step < count; ++step) sum += tail[step] = std::exp(-step / length);
  const std::vector<double> told = Probabilities(edge.values);
  std::vector<double> all(edge.values.size(), 0);
  for (int at = 0; at < count; ++at) {
    for (int step = 0; at + step < count; ++step) {
      const bool end = side == Drowned::End;
      all[end ? at + step : at] += told[end ? at : at + step] * tail[step] / sum;
    }
  }
  for (int at = 0; at < count; ++at) edge.values[at] = std::log(all[at] + kLeastProbability);
}

EdgeGuess GuessEdge(const EdgeEvidence& evidence, double usualMs, double mostRisk) {
  const std::vector<double> probability = Probabilities(evidence.values);
  // Of all guesses the median errs least in the mean; it is interpolated between the steps.
  int middle = 0;
  double before = 0;
  while (middle + 1 < CountOf(probability) && before + probability[middle] < 0.5) before += probability[middle++];
  const double within = std::clamp((0.5 - before) / std::max(probability[middle], kLeastProbability), 0.0, 1.0) - 0.5;
  const double first = static_cast<double>(evidence.first);
  const double usual = usualMs / SoundTable::kStepMs - first;
  double place = middle + within;
  EdgeGuess guess;
  const double back = place > usual ? -kBack : kBack;
  while ((guess.risk = RiskOf(probability, usual, place)) > mostRisk) place += back;
  guess.ms = (first + place) * SoundTable::kStepMs;
  for (int step = 0; step < CountOf(probability); ++step) {
    if (std::abs(step - place) <= kNear) guess.confidence += probability[step];
  }
  guess.confidence = std::min(guess.confidence, 1.0);
  return guess;
}

}  // namespace cuewright

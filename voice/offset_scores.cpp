#include "voice/offset_scores.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kBesideMs = 240;        ///< that are compared before and behind the beginning of a voice
constexpr int kMostOverlapMs = 3500;  ///< a longer caption says no more than such a one
constexpr float kOutside = -0.25F;    ///< the voice before and behind the film
constexpr float kOverlapNorm = 0.5F;  ///< an onset counts as much as so many seconds of overlap

/// The track in steps of a grid, less its mean.
std::vector<float> Centred(const VoiceTrack& voice, std::size_t width) {
  std::vector<float> steps(voice.size() / width);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const auto from = voice.begin() + i * width;
    steps[i] = std::accumulate(from, from + width, 0.0F) / static_cast<float>(width);
  }
  const double mean = steps.empty() ? 0 : std::accumulate(steps.begin(), steps.end(), 0.0) / CountOf(steps);
  for (float& step : steps) step -= static_cast<float>(mean);
  return steps;
}

}  // namespace

OffsetScores::OffsetScores(const VoiceTrack& voice, int stepMs, int reachMs, Ms lastMs, const ScoreWeights& weights)
    : stepMs_(stepMs), reach_(reachMs / stepMs), places_(2 * reach_ + 1), weights_(weights) {
  const std::vector<float> steps = Centred(voice, stepMs / SoundTable::kStepMs);
  const std::ptrdiff_t beside = kBesideMs / stepMs + 2;
  pad_ = reach_ + beside;
  const std::ptrdiff_t length = pad_ * 2 + std::max<std::ptrdiff_t>(steps.size(), lastMs.Count() / stepMs + 2);
  sums_.resize(length + 1);
  double sum = 0;
  for (std::ptrdiff_t i = 0; i < length; ++i) {
    const std::ptrdiff_t step = i - pad_;
    const bool inside = step >= 0 && step < std::ssize(steps);
    sum += inside ? steps[step] : kOutside;
    sums_[i + 1] = static_cast<float>(sum);
  }
}

std::ptrdiff_t OffsetScores::PlaceOfTime(double ms) const {
  const std::ptrdiff_t most = std::ssize(sums_) - 2 - pad_ - reach_ - kBesideMs / stepMs_;
  return std::clamp<std::ptrdiff_t>(std::lround(ms / stepMs_), 0, most);
}

void OffsetScores::Add(const CaptionTimes& caption, double ratio, std::span<float> scores) const {
  const std::ptrdiff_t start = PlaceOfTime(caption.start.Count() * ratio);
  const std::ptrdiff_t longest = kMostOverlapMs / stepMs_;
  const std::ptrdiff_t end = std::clamp(PlaceOfTime(caption.end.Count() * ratio), start + 1, start + longest);
  const std::ptrdiff_t beside = kBesideMs / stepMs_;
  const float step = static_cast<float>(stepMs_) / 1000;
  const float overlap = scale_ * weights_.overlap * step;
  const float onset = scale_ * weights_.onset * kOverlapNorm / static_cast<float>(beside);
  const float ending = scale_ * weights_.ending * kOverlapNorm / static_cast<float>(beside);
  struct Tap {
    std::ptrdiff_t at;
    float weight;
  };
  const std::array<Tap, 6> taps = {{{start - beside, onset},
                                    {start, -2 * onset - overlap},
                                    {start + beside, onset},
                                    {end - beside, -ending},
                                    {end, 2 * ending + overlap},
                                    {end + beside, -ending}}};
  for (const Tap& tap : taps) {
    if (tap.weight == 0) continue;
    const float* const sums = sums_.data() + (tap.at + pad_ - reach_);
    for (std::size_t place = 0; place < scores.size(); ++place) scores[place] += tap.weight * sums[place];
  }
}

}  // namespace cuewright

#include "voice/fit_words.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"
#include "voice/band_levels.h"

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;
constexpr float kMostMismatch =
    10;  ///< dB of a band; a greater difference says no more than that something else is heard
constexpr float kShareOfChange = 0.5F;
constexpr float kUsualChange = 6;      ///< dB by which the changes of two unlike sounds differ
constexpr std::ptrdiff_t kChange = 3;  ///< steps to each side
constexpr float kUnevenPace = 1.5F;    ///< cost of repeating a step of the words or leaving one out
constexpr float kGap = 6;              ///< cost of a step in which nobody speaks, as far as the bands tell nothing
constexpr float kVoiceInGap = 2;
constexpr double kTrust = 0.05;  ///< log likelihood of a unit of cost; steps are far from independent
constexpr float kNever = 1e9F;
constexpr std::size_t kMostWords = 1200;  ///< steps, 12 s
constexpr std::ptrdiff_t kFewestWords = 6;
constexpr double kLoud = 0.85;
constexpr double kLoudest = 0.92;
constexpr double kQuiet = 0.15;
constexpr float kFullContrast = 20;
constexpr std::ptrdiff_t kMargin = 10;

template <class Level>
float Quantile(StepSpan span, double share, Level&& level) {
  std::vector<float> values;
  for (std::ptrdiff_t step = span.first; step < span.last; ++step) values.push_back(level(step));
  if (values.empty()) return 0;
  const auto place = values.begin() + static_cast<std::ptrdiff_t>(share * (CountOf(values) - 1));
  std::ranges::nth_element(values, place);
  return *place;
}

StepSpan Within(StepSpan span, std::size_t steps) {
  const std::ptrdiff_t count = steps;
  return {std::clamp<std::ptrdiff_t>(span.first, 0, count), std::clamp<std::ptrdiff_t>(span.last, 0, count)};
}

/// The level of words at a place between two steps.
float LevelAt(const SoundTable& words, double place, std::size_t band) {
  const double last = static_cast<double>(words.Steps() - 1);
  const double at = std::clamp(place, 0.0, last);
  const auto step = static_cast<std::size_t>(at);
  const auto next = std::min(step + 1, words.Steps() - 1);
  const auto share = static_cast<float>(at - static_cast<double>(step));
  return words.Db(step, band) * (1 - share) + words.Db(next, band) * share;
}

void AddEvidence(EdgeEvidence& edge, const std::vector<float>& costs) {
  for (std::size_t place = 0; place < costs.size(); ++place) edge.values[place] = -kTrust * double{costs[place]};
}

}  // namespace

SoundLevels::SoundLevels(const SoundTable& sound, StepSpan span) {
  const StepSpan part = Within(span, sound.Steps());
  for (std::size_t band = 0; band < kBands; ++band) {
    const auto level = [&](std::size_t step) { return sound.Db(step, band); };
    quiet[band] = Quantile(part, kQuiet, level);
    loud[band] = Quantile(part, kLoudest, level);
  }
}

WordsAlignment::WordsAlignment(const SoundTable& sound, const VoiceModel& model, const SoundLevels& levels,
                               StepSpan alone)
    : sound_(sound), model_(model), levels_(levels), alone_(alone) {
  // A band in which the noise drowns the voice tells little.
  float sum = 0;
  for (std::size_t band = 0; band < kBands; ++band) {
    weight_[band] = std::clamp((levels.loud[band] - levels.quiet[band]) / kFullContrast, 0.2F, 1.0F);
    sum += weight_[band];
  }
  for (float& weight : weight_) weight /= sum;
}

void WordsAlignment::TakeWords(const SoundTable& words, std::size_t count, StepSpan held) {
  const StepSpan heard = Within(held, sound_.Steps());
  const std::ptrdiff_t all = words.Steps();
  std::vector<std::array<float, kBands>> levels(count);
  for (std::size_t band = 0; band < kBands; ++band) {
    // The words are made as loud as the voice; below the noise they can't be heard.
    const float gain = Quantile(heard, kLoud, [&](auto step) { return sound_.Db(step, band); }) -
                       Quantile({0, all}, kLoud, [&](auto step) { return words.Db(step, band); });
    const double pace = static_cast<double>(words.Steps()) / static_cast<double>(count);
    for (std::size_t word = 0; word < count; ++word) {
      const double place = (static_cast<double>(word) + 0.5) * pace - 0.5;
      levels[word][band] = std::max(LevelAt(words, place, band) + gain, levels_.quiet[band]);
    }
  }
  words_.resize(count);
  for (std::size_t word = 0; word < count; ++word) {
    for (std::size_t band = 0; band < kBands; ++band) {
      words_[word][band] = levels[word][band];
      const float behind = word + kChange < count ? levels[word + kChange][band] : levels_.quiet[band];
      const float before = word >= kChange ? levels[word - kChange][band] : levels_.quiet[band];
      words_[word][kBands + band] = behind - before;
    }
  }
}

void WordsAlignment::TakeWindow(std::ptrdiff_t first, std::size_t count) {
  const auto level = [&](std::ptrdiff_t step, std::size_t band) {
    const std::ptrdiff_t last = sound_.Steps() - 1;
    return sound_.Db(std::clamp<std::ptrdiff_t>(step, 0, last), band);
  };
  first_ = first;
  window_.resize(count);
  gap_.assign(count + 1, 0);
  for (std::size_t place = 0; place < count; ++place) {
    const std::ptrdiff_t step = StepOf(place);
    for (std::size_t band = 0; band < kBands; ++band) {
      window_[place][band] = level(step, band);
      window_[place][kBands + band] = level(step + kChange, band) - level(step - kChange, band);
    }
    const double voice = model_.Voice(step);
    const bool alone = step >= alone_.first && step < alone_.last;
    gap_[place + 1] = gap_[place] + kGap + kVoiceInGap * static_cast<float>(alone ? voice : std::min(voice, 0.0));
  }
}

void WordsAlignment::Compare() {
  mismatch_.resize(window_.size() * words_.size());
  for (std::size_t place = 0; place < window_.size(); ++place) {
    const Features& heard = window_[place];
    for (std::size_t word = 0; word < words_.size(); ++word) {
      const Features& spoken = words_[word];
      float sum = 0;
      for (std::size_t band = 0; band < kBands; ++band) {
        const float level = std::min(kMostMismatch, std::abs(heard[band] - spoken[band]));
        const float change = std::min(kMostMismatch, std::abs(heard[kBands + band] - spoken[kBands + band]));
        sum += weight_[band] * (level + kShareOfChange * (change - kUsualChange));
      }
      CostAt(mismatch_, place, word) = sum;
    }
  }
}

void WordsAlignment::Forward(const EdgeEvidence& start) {
  costs_.assign(mismatch_.size(), kNever);
  for (std::size_t place = 0; place < window_.size(); ++place) {
    for (std::size_t word = 0; word < words_.size(); ++word) {
      float best = kNever;
      if (word == 0) best = gap_[place] - static_cast<float>(start.At(StepOf(place)) / kTrust);
      if (place > 0) {
        best = std::min(best, CostAt(costs_, place - 1, word) + kUnevenPace);
        if (word > 0) best = std::min(best, CostAt(costs_, place - 1, word - 1));
        if (word > 1) best = std::min(best, CostAt(costs_, place - 1, word - 2) + kUnevenPace);
      }
      if (best < kNever) CostAt(costs_, place, word) = best + CostAt(mismatch_, place, word);
    }
  }
}

void WordsAlignment::Backward(const EdgeEvidence& end) {
  costs_.assign(mismatch_.size(), kNever);
  const std::size_t last = words_.size() - 1;
  for (std::size_t place = window_.size(); place-- > 0;) {
    for (std::size_t word = words_.size(); word-- > 0;) {
      float best = kNever;
      if (word == last) {
        best = gap_.back() - gap_[place + 1] - static_cast<float>(end.At(StepOf(place) + 1) / kTrust);
      }
      if (place + 1 < window_.size()) {
        best = std::min(best, CostAt(costs_, place + 1, word) + kUnevenPace);
        if (word < last) best = std::min(best, CostAt(costs_, place + 1, word + 1));
        if (word + 1 < last) best = std::min(best, CostAt(costs_, place + 1, word + 2) + kUnevenPace);
      }
      if (best < kNever) CostAt(costs_, place, word) = best + CostAt(mismatch_, place, word);
    }
  }
}

bool WordsAlignment::Align(const SoundTable& words, StepSpan held, EdgeEvidence& start, EdgeEvidence& end) {
  const std::size_t count = std::max<std::ptrdiff_t>(held.last - held.first, 0);
  if (std::min(words.Steps(), count) < kFewestWords || count > kMostWords) return false;
  const StepSpan window = Within({start.first - kMargin, end.first + std::ssize(end.values) + kMargin}, sound_.Steps());
  if (window.last - window.first < kFewestWords) return false;
  TakeWords(words, count, held);
  TakeWindow(window.first, window.last - window.first);
  Compare();

  Forward(start);
  std::vector<float> endCosts(end.values.size(), kNever);
  for (std::size_t place = 0; place < endCosts.size(); ++place) {
    const std::ptrdiff_t step = end.StepOf(place) - 1 - window.first;
    if (step < 0 || step >= window.last - window.first) continue;
    endCosts[place] =
        CostAt(costs_, step, count - 1) + gap_.back() - gap_[step + 1] - static_cast<float>(end.values[place] / kTrust);
  }
  Backward(end);
  std::vector<float> startCosts(start.values.size(), kNever);
  for (std::size_t place = 0; place < startCosts.size(); ++place) {
    const std::ptrdiff_t step = start.StepOf(place) - window.first;
    if (step < 0 || step >= window.last - window.first) continue;
    startCosts[place] = CostAt(costs_, step, 0) + gap_[step] - static_cast<float>(start.values[place] / kTrust);
  }
  if (std::ranges::min(startCosts) >= kNever || std::ranges::min(endCosts) >= kNever) return false;
  AddEvidence(start, startCosts);
  AddEvidence(end, endCosts);
  return true;
}

}  // namespace cuewright

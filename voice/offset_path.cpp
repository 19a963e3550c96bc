#include "voice/offset_path.h"

#include <algorithm>
#include <limits>

namespace cuewright {
namespace {

constexpr std::size_t kBlock = 64;  ///< captions between two whose ways are kept
constexpr double kUsualGapMs = 1000;
constexpr double kLongGapMs = 8000;
constexpr float kLongGapRebate = 0.35F;

OffsetChoice ChoiceAmong(const std::vector<float>& before, const std::vector<float>& behind, std::size_t apart) {
  OffsetChoice choice;
  float best = -std::numeric_limits<float>::infinity();
  for (std::size_t place = 0; place < before.size(); ++place) {
    const float worth = before[place] + behind[place];
    if (worth > best) best = worth, choice.place = place;
  }
  float other = -std::numeric_limits<float>::infinity();
  for (std::size_t place = 0; place < before.size(); ++place) {
    if (place + apart > choice.place && place < choice.place + apart) continue;
    other = std::max(other, before[place] + behind[place]);
  }
  choice.margin = best - other;
  return choice;
}

}  // namespace

OffsetPath::OffsetPath(const OffsetScores& scores, std::span<const CaptionTimes> captions, double ratio, float price)
    : scores_(scores), captions_(captions), ratio_(ratio), price_(price) {}

float OffsetPath::PriceBefore(std::size_t caption) const {
  const double gap = (captions_[caption].start - captions_[caption - 1].end).Count() * ratio_;
  const double length = std::clamp((gap - kUsualGapMs) / (kLongGapMs - kUsualGapMs), 0.0, 1.0);
  return price_ * (1 - kLongGapRebate * static_cast<float>(length));
}

std::size_t OffsetPath::PlacesBetween(std::size_t caption) const {
  const double between = (captions_[caption].start - captions_[caption - 1].start).Count() * ratio_ / scores_.StepMs();
  return static_cast<std::size_t>(std::clamp(between, 0.0, static_cast<double>(scores_.Places())));
}

void OffsetPath::Score(std::size_t caption, Places& scores) const {
  std::ranges::fill(scores, 0.0F);
  scores_.Add(captions_[caption], ratio_, scores);
}

void OffsetPath::Forward(std::size_t caption, const Places& scores, Places& best) const {
  if (caption > 0) {
    const float price = PriceBefore(caption);
    const std::size_t apart = PlacesBetween(caption);
    const std::size_t count = best.size();
    float highest = *std::max_element(best.begin(), best.begin() + std::min(apart, count));
    // The place that is read is always ahead of the one that is written.
    Places fresh(count);
    for (std::size_t place = 0; place < count; ++place) {
      if (place + apart < count) highest = std::max(highest, best[place + apart]);
      fresh[place] = std::max(best[place], highest - price);
    }
    best.swap(fresh);
  }
  for (std::size_t place = 0; place < best.size(); ++place) best[place] += scores[place];
}

void OffsetPath::Backward(std::size_t caption, Places& best) const {
  const float price = PriceBefore(caption);
  const std::size_t apart = PlacesBetween(caption);
  const std::size_t count = best.size();
  float highest = -std::numeric_limits<float>::infinity();
  Places fresh(count);
  for (std::size_t place = count; place-- > 0;) {
    // The places at or behind `place - apart`.
    if (place + 1 == count) {
      for (std::size_t behind = place > apart ? place - apart : 0; behind < count; ++behind) {
        highest = std::max(highest, best[behind]);
      }
    } else if (place >= apart) {
      highest = std::max(highest, best[place - apart]);
    }
    fresh[place] = std::max(best[place], highest - price);
  }
  best.swap(fresh);
}

float OffsetPath::Best() const {
  Places best(scores_.Places());
  Places scores(scores_.Places());
  for (std::size_t caption = 0; caption < captions_.size(); ++caption) {
    Score(caption, scores);
    Forward(caption, scores, best);
  }
  return *std::ranges::max_element(best);
}

std::vector<OffsetChoice> OffsetPath::Choices(int elsewhereMs) const {
  const std::size_t count = captions_.size();
  const std::size_t apart = elsewhereMs / scores_.StepMs() + 1;
  std::vector<Places> kept;
  Places best(scores_.Places());
  Places scores(scores_.Places());
  for (std::size_t caption = 0; caption < count; ++caption) {
    if (caption % kBlock == 0) kept.push_back(best);
    Score(caption, scores);
    Forward(caption, scores, best);
  }
  // Backwards a block at a time; the ways forward within each block are computed again.
  std::vector<OffsetChoice> choices(count);
  std::vector<Places> before(kBlock);
  std::vector<Places> own(kBlock, Places(scores_.Places()));
  Places behind(scores_.Places());
  for (std::size_t block = kept.size(); block-- > 0;) {
    const std::size_t first = block * kBlock;
    const std::size_t last = std::min(count, first + kBlock);
    for (std::size_t caption = first; caption < last; ++caption) {
      Score(caption, own[caption - first]);
      Forward(caption, own[caption - first], kept[block]);
      before[caption - first] = kept[block];
    }
    for (std::size_t caption = last; caption-- > first;) {
      choices[caption] = ChoiceAmong(before[caption - first], behind, apart);
      for (std::size_t place = 0; place < behind.size(); ++place) behind[place] += own[caption - first][place];
      if (caption > 0) Backward(caption, behind);
    }
  }
  return choices;
}

}  // namespace cuewright

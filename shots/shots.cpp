#include "shots/shots.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace cuewright {
namespace {

/// Pictures on each side whose usual change a cut has to exceed.
constexpr std::size_t kAround = 6;
/// A cut is the greatest change among this many pictures on each side.
constexpr std::size_t kAlone = 2;
/// Pictures in a row that are mixtures make a fade.
constexpr std::size_t kLeastFade = 2;
/// How much of the change at the next picture has to be exceeded as if it were usual.
constexpr float kOfNext = 0.8F;
/// A change of shape by more is that of a cut.
constexpr float kSure = 0.5F;
/// How much more a fade changes than what is around it.
constexpr double kQuicker = 1.4;
/// Pictures before and behind its middle that belong to every fade.
constexpr std::size_t kLeastReach = 10;
/// Mixtures this near to each other belong to one fade.
constexpr std::size_t kOneFade = 8;

/// The middle one of the changes at some pictures.
float Usual(const std::vector<PictureMeasure>& measures, std::size_t first, std::size_t end,
            float PictureMeasure::*change) {
  std::array<float, kAround> values{};
  std::size_t count = 0;
  for (std::size_t i = first; i < end; ++i) values[count++] = measures[i].*change;
  if (count == 0) return 0;
  std::nth_element(values.begin(), values.begin() + count / 2, values.begin() + count);
  return values[count / 2];
}

class Finder {
 public:
  Finder(const std::vector<PictureMeasure>& measures, double sensitivity)
      : measures_(measures), threshold_(static_cast<float>(1 / std::max(sensitivity, 0.01))) {}

  std::vector<Shot> Find() {
    FindCuts();
    FindFades();
    std::ranges::sort(shots_, {}, &Shot::frame);
    return std::move(shots_);
  }

 private:
  /// How much a change stands out; 1 is just enough.
  float Strength(std::size_t i) const {
    const float shape = OverUsual(i, &PictureMeasure::step, measures_[i].break_, 0.16F, 1.7F);
    const float colours = OverUsual(i, &PictureMeasure::colourStep, measures_[i].colourBreak, 14.0F, 2.2F);
    return std::max({shape, colours, (shape + colours) / 1.5F});
  }

  float OverUsual(std::size_t i, float PictureMeasure::*step, float change, float least, float factor) const {
    const std::size_t from = i > kAround ? i - kAround : 1;
    const std::size_t to = std::min(i + 1 + kAround, measures_.size());
    float usual = std::max(Usual(measures_, from, i, step), Usual(measures_, i + 1, to, step));
    // A cut is one step; two of about the same size are a quick fade.
    const float next = std::max(measures_[i - 1].*step, i + 1 < measures_.size() ? measures_[i + 1].*step : 0);
    usual = std::max(usual, std::min(next, change) * kOfNext);
    return change / (least + factor * usual);
  }

  void FindCuts() {
    std::vector<float> strengths(measures_.size());
    for (std::size_t i = 1; i < measures_.size(); ++i) strengths[i] = Strength(i);
    for (std::size_t i = 1; i < measures_.size(); ++i) {
      if (strengths[i] < threshold_) continue;
      const std::size_t from = i > kAlone ? i - kAlone : 1;
      const std::size_t to = std::min(i + kAlone + 1, measures_.size());
      bool greatest = true;
      for (std::size_t j = from; j < to; ++j) greatest = greatest && (j == i || strengths[j] < strengths[i]);
      if (greatest) Add(i, ShotKind::Cut);
    }
  }

  /// A fade is a run of mixtures.
  void FindFades() {
    const float least = std::min(0.3F * threshold_, 0.95F);
    std::size_t first = 0;
    std::size_t last = 0;
    std::size_t count = 0;
    std::int32_t reach = 0;
    const auto end = [&] {
      const bool dense = count >= kLeastFade && count * 2 > last - first;
      if (dense) AddFade(first, last, static_cast<std::size_t>(reach) / 2);
      count = 0;
      reach = 0;
    };
    for (std::size_t i = 0; i < measures_.size(); ++i) {
      if (measures_[i].mix < least) continue;
      if (count != 0 && i > last + kOneFade) end();
      if (count++ == 0) first = i;
      last = i;
      reach = std::max(reach, measures_[i].span);
    }
    end();
  }

  /// The pictures from one to another change more than those around them: not a picture that changes all the time.
  bool IsQuicker(std::size_t first, std::size_t last, float PictureMeasure::*step) const {
    double inside = 0;
    for (std::size_t i = first; i <= last; ++i) inside += measures_[i].*step;
    const std::size_t away = last - first + 2 * kAround;
    const std::size_t middle = (first + last) / 2;
    const auto around = [&](std::size_t from) {
      return Usual(measures_, from, std::min(from + kAround, measures_.size()), step);
    };
    const bool before = middle > away + kAround;
    const bool behind = middle + away + kAround < measures_.size();
    // Nothing tells how the film changes otherwise.
    if (!before && !behind) return false;
    const float outside = std::max(before ? around(middle - away - kAround) : 0, behind ? around(middle + away) : 0);
    return inside > kQuicker * outside * static_cast<double>(last - first + 1);
  }

  void AddFade(std::size_t first, std::size_t last, std::size_t reach) {
    const std::size_t middle = (first + last + 1) / 2;
    if (!IsQuicker(first, last, &PictureMeasure::step) && !IsQuicker(first, last, &PictureMeasure::colourStep)) return;
    reach = std::max(reach, kLeastReach);
    // A quick beginning of a fade may stand out as a cut does, but the pictures before and behind a cut aren't alike.
    const auto sure = [&](const Shot& shot) { return measures_[static_cast<std::size_t>(shot.frame)].break_ > kSure; };
    const auto within = [](const Shot& shot, std::size_t from, std::size_t to) {
      const auto frame = static_cast<std::size_t>(shot.frame);
      return shot.kind == ShotKind::Cut && frame > from && frame < to;
    };
    const std::size_t from = middle > reach ? middle - reach : 0;
    if (std::ranges::any_of(shots_, [&](const Shot& shot) { return within(shot, first, last + 1) && sure(shot); }))
      return;
    std::erase_if(shots_, [&](const Shot& shot) { return within(shot, from, middle + reach) && !sure(shot); });
    Add(middle, ShotKind::Fade);
  }

  void Add(std::size_t i, ShotKind kind) { shots_.push_back({static_cast<std::int32_t>(i), measures_[i].us, kind}); }

  const std::vector<PictureMeasure>& measures_;
  const float threshold_;
  std::vector<Shot> shots_;
};

}  // namespace

std::vector<Shot> FindShots(const std::vector<PictureMeasure>& measures, double sensitivity) {
  return Finder(measures, sensitivity).Find();
}

}  // namespace cuewright

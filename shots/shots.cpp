#include "shots/shots.h"

#include <algorithm>
#include <functional>

#include "shots/cut_strength.h"

namespace cuewright {
namespace {

/// A cut is the greatest change among this many pictures on each side.
constexpr std::size_t kAlone = 2;
/// How much of the change at the next picture has to be exceeded as if it were usual.
constexpr float kOfNext = 0.8F;
/// How even a mixture of two shots is.
constexpr float kLeastMix = 0.33F;
constexpr float kMostMix = 0.95F;
/// A longer stretch of a plain colour is a shot of its own.
constexpr std::int64_t kLongestPlainUs = 1500000;

/// A change of shape by more is that of a cut.
constexpr float kSure = 0.5F;
/// The first pictures of a fade to a plain one may change as much, when it is quicker than this.
constexpr std::size_t kLeastFall = 6;
/// So few plain pictures belong to one fade even when one of its sides is too quick to be measured.
constexpr std::size_t kFewPlain = 10;
/// Faint pictures in the middle of a way through one colour, and one more for each four that it takes to get there.
constexpr std::size_t kFewFaint = 2;

/// Pictures from the last of one shot to the first of another by itself.
struct Fade {
  std::size_t first = 0;
  std::size_t last = 0;

  bool Has(std::size_t picture) const { return first <= picture && picture <= last; }
  bool Overlaps(const Fade& other) const { return first < other.last && other.first < last; }
};

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
    const PictureMeasure& measure = measures_[i];
    return StrengthOf(measure.break_, UsualAround(i, &PictureMeasure::step, measure.break_), measure.colourBreak,
                      UsualAround(i, &PictureMeasure::colourStep, measure.colourBreak));
  }

  float UsualAround(std::size_t i, float PictureMeasure::*step, float change) const {
    const float usual = std::max(Before(i, kAround, step).middle, Behind(i, kAround, step).middle);
    // Between the pictures that change there may be some that repeat, on both sides then, as far as the film goes.
    const float before = Before(i, kAroundRepeated, step).large;
    const float behind = Behind(i, kAroundRepeated, step).large;
    float repeated = std::min(before, behind);
    if (i <= kAroundRepeated) repeated = behind;
    if (i + kAroundRepeated >= measures_.size()) repeated = before;
    // A cut is one step; two of about the same size are a quick fade.
    const float next = std::max(measures_[i - 1].*step, i + 1 < measures_.size() ? measures_[i + 1].*step : 0);
    return std::max({usual, repeated, std::min(next, change) * kOfNext});
  }

  Usual Before(std::size_t i, std::size_t count, float PictureMeasure::*step) const {
    return UsualOf(measures_, i > count ? i - count : 1, i, step);
  }
  Usual Behind(std::size_t i, std::size_t count, float PictureMeasure::*step) const {
    return UsualOf(measures_, i + 1, std::min(i + 1 + count, measures_.size()), step);
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

  void FindFades() {
    FindPlainFades();
    FindFaintFades();
    FindMixtures();
    std::erase_if(shots_, [&](const Shot& shot) {
      const std::size_t frame = shot.frame;
      return shot.kind == ShotKind::Cut &&
             std::ranges::any_of(fades_, [&](const Fade& fade) { return fade.Has(frame); });
    });
    for (const Fade& fade : fades_) Add((fade.first + fade.last) / 2, ShotKind::Fade);
  }

  /// Where the way to a plain picture begins: not before a cut.
  std::size_t FallsFrom(std::size_t plain) const {
    std::size_t from = plain - std::min<std::size_t>(measures_[plain].fall, plain);
    for (std::size_t i = from; i + kLeastFall < plain; ++i) {
      if (measures_[i].break_ > kSure) from = i;
    }
    return from;
  }

  /// A film that goes to a plain colour, comes from one, or does both within a moment, which is one change of shot.
  void FindPlainFades() {
    for (std::size_t first = 0; first < measures_.size(); ++first) {
      if (!measures_[first].plain) continue;
      std::size_t last = first;
      while (last + 1 < measures_.size() && measures_[last + 1].plain) ++last;
      const std::size_t from = FallsFrom(first);
      const std::size_t to = std::min(last + measures_[last].rise, measures_.size() - 1);
      const bool short_ = last - first < kFewPlain && (from < first || last < to);
      if (short_ || (from < first && last < to && measures_[last].us - measures_[first].us <= kLongestPlainUs)) {
        fades_.push_back({from, to});
      } else {
        if (from < first) fades_.push_back({from, first});
        if (last < to) fades_.push_back({last, to});
      }
      first = last;
    }
  }

  /// Ways through one colour that pass it between two pictures, so that no picture is plain.
  void FindFaintFades() {
    for (std::size_t first = 1; first < measures_.size(); ++first) {
      if (!measures_[first].faint || measures_[first - 1].faint || measures_[first - 1].plain) continue;
      const Fade fade{FallsFrom(first), RisesTo(first)};
      if (fade.first < first && first < fade.last && IsFree(fade)) fades_.push_back(fade);
    }
  }

  /// Where the way from a faint picture, or from one of the next as far as these belong to the same way, ends; the
  /// picture itself when there is none.
  std::size_t RisesTo(std::size_t faint) const {
    std::size_t to = faint;
    for (std::size_t i = faint; i < measures_.size() && i <= faint + kFewFaint + measures_[faint].fall / 4; ++i) {
      if (!measures_[i].faint) break;
      if (measures_[i].rise > 0) to = std::min(i + measures_[i].rise, measures_.size() - 1);
    }
    return to;
  }

  bool IsFree(const Fade& fade) const {
    return std::ranges::none_of(fades_, [&](const Fade& other) { return fade.Overlaps(other); });
  }

  /// Pictures that go over from one shot to another, the evenest first, of which no two share a picture.
  void FindMixtures() {
    const float least = std::min(kLeastMix * threshold_, kMostMix);
    std::vector<std::size_t> middles;
    for (std::size_t i = 0; i < measures_.size(); ++i) {
      if (measures_[i].mix >= least) middles.push_back(i);
    }
    std::ranges::stable_sort(middles, std::greater(), [&](std::size_t i) { return measures_[i].mix; });
    for (const std::size_t middle : middles) {
      const std::size_t half = measures_[middle].span / 2;
      const Fade fade{middle - std::min(half, middle), middle + half};
      if (IsFree(fade)) fades_.push_back(fade);
    }
  }

  void Add(std::size_t i, ShotKind kind) { shots_.push_back({static_cast<std::int32_t>(i), measures_[i].us, kind}); }

  const std::vector<PictureMeasure>& measures_;
  const float threshold_;
  std::vector<Shot> shots_;
  std::vector<Fade> fades_;
};

}  // namespace

std::vector<Shot> FindShots(const std::vector<PictureMeasure>& measures, double sensitivity) {
  return Finder(measures, sensitivity).Find();
}

}  // namespace cuewright

#include "shots/fade_measures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>
#include <span>

namespace cuewright {
namespace {

constexpr std::array<std::size_t, 9> kSpans = {6, 8, 11, 15, 20, 27, 36, 48, FadeMeasurer::kLongest};
constexpr std::array<std::size_t, 10> kPlainSpans = {2, 3, 5, 8, 12, 18, 25, 34, 46, 60};
/// Pictures before a fall to a plain one, or behind a rise from it, that show the shot by itself.
constexpr std::size_t kPlainRest = 6;
constexpr int kSightUnit = 8;  ///< parts of a level that a sight counts in
/// Levels of chroma in a part, counted twice, by which another light changes it at most.
constexpr int kLeastColour = 2 * 8 * kSightUnit;
constexpr double kAlike = 0.95;  ///< correlation of one picture in two lights
/// Levels in the mean of all parts by which two shots differ at least.
constexpr double kLeastApart = 1.5;
/// How plain a plain picture is: the square of its contrast in levels.
constexpr double kPlainVariance = 4;
constexpr double kBlackest = 20;
constexpr double kWhitest = 230;
/// What is left of the detail in a picture that is as good as plain: the last of a film, or the middle of a way through
/// one colour that passes it between two pictures.
constexpr float kAlmostPlain = 0.03F;
/// Pictures before a faint one, some of which show the shot by itself.
constexpr std::size_t kFaintRest = 24;
/// Ways that fit less are none.
constexpr float kLeastGain = 0.2F;
constexpr float kLeastPlainGain = 0.3F;

/// How far from the way pictures may lie, by its length.
constexpr float kMostAside = 0.5F;
/// A picture that lies further from it than this may be one of a flash, of at most so many pictures.
constexpr float kFarAside = 0.55F;
constexpr std::size_t kMostFlash = 4;
/// The same of pictures on the way to a plain one, from where they should be on it.
constexpr float kMostUneven = 0.12F;
/// How far they lie from where they should be on it even in a fade.
constexpr float kUnsteady = 0.01F;

/// Pictures on each side of a fade that show the shots by themselves.
constexpr std::size_t RestOf(std::size_t span) { return std::clamp<std::size_t>(span / 4, 5, 12); }
constexpr std::array<std::size_t, 4> kRests = {RestOf(20), RestOf(27), RestOf(36), RestOf(48)};
constexpr std::size_t PlaceOfRest(std::size_t rest) { return std::ranges::find(kRests, rest) - kRests.begin(); }
static_assert(std::ranges::all_of(kSpans, [](std::size_t span) { return PlaceOfRest(RestOf(span)) < kRests.size(); }));

/// A number of pictures to reckon with.
float Pictures(std::size_t count) { return static_cast<float>(count); }

/// A value of a sight, or the difference of two.
std::int16_t SightValue(int value) { return static_cast<std::int16_t>(value); }

/// The mean of a part of a plane, 8 samples wide and 6 high.
std::int16_t MeanOfPart(const std::uint8_t* part, int stride, int unit) {
  constexpr int kWide = 8;
  constexpr int kHigh = 6;
  int sum = 0;
  for (int y = 0; y < kHigh; ++y) {
    for (int x = 0; x < kWide; ++x) sum += part[y * stride + x];
  }
  return SightValue(sum * unit / (kWide * kHigh));
}

std::int16_t* TakePlane(const std::uint8_t* plane, int width, int height, int unit, std::int16_t* to) {
  for (int y = 0; y < height; y += 6) {
    for (int x = 0; x < width; x += 8) *to++ = MeanOfPart(plane + y * width + x, width, unit);
  }
  return to;
}

bool IsPlain(const Thumbnail& thumbnail) {
  std::int32_t sum = 0;
  std::int32_t squares = 0;
  for (std::size_t i = 0; i < Thumbnail::kLuma; ++i) {
    sum += thumbnail.bytes[i];
    squares += thumbnail.bytes[i] * thumbnail.bytes[i];
  }
  constexpr double kSamples = Thumbnail::kLuma;
  const double mean = sum / kSamples;
  if (mean > kBlackest && mean < kWhitest) return false;
  return squares / kSamples - mean * mean < kPlainVariance;
}

/// How much detail a picture has: the sum of the squared differences between neighbours.
float DetailOf(const Thumbnail& thumbnail) {
  constexpr std::size_t kWidth = Thumbnail::kWidth;
  std::int32_t detail = 0;
  for (std::size_t y = 0; y + 1 < Thumbnail::kHeight; ++y) {
    const std::uint8_t* row = thumbnail.Luma() + y * kWidth;
    for (std::size_t x = 0; x + 1 < kWidth; ++x) {
      const int across = row[x + 1] - row[x];
      const int down = row[x + kWidth] - row[x];
      detail += across * across + down * down;
    }
  }
  return static_cast<float>(detail);
}

/// The parts of luma in a sight.
constexpr std::size_t kLumaParts = 48;

/// Two sights differ by their light alone: what is bright in one is bright in the other.
bool SameInOtherLight(std::span<const std::int16_t> one, std::span<const std::int16_t> other) {
  std::int32_t a = 0, b = 0, aa = 0, bb = 0, ab = 0;
  for (std::size_t i = 0; i < kLumaParts; ++i) {
    a += one[i];
    b += other[i];
    aa += one[i] * one[i];
    bb += other[i] * other[i];
    ab += one[i] * other[i];
  }
  for (std::size_t i = kLumaParts; i < one.size(); ++i) {
    if (std::abs(one[i] - other[i]) > kLeastColour) return false;
  }
  constexpr double kShare = 1.0 / kLumaParts;
  const double both = ab - kShare * a * b;
  return both > 0 && both * both > kAlike * kAlike * (aa - kShare * a * a) * (bb - kShare * b * b);
}

}  // namespace

void FadeMeasurer::Window::DropFew() {
  const auto far = [&](std::size_t i) { return aside[i] > kFarAside * kFarAside; };
  std::size_t few = 0;
  for (std::size_t i = 0; i < count; ++i) few += far(i) ? 1 : 0;
  if (few > kMostFlash) return;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (far(i)) continue;
    place[kept] = place[i];
    along[kept] = along[i];
    aside[kept++] = aside[i];
  }
  count = kept;
}

float FadeMeasurer::Window::Aside() const {
  // The window has no pictures where the two sights hardly differ.
  if (count == 0) return std::numeric_limits<float>::max();
  return std::sqrt(std::accumulate(aside.begin(), aside.begin() + count, 0.0F) / Pictures(count));
}

float FadeMeasurer::Window::Gain(float even, float other) const {
  const float unsteady = kUnsteady * kUnsteady * Pictures(count);
  return 1 - std::sqrt((even + unsteady) / (other + unsteady));
}

float FadeMeasurer::Window::RestOfLine() const {
  const float pictures = Pictures(count);
  const float sum = std::accumulate(along.begin(), along.begin() + count, 0.0F);
  const float places = std::accumulate(place.begin(), place.begin() + count, 0.0F);
  float squares = 0, moment = 0, spread = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const float x = place[i] - places / pictures;
    const float y = along[i] - sum / pictures;
    squares += y * y;
    moment += x * y;
    spread += x * x;
  }
  return std::max(squares - moment * moment / spread, 0.0F);
}

float FadeMeasurer::Window::RestOfStep() const {
  float rest = 0;
  for (std::size_t i = 0; i < count; ++i) rest += along[i] * along[i];
  float least = rest;
  // Pictures from the last one back change over to the other side.
  for (std::size_t i = count; i-- > 0;) {
    rest += 1 - 2 * along[i];
    least = std::min(least, rest);
  }
  return std::max(least, 0.0F);
}

float FadeMeasurer::Window::RestOfWay(float from, float to) const {
  float rest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const float way = std::clamp((place[i] - from) / (to - from), 0.0F, 1.0F);
    rest += (along[i] - way) * (along[i] - way);
  }
  return rest;
}

FadeMeasurer::FadeMeasurer() : sights_(kKept), means_(kKept) {}

void FadeMeasurer::Add(const Thumbnail& thumbnail, std::vector<PictureMeasure>& measures) {
  const std::size_t number = measures.size() - 1;
  std::int16_t* to = sights_[number % kKept].data();
  to = TakePlane(thumbnail.Luma(), Thumbnail::kWidth, Thumbnail::kHeight, kSightUnit, to);
  to = TakePlane(thumbnail.Blue(), Thumbnail::kWidth / 2, Thumbnail::kHeight / 2, 2 * kSightUnit, to);
  TakePlane(thumbnail.Red(), Thumbnail::kWidth / 2, Thumbnail::kHeight / 2, 2 * kSightUnit, to);
  details_[number % kKept] = DetailOf(thumbnail);
  riseGains_[number % kKept] = 0;
  PictureMeasure& measure = measures.back();
  measure.plain = IsPlain(thumbnail);
  measure.faint = !measure.plain && IsFaint(number);
  const bool fell = number > 0 && !measures[number - 1].plain;
  if (fell && (measure.plain || (measure.faint && !measures[number - 1].faint))) MeasureFall(number, measure);
  for (std::size_t i = 0; i < kRests.size(); ++i) {
    if (number >= kRests[i]) means_[number % kKept][i] = MeanOf(number - kRests[i], number);
  }
  for (const std::size_t span : kPlainSpans) MeasureRise(number, span, measures);
  for (const std::size_t span : kSpans) MeasureMix(number, span, measures);
}

void FadeMeasurer::Finish(std::vector<PictureMeasure>& measures) {
  if (measures.empty() || measures.back().plain) return;
  const std::size_t last = measures.size() - 1;
  float most = 0;
  for (std::size_t i = last > kLongest ? last - kLongest : 0; i < last; ++i) most = std::max(most, details_[i % kKept]);
  if (details_[last % kKept] > kAlmostPlain * most) return;
  MeasureFall(last, measures.back());
  measures.back().plain = measures.back().fall > 0;
}

bool FadeMeasurer::IsFaint(std::size_t picture) const {
  float most = 0;
  for (std::size_t i = picture - std::min(picture, kFaintRest); i < picture; ++i) {
    most = std::max(most, details_[i % kKept]);
  }
  return details_[picture % kKept] < kAlmostPlain * most;
}

FadeMeasurer::Sight FadeMeasurer::MeanOf(std::size_t first, std::size_t last) const {
  std::array<int, kParts> sums{};
  for (std::size_t picture = first; picture <= last; ++picture) {
    const Sight& sight = At(picture);
    for (std::size_t i = 0; i < kParts; ++i) sums[i] += sight[i];
  }
  Sight mean;
  const int count = static_cast<int>(last - first + 1);
  for (std::size_t i = 0; i < kParts; ++i) mean[i] = SightValue(sums[i] / count);
  return mean;
}

const FadeMeasurer::Sight& FadeMeasurer::MeanUpTo(std::size_t last, std::size_t rest) const {
  return means_[last % kKept][PlaceOfRest(rest)];
}

FadeMeasurer::Window FadeMeasurer::WindowOf(std::size_t first, std::size_t last, const Sight& one,
                                            const Sight& other) const {
  Window window;
  std::int32_t length = 0;
  Sight way;
  for (std::size_t i = 0; i < kParts; ++i) {
    way[i] = SightValue(other[i] - one[i]);
    length += way[i] * way[i];
  }
  constexpr double kLeastLength = kLeastApart * kLeastApart * kSightUnit * kSightUnit * kParts;
  if (length < kLeastLength) return window;
  for (std::size_t picture = first; picture <= last; ++picture) {
    const Sight& sight = At(picture);
    std::int32_t along = 0, squares = 0;
    for (std::size_t i = 0; i < kParts; ++i) {
      const std::int16_t part = SightValue(sight[i] - one[i]);
      along += part * way[i];
      squares += part * part;
    }
    const float place = static_cast<float>(along) / static_cast<float>(length);
    const float distance = static_cast<float>(squares) / static_cast<float>(length);
    window.place[window.count] = Pictures(picture - first);
    window.along[window.count] = place;
    window.aside[window.count++] = std::max(distance - place * place, 0.0F);
  }
  return window;
}

/// Looks at the pictures up to `last` for a way from one shot to another.
void FadeMeasurer::MeasureMix(std::size_t last, std::size_t span, std::vector<PictureMeasure>& measures) const {
  const std::size_t rest = RestOf(span);
  if (last < span + 2 * rest) return;
  const std::size_t first = last - span - 2 * rest;
  const Sight& one = MeanUpTo(first + rest, rest);
  const Sight& other = MeanUpTo(last, rest);
  if (SameInOtherLight(one, other)) return;
  Window window = WindowOf(first, last, one, other);
  window.DropFew();
  const float aside = window.Aside();
  if (aside > kMostAside) return;
  float even = std::numeric_limits<float>::max();
  // Lengths that are tried differ by about a quarter, so that a fade may be somewhat shorter than this one.
  for (std::size_t less = 0; less <= span / 10; ++less) {
    even = std::min(even, window.RestOfWay(Pictures(rest + less), Pictures(rest + span - less)));
  }
  float gain = window.Gain(even, std::min(window.RestOfStep(), window.RestOfLine())) * (1 - aside);
  if (gain < kLeastGain) return;
  gain *= std::clamp(LostDetail(first, last, rest), 0.0F, 1.0F);
  PictureMeasure& middle = measures[first + rest + span / 2];
  if (gain < kLeastGain || gain <= middle.mix) return;
  middle.mix = gain;
  middle.span = static_cast<std::uint8_t>(span);
}

float FadeMeasurer::GainOfPlainWay(std::size_t first, std::size_t last, const Sight& one, const Sight& other,
                                   std::size_t from, std::size_t to) const {
  const Window window = WindowOf(first, last, one, other);
  const float aside = window.Aside();
  const float even = window.RestOfWay(Pictures(from - first), Pictures(to - first));
  if (aside > kMostAside || even > kMostUneven * kMostUneven * Pictures(window.count)) return 0;
  return window.Gain(even, window.RestOfStep()) * (1 - aside);
}

float FadeMeasurer::LostDetail(std::size_t first, std::size_t last, std::size_t rest) const {
  float one = 0, other = 0;
  for (std::size_t i = 0; i <= rest; ++i) {
    one += details_[(first + i) % kKept];
    other += details_[(last - i) % kKept];
  }
  one /= Pictures(rest + 1);
  other /= Pictures(rest + 1);
  const float span = Pictures(last - first - 2 * rest);
  float lost = 0, whole = 0;
  for (std::size_t i = first + rest + 1; i < last - rest; ++i) {
    const float part = Pictures(i - first - rest) / span;
    lost += one + (other - one) * part - details_[i % kKept];
    whole += part * (1 - part) * (one + other);
  }
  return whole > 0 ? lost / whole : 0;
}

void FadeMeasurer::MeasureFall(std::size_t plain, PictureMeasure& measure) const {
  float best = kLeastPlainGain;
  for (const std::size_t span : kPlainSpans) {
    if (span >= plain) return;
    const std::size_t from = plain - span;
    const std::size_t first = from > kPlainRest ? from - kPlainRest : 0;
    const float gain = GainOfPlainWay(first, plain, MeanOf(first, from), At(plain), from, plain);
    if (gain <= best) continue;
    best = gain;
    measure.fall = static_cast<std::uint8_t>(span);
  }
}

void FadeMeasurer::MeasureRise(std::size_t last, std::size_t span, std::vector<PictureMeasure>& measures) {
  if (last < span + kPlainRest) return;
  const std::size_t plain = last - span - kPlainRest;
  const bool leavesPlain = measures[plain].plain && !measures[plain + 1].plain;
  // What comes may have less detail than the shot before: a faint picture is a middle only if it is faint beside both.
  const bool isMiddle = measures[plain].faint && details_[plain % kKept] < kAlmostPlain * details_[last % kKept];
  if (!leavesPlain && !isMiddle) return;
  const std::size_t to = plain + span;
  const float gain = GainOfPlainWay(plain, last, At(plain), MeanOf(to, last), plain, to);
  if (gain <= std::max(riseGains_[plain % kKept], kLeastPlainGain)) return;
  riseGains_[plain % kKept] = gain;
  measures[plain].rise = static_cast<std::uint8_t>(span);
}

}  // namespace cuewright

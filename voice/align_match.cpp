#include "voice/align_match.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr std::size_t kSpeechSamples = 160;  ///< frames that stand for speech in general
constexpr float kSharpness = 0.003F;         ///< of a squared distance in dB: what is near, what far
constexpr float kLoudnessWeight = 0.3F;      ///< of what differs in all bands alike
constexpr float kLeast = -1.5F;              ///< of a frame's score: one bad frame isn't the end of a line
constexpr float kBias = 0.1F;                ///< a line found by chance is worth less than none
constexpr float kFaster = 0.15F;             ///< what it costs to leave out a frame of the line
constexpr float kSlower = 0.15F;             ///< ... to stay on one for two frames of the film
constexpr float kNever = -1e9F;

std::vector<FilmFeatures::Bands> SamplesOf(std::span<const SpokenFrames> lines) {
  std::size_t all = 0;
  for (const SpokenFrames& line : lines) all += line.size();
  const std::size_t each = all / kSpeechSamples + 1;
  std::vector<FilmFeatures::Bands> samples;
  std::size_t next = 0;
  std::size_t passed = 0;
  for (const SpokenFrames& line : lines) {
    for (; next < passed + line.size(); next += each) samples.push_back(line[next - passed]);
    passed += line.size();
  }
  return samples;
}

}  // namespace

LineMatcher::LineMatcher(const FilmFeatures& film, std::span<const SpokenFrames> lines)
    : film_(film), anything_(film.Frames()) {
  const std::vector<Bands> samples = SamplesOf(lines);
  std::vector<float> distances(film.Frames());
  sums_.resize(film.Frames());
  for (const Bands& sample : samples) {
    Measure(sample, {0, film.Frames()}, distances);
    for (std::size_t i = 0; i < distances.size(); ++i) anything_[i] += std::exp(-kSharpness * distances[i]);
  }
  const float count = static_cast<float>(std::max<std::size_t>(samples.size(), 1));
  for (float& each : anything_) each = std::log(std::max(each, 1e-20F) / count);
}

void LineMatcher::Measure(const Bands& frame, const FrameRange& window, std::vector<float>& distances) {
  std::ranges::fill(distances, 0.0F);
  std::ranges::fill(sums_, 0.0F);
  for (std::size_t first = window.first; first < window.behind;) {
    const std::size_t behind = std::min(window.behind, (first / FilmFeatures::kBlock + 1) * FilmFeatures::kBlock);
    float* const squares = distances.data() + (first - window.first);
    float* const sums = sums_.data() + (first - window.first);
    const Bands& quiet = film_.Quiet(first);
    for (std::size_t band = 0; band < quiet.size(); ++band) {
      const float* const film = film_.Band(band).data() + first;
      const float heard = std::max(frame[band], quiet[band]);
      for (std::size_t i = 0; i < behind - first; ++i) {
        const float difference = film[i] - heard;
        squares[i] += difference * difference;
        sums[i] += difference;
      }
    }
    first = behind;
  }
  // What differs in all bands alike is loudness, which says less than the shape.
  constexpr float kShare = (1 - kLoudnessWeight) / SoundTable::kBands;
  for (std::size_t i = 0; i < window.Count(); ++i) distances[i] -= kShare * sums_[i] * sums_[i];
}

void LineMatcher::Compare(const Bands& frame, const FrameRange& window) {
  Measure(frame, window, scores_);
  const float* const anything = anything_.data() + window.first;
  float* const scores = scores_.data();
  for (std::size_t i = 0; i < window.Count(); ++i) {
    scores[i] = std::max(-kSharpness * scores[i] - anything[i], kLeast) - kBias;
  }
}

void LineMatcher::Advance(LineMatch& match) {
  const std::size_t count = scores_.size();
  const float* const before = match.worth.data();
  const std::int32_t* const starts = match.start.data();
  const float* const scores = scores_.data();
  float* const worth = fresh_.worth.data();
  std::int32_t* const start = fresh_.start.data();
  for (std::size_t i = 2; i < count; ++i) {
    const float even = before[i - 1] + scores[i];
    const float slower = before[i - 2] + 2 * scores[i] - kSlower;
    const float faster = before[i] - kFaster;
    const bool bySlower = slower > even;
    const float best = bySlower ? slower : even;
    const std::int32_t from = bySlower ? starts[i - 2] : starts[i - 1];
    const bool byFaster = faster > best;
    worth[i] = byFaster ? faster : best;
    start[i] = byFaster ? starts[i] : from;
  }
  match.worth.swap(fresh_.worth);
  match.start.swap(fresh_.start);
}

void LineMatcher::Match(const SpokenFrames& line, const FrameRange& window, LineMatch& match) {
  const std::size_t count = window.Count();
  scores_.resize(count);
  sums_.resize(count);
  for (LineMatch* each : {&match, &fresh_}) {
    each->worth.assign(count, kNever);
    each->start.assign(count, 0);
  }
  for (std::size_t frame = 0; frame < line.size(); ++frame) {
    Compare(line[frame], window);
    if (frame > 0) {
      Advance(match);
      continue;
    }
    for (std::size_t i = 0; i < count; ++i) {
      match.worth[i] = scores_[i];
      match.start[i] = static_cast<std::int32_t>(i);
    }
  }
}

}  // namespace cuewright

#include "voice/align_match.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace cuewright {
namespace {

constexpr std::size_t kSpeechSamples = 160;  ///< frames that stand for speech in general
constexpr float kLeast = -1.5F;              ///< of a frame's score: one bad frame isn't the end of a line
constexpr float kBias = 0.1F;                ///< a line found by chance is worth less than none
constexpr float kFaster = 1.5F;              ///< what it costs to leave out a frame of the line
constexpr float kSlower = 1.5F;              ///< what it costs that a frame of the line lasts for two of the film
constexpr float kNever = -1e9F;
constexpr std::size_t kLongestTaught = 500;  ///< frames

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

/// A frame as it is heard where noise covers all below some levels.
FilmFeatures::Bands Drowned(FilmFeatures::Bands frame, const FilmFeatures::Bands& quiet) {
  for (std::size_t band = 0; band < frame.size(); ++band) frame[band] = std::max(frame[band], quiet[band]);
  return frame;
}

}  // namespace

LineMatcher::LineMatcher(const FilmFeatures& film, std::span<const SpokenFrames> lines, const LineSpread& spread)
    : film_(film), spread_(spread), anything_(film.Frames()) {
  for (std::vector<float>& band : scaled_) band.resize(film.Frames());
  for (std::size_t frame = 0; frame < film.Frames(); ++frame) {
    const Bands scaled = spread_.Scaled(film.At(frame));
    for (std::size_t band = 0; band < scaled.size(); ++band) scaled_[band][frame] = scaled[band];
  }
  const std::vector<Bands> samples = SamplesOf(lines);
  std::vector<float> distances(film.Frames());
  for (const Bands& sample : samples) {
    Measure(sample, {0, film.Frames()}, distances);
    for (std::size_t i = 0; i < distances.size(); ++i) anything_[i] += std::exp(-distances[i]);
  }
  const float count = static_cast<float>(std::max<std::size_t>(samples.size(), 1));
  for (float& each : anything_) each = std::log(std::max(each, 1e-20F) / count);
}

void LineMatcher::Measure(const Bands& frame, const FrameRange& window, std::vector<float>& distances) {
  std::ranges::fill(distances, 0.0F);
  const Bands spoken = spread_.Heard(frame);
  for (std::size_t first = window.first; first < window.behind;) {
    const std::size_t behind = std::min(window.behind, (first / FilmFeatures::kBlock + 1) * FilmFeatures::kBlock);
    float* const squares = distances.data() + (first - window.first);
    const Bands heard = spread_.Scaled(Drowned(spoken, film_.Quiet(first)));
    for (std::size_t band = 0; band < heard.size(); ++band) {
      const float* const film = scaled_[band].data() + first;
      for (std::size_t i = 0; i < behind - first; ++i) {
        const float difference = film[i] - heard[band];
        squares[i] += difference * difference;
      }
    }
    first = behind;
  }
}

void LineMatcher::Compare(const Bands& frame, const FrameRange& window) {
  Measure(frame, window, scores_);
  const float* const anything = anything_.data() + window.first;
  float* const scores = scores_.data();
  for (std::size_t i = 0; i < window.Count(); ++i) {
    scores[i] = std::max(-scores[i] - anything[i], kLeast) - kBias;
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

void LineMatcher::Match(const SpokenFrames& line, const FrameRange& window, LineMatch& match,
                        const std::function<void()>& taken) {
  const std::size_t count = window.Count();
  scores_.resize(count);
  for (LineMatch* each : {&match, &fresh_}) {
    each->worth.assign(count, kNever);
    each->start.assign(count, 0);
  }
  for (std::size_t frame = 0; frame < line.size(); ++frame) {
    Compare(line[frame], window);
    if (frame > 0) {
      Advance(match);
    } else {
      match.worth = scores_;
      std::iota(match.start.begin(), match.start.end(), 0);
    }
    if (taken) taken();
  }
}

void LineMatcher::Teach(const SpokenFrames& line, const FrameRange& place, LineSpread& spread) {
  if (line.size() > kLongestTaught || place.Count() > kLongestTaught || place.Count() < 2 || line.empty()) return;
  std::vector<std::vector<float>> worth;
  std::vector<std::vector<float>> scores;
  LineMatch match;
  Match(line, place, match, [&] { worth.push_back(match.worth), scores.push_back(scores_); });
  std::size_t at = place.Count() - 1;
  for (std::size_t frame = line.size(); frame-- > 1 && at > 1;) {
    const std::vector<float>& before = worth[frame - 1];
    const float even = before[at - 1] + scores[frame][at];
    const float slower = before[at - 2] + 2 * scores[frame][at] - kSlower;
    if (before[at] - kFaster > std::max(even, slower)) continue;
    const std::size_t film = place.first + at;
    spread.Learn(film_.At(film), Drowned(spread_.Heard(line[frame]), film_.Quiet(film)));
    at -= slower > even ? 2 : 1;
  }
}

}  // namespace cuewright

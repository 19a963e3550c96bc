#include "voice/align.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/counting.h"
#include "voice/align_match.h"
#include "voice/band_levels.h"
#include "voice/voice_likeness.h"

namespace cuewright {
namespace {

constexpr float kUnspoken = 20;              ///< what it costs that nobody says a line
constexpr double kChance = 0.97;             ///< the share of places that fit worse than one that fits by chance
constexpr float kUnwritten = 0.05F;          ///< what a frame of voice costs that is in no line
constexpr std::size_t kBehindFrames = 3000;  ///< that the window keeps before the likeliest end of the lines so far
constexpr std::size_t kAheadFrames = 9000;   ///< the least that it shows behind that place
constexpr std::size_t kMostAheadFrames = 30000;
constexpr float kVoiceAhead = 3000;  ///< frames of voice that the window sees at least
constexpr float kFarWorse = 200;     ///< worse than the best way by so much that no later line makes up for it
constexpr float kNever = -1e9F;
constexpr double kSureWorth = 8;  ///< of a line that is as likely found as not
constexpr double kDoubt = 0.5;
constexpr double kTeaches = 0.95;        ///< confidence of a line that tells of the film's voices
constexpr std::size_t kFewestPaces = 5;  ///< sure lines without which nothing is known of the film's pace
constexpr std::size_t kRounds = 2;       ///< the second goes by what the first told of the film's voices and their pace

/// How the best way came to a frame with some lines behind it.
enum class Step : std::uint8_t { Wait, Skip, Place };

/// A line that may end before a frame, both counted in the window.
struct Ending {
  std::size_t behind = 0;
  std::size_t start = 0;
  float worth = 0;
};

/// The best way through the lines so far, in the window that the last of them had.
struct Trail {
  FrameRange window;
  std::vector<Step> steps;
  std::vector<Ending> endings;  ///< for each step `Place`, in order: few of them are

  const Ending& EndingAt(std::size_t behind) const {
    return *std::ranges::lower_bound(endings, behind, {}, &Ending::behind);
  }
};

/// Where a line lies; an empty range for one that nobody says.
struct PlacedLine {
  FrameRange frames;
  double worth = 0;

  bool Found() const { return frames.Count() > 0; }
  /// How sure the place is: a line that fits as well as usual is, the longer the surer.
  double Confidence() const {
    constexpr double kSteep = 0.35;
    return 1 / (1 + std::exp(-kSteep * (worth - kSureWorth)));
  }
  /// True for a line that tells something of the others.
  bool Teaches() const { return Found() && Confidence() >= kTeaches; }
};

Ms MsOf(std::size_t frames) { return static_cast<int>(frames) * FilmFeatures::kFrameMs; }

/// Takes off the worth that the line has in most places of the window, where nobody says it.
void LessChance(LineMatch& match) {
  std::vector<float> sorted = match.worth;
  const auto chance = sorted.begin() + static_cast<std::ptrdiff_t>(kChance * (CountOf(sorted) - 1));
  std::ranges::nth_element(sorted, chance);
  for (float& worth : match.worth) worth -= *chance;
}

/// Walks through lines and film once, and then back along the best way.
class Aligner {
 public:
  Aligner(const FilmFeatures& film, std::span<const SpokenFrames> lines, const VoiceTrack& voice,
          const LineSpread& spread);

  bool Walk(const std::function<bool(std::size_t)>& goOn);
  std::vector<PlacedLine> Placed() const;
  /// What the lines that were surely found tell of the film's voices.
  void Teach(std::span<const PlacedLine> placed, LineSpread& spread);

 private:
  FrameRange NextWindow() const;
  void MoveTo(const FrameRange& window);
  void Take(const LineMatch& match, Trail& trail);

  std::span<const SpokenFrames> lines_;
  LineMatcher matcher_;
  std::vector<float> cost_;  ///< of the film's voice up to each frame
  FrameRange window_;
  std::vector<float> best_;  ///< by frame of the window, the lines so far having ended before it
  std::vector<Trail> trails_;
};

Aligner::Aligner(const FilmFeatures& film, std::span<const SpokenFrames> lines, const VoiceTrack& voice,
                 const LineSpread& spread)
    : lines_(lines), matcher_(film, lines, spread), cost_(film.Frames() + 1) {
  constexpr std::size_t kSteps = FilmFeatures::kFrameMs / SoundTable::kStepMs;
  for (std::size_t i = 0; i < film.Frames(); ++i) cost_[i + 1] = cost_[i] + kUnwritten * voice[i * kSteps];
  best_ = {0.0F};
}

FrameRange Aligner::NextWindow() const {
  const std::size_t film = cost_.size() - 1;
  // A line may be found too far ahead by chance; the lines behind it correct that, as long as all ways that aren't far
  // worse than the best one stay in the window.
  const float least = *std::ranges::max_element(best_) - kFarWorse;
  const auto top = std::ranges::find_if(best_, [&](float worth) { return worth > least; });
  const std::size_t now = window_.first + (top - best_.begin());
  // Time in which nobody speaks doesn't count as part of the view ahead.
  const float seen = cost_[std::min(now, film)] + kVoiceAhead * kUnwritten;
  const std::size_t far = std::ranges::lower_bound(cost_, seen) - cost_.begin();
  const std::size_t behind = std::min(film, std::clamp(far, now + kAheadFrames, now + kMostAheadFrames));
  const std::size_t first = std::max(window_.first, now > kBehindFrames ? now - kBehindFrames : 0);
  return {first, std::max(behind, window_.behind)};
}

void Aligner::MoveTo(const FrameRange& window) {
  best_.erase(best_.begin(), best_.begin() + (window.first - window_.first));
  while (best_.size() < window.Count() + 1) {
    const std::size_t at = window.first + best_.size();
    best_.push_back(best_.back() - (cost_[at] - cost_[at - 1]));
  }
  window_ = window;
}

void Aligner::Take(const LineMatch& match, Trail& trail) {
  trail.window = window_;
  trail.steps.assign(best_.size(), Step::Skip);
  std::vector<float> fresh(best_.size());
  for (std::size_t i = 0; i < best_.size(); ++i) {
    fresh[i] = best_[i] - kUnspoken;
    if (i == 0) continue;
    const float waited = fresh[i - 1] - (cost_[window_.first + i] - cost_[window_.first + i - 1]);
    if (waited > fresh[i]) fresh[i] = waited, trail.steps[i] = Step::Wait;
    const std::size_t start = match.start[i - 1];
    const float placed = best_[start] + match.worth[i - 1];
    if (placed <= fresh[i]) continue;
    fresh[i] = placed;
    trail.steps[i] = Step::Place;
    trail.endings.push_back({i, start, match.worth[i - 1]});
  }
  best_.swap(fresh);
}

bool Aligner::Walk(const std::function<bool(std::size_t)>& goOn) {
  LineMatch match;
  for (const SpokenFrames& line : lines_) {
    if (!goOn(trails_.size())) return false;
    MoveTo(NextWindow());
    trails_.emplace_back();
    matcher_.Match(line, window_, match);
    LessChance(match);
    if (line.empty()) std::ranges::fill(match.worth, kNever);
    Take(match, trails_.back());
  }
  return true;
}

std::vector<PlacedLine> Aligner::Placed() const {
  std::vector<PlacedLine> placed(trails_.size());
  std::size_t at = window_.first + (std::ranges::max_element(best_) - best_.begin());
  for (std::size_t line = trails_.size(); line-- > 0;) {
    const Trail& trail = trails_[line];
    // Behind the window of an earlier line the best way only waits.
    std::size_t i = std::min(at, trail.window.behind) - trail.window.first;
    while (trail.steps[i] == Step::Wait) --i;
    at = trail.window.first + i;
    if (trail.steps[i] == Step::Skip) continue;
    const Ending& ending = trail.EndingAt(i);
    placed[line] = {{trail.window.first + ending.start, at}, ending.worth};
    at = placed[line].frames.first;
  }
  return placed;
}

void Aligner::Teach(std::span<const PlacedLine> placed, LineSpread& spread) {
  for (std::size_t line = 0; line < placed.size(); ++line) {
    if (placed[line].Teaches()) matcher_.Teach(lines_[line], placed[line].frames, spread);
  }
}

/// How many times as long as the synthesiser the film's voices take for a line: the median of those surely found.
double PaceOf(std::span<const PlacedLine> placed, std::span<const SpokenFrames> lines) {
  std::vector<double> paces;
  for (std::size_t line = 0; line < placed.size(); ++line) {
    if (!placed[line].Teaches()) continue;
    const double said = MsOf(placed[line].frames.Count()).Count();
    paces.push_back(said / MsOf(lines[line].size()).Count());
  }
  if (paces.size() < kFewestPaces) return 1;
  const auto middle = paces.begin() + std::ssize(paces) / 2;
  std::ranges::nth_element(paces, middle);
  return *middle;
}

/// Where lines are said; nothing once the caller wants no more.
std::vector<PlacedLine> PlacesOf(const FilmFeatures& film, std::span<const SpokenFrames> lines, const VoiceTrack& voice,
                                 const std::function<bool(std::size_t)>& goOn) {
  LineSpread spread;
  std::vector<SpokenFrames> paced(lines.begin(), lines.end());
  for (std::size_t round = 0;; ++round) {
    Aligner aligner(film, paced, voice, spread);
    const auto further = [&](std::size_t line) { return !goOn || goOn((line + round * lines.size()) / kRounds); };
    if (!aligner.Walk(further)) return {};
    std::vector<PlacedLine> placed = aligner.Placed();
    if (round + 1 == kRounds) return placed;
    LineSpread learned = spread;
    aligner.Teach(placed, learned);
    learned.Settle();
    spread = learned;
    const double pace = PaceOf(placed, paced);
    for (SpokenFrames& line : paced) line = AtPace(line, pace);
  }
}

/// Gives lines that nobody says the time between their neighbours, as far as they need it.
void PlaceBetween(std::span<const SpokenFrames> spoken, Ms filmEnd, std::vector<AlignedLine>& lines) {
  constexpr Ms kPauseMs = 100;
  for (std::size_t first = 0; first < lines.size(); ++first) {
    if (lines[first].end > 0) continue;
    std::size_t behind = first;
    while (behind < lines.size() && lines[behind].end == 0) ++behind;
    Ms at = first == 0 ? 0 : lines[first - 1].end;
    const Ms until = behind == lines.size() ? std::max(filmEnd, at) : lines[behind].start;
    for (; first < behind; ++first) {
      const int left = static_cast<int>(behind - first);
      const Ms needs = MsOf(spoken[first].size()) + kPauseMs;
      const Ms room = std::max<Ms>(1, std::min<Ms>(needs, (until - at) / left));
      lines[first].start = at;
      lines[first].end = at + std::max<Ms>(1, room - kPauseMs);
      at += room;
    }
  }
}

}  // namespace

std::vector<AlignedLine> AlignLines(std::span<const SoundTable> spoken, const SoundTable& film,
                                    const std::function<bool(std::size_t)>& goOn) {
  const FilmFeatures sound(film);
  const std::vector<SpokenFrames> features = FeaturesOfLines(spoken);
  std::vector<AlignedLine> lines(spoken.size());
  if (sound.Frames() > 2 && !film.Silent()) {
    const std::vector<PlacedLine> placed = PlacesOf(sound, features, VoiceOfSound(film), goOn);
    if (placed.empty() && !lines.empty()) return {};
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (!placed[i].Found()) continue;
      lines[i].start = MsOf(placed[i].frames.first);
      lines[i].end = MsOf(placed[i].frames.behind);
      lines[i].confidence = placed[i].Confidence();
      lines[i].doubtful = lines[i].confidence < kDoubt;
    }
  }
  PlaceBetween(features, static_cast<std::int32_t>(film.Steps()) * SoundTable::kStepMs, lines);
  return lines;
}

}  // namespace cuewright

#include "voice/sync.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>

#include "core/counting.h"
#include "voice/offset_path.h"

namespace cuewright {
namespace {

constexpr std::size_t kEnough = 400;
constexpr int kReachMs = 240'000;
constexpr Ms kLongestMs = 24 * 3600 * 1000;  ///< times beyond are at no place
constexpr int kCoarseMs = 80;
constexpr int kMiddleMs = 40;
constexpr int kFineReachMs = 160;
constexpr int kElsewhereMs = 400;
constexpr std::size_t kFewest = 3;  ///< captions of a segment
constexpr int kSameMs = 100;        ///< neighbours whose moves differ less belong together
constexpr int kStaysMs = 80;        ///< a file that is off by less fits
constexpr int kStaysExactMs = 20;   ///< the same where starts are known
constexpr float kPrice = 5.5;       ///< of a cut, in standard deviations of a caption's score by chance
constexpr float kMarginOfDoubt = 3.5F;
constexpr float kBeyondChance = 2.5;  ///< of the best way over one by chance, a caption, for many of them
constexpr float kRatioPrice = 3;      ///< of another ratio than 1
constexpr ScoreWeights kPathWeights = {1.0F, 1.8F, 0.1F};
constexpr ScoreWeights kFineWeights = {0.0F, 1.0F, 0.0F};

/// What the usual rates of film and television make of each other.
constexpr std::array<TimeRatio, 17> kRatios = {{{1, 1},
                                                {1001, 1000},
                                                {1000, 1001},
                                                {25025, 24000},
                                                {24000, 25025},
                                                {25, 24},
                                                {24, 25},
                                                {5, 4},
                                                {4, 5},
                                                {1250, 1001},
                                                {1001, 1250},
                                                {1200, 1001},
                                                {1001, 1200},
                                                {6, 5},
                                                {5, 6},
                                                {5005, 4000},
                                                {4000, 5005}}};

/// Some of many captions, evenly chosen: enough to find the ratio and the scores of chance.
std::vector<CaptionTimes> Thinned(const std::vector<CaptionTimes>& captions) {
  const std::size_t each = captions.size() / kEnough + 1;
  std::vector<CaptionTimes> thinned;
  for (std::size_t i = 0; i < captions.size(); i += each) thinned.push_back(captions[i]);
  return thinned;
}

constexpr std::size_t kRatiosForChance = 5;

/// Captions with times in order, and which rows they are.
struct Timed {
  std::vector<CaptionTimes> times;
  std::vector<std::size_t> rows;
};

Timed TimedOf(std::span<const CaptionTimes> captions) {
  Timed timed;
  for (std::size_t row = 0; row < captions.size(); ++row) {
    if (captions[row].end > captions[row].start && captions[row].start >= 0) timed.rows.push_back(row);
  }
  std::ranges::stable_sort(timed.rows, {}, [&](std::size_t row) { return captions[row].start; });
  for (const std::size_t row : timed.rows) timed.times.push_back(captions[row]);
  return timed;
}

/// The same captions backwards in time: a place that fits these fits by chance.
std::vector<CaptionTimes> Mirrored(std::span<const CaptionTimes> captions) {
  Ms last = 0;
  for (const CaptionTimes& times : captions) last = std::max(last, times.end);
  std::vector<CaptionTimes> mirrored;
  for (const CaptionTimes& times : captions) mirrored.push_back({last - times.end, last - times.start});
  std::ranges::sort(mirrored, {}, &CaptionTimes::start);
  return mirrored;
}

/// The standard deviation of a caption's score over all places.
float UnitOf(const OffsetScores& scores, std::span<const CaptionTimes> captions) {
  constexpr std::size_t kProbes = 40;
  std::vector<float> places(scores.Places());
  double squares = 0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < captions.size(); i += captions.size() / kProbes + 1) {
    std::ranges::fill(places, 0.0F);
    scores.Add(captions[i], 1, places);
    const double mean = std::accumulate(places.begin(), places.end(), 0.0) / CountOf(places);
    for (const float score : places) squares += (score - mean) * (score - mean);
    count += places.size();
  }
  return count == 0 || squares == 0 ? 1.0F : static_cast<float>(std::sqrt(squares / static_cast<double>(count)));
}

/// A ratio and what the best way is worth with it.
struct Candidate {
  TimeRatio ratio;
  float worth = 0;
};

/// The worth of the captions' best way.
float WorthOf(const OffsetScores& scores, std::span<const CaptionTimes> times, const TimeRatio& ratio) {
  const float worth = OffsetPath(scores, times, ratio.Value(), kPrice).Best();
  return ratio == TimeRatio() ? worth : worth - kRatioPrice;
}

/// The ratios by what they are worth, the best first.
std::vector<Candidate> Ranked(const OffsetScores& scores, std::span<const CaptionTimes> times,
                              std::span<const TimeRatio> ratios) {
  std::vector<Candidate> candidates;
  for (const TimeRatio& ratio : ratios) {
    candidates.push_back({ratio, WorthOf(scores, times, ratio)});
  }
  std::ranges::stable_sort(candidates, std::ranges::greater(), &Candidate::worth);
  return candidates;
}

/// The best of the first few on another grid.
Candidate BestOf(std::vector<Candidate> candidates, const OffsetScores& scores, std::span<const CaptionTimes> times) {
  constexpr std::size_t kNear = 3;
  candidates.resize(kNear);
  for (Candidate& each : candidates) each.worth = WorthOf(scores, times, each.ratio);
  return *std::ranges::max_element(candidates, {}, &Candidate::worth);
}

/// Finds the ratio and the moves, in one call.
class Synchroniser {
 public:
  Synchroniser(std::span<const CaptionTimes> captions, const VoiceTrack& voice, std::span<const CaptionTimes> exact)
      : captions_(captions), timed_(TimedOf(captions)), voice_(voice), exact_(TimedOf(exact)) {}

  SyncResult Find();

 private:
  /// A run of captions of one move.
  struct Piece {
    std::size_t first = 0;  ///< of the timed captions
    std::size_t behind = 0;
    int move = 0;
  };

  OffsetScores Grid(int stepMs, int reachMs, const ScoreWeights& weights) const;

  std::vector<Piece> PiecesOf(const OffsetScores& scores, std::vector<OffsetChoice>& choices) const;
  int FineMove(const OffsetScores& fine, const Piece& piece) const;
  /// The move that brings the starts of a piece to those of the captions that the voice was made of.
  int ExactMove(const Piece& piece) const;
  void Refine(std::vector<Piece>& pieces) const;
  std::vector<SyncSegment> SegmentsOf(const std::vector<Piece>& pieces, const std::vector<OffsetChoice>& choices) const;

  std::span<const CaptionTimes> captions_;
  Timed timed_;
  const VoiceTrack& voice_;
  Timed exact_;
  double ratio_ = 1;
};

OffsetScores Synchroniser::Grid(int stepMs, int reachMs, const ScoreWeights& weights) const {
  Ms last = 0;
  for (const CaptionTimes& times : timed_.times) last = std::max(last, std::min(times.end, kLongestMs));
  constexpr double kLargestRatio = 1.26;
  OffsetScores scores(voice_, stepMs, reachMs, static_cast<std::int32_t>(last.Count() * kLargestRatio), weights);
  scores.SetUnit(UnitOf(scores, timed_.times));
  return scores;
}

std::vector<Synchroniser::Piece> Synchroniser::PiecesOf(const OffsetScores& scores,
                                                        std::vector<OffsetChoice>& choices) const {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < choices.size(); ++i) {
    const int move = scores.MoveOf(choices[i].place);
    if (pieces.empty() || pieces.back().move != move) pieces.push_back({i, i, move});
    pieces.back().behind = i + 1;
  }
  // A place that only few captions have is too little evidence to part them from their neighbours.
  for (std::size_t i = 0; i < pieces.size() && pieces.size() > 1;) {
    if (pieces[i].behind - pieces[i].first >= kFewest) {
      ++i;
      continue;
    }
    for (std::size_t caption = pieces[i].first; caption < pieces[i].behind; ++caption) choices[caption].margin = 0;
    if (i == 0) {
      pieces[1].first = 0;
    } else {
      pieces[i - 1].behind = pieces[i].behind;
    }
    pieces.erase(pieces.begin() + i);
  }
  return pieces;
}

int Synchroniser::FineMove(const OffsetScores& fine, const Piece& piece) const {
  // The fine grid lies around 0, so the captions are moved there.
  std::vector<float> places(fine.Places());
  for (std::size_t i = piece.first; i < piece.behind; ++i) {
    CaptionTimes moved = timed_.times[i];
    moved.start = Ms::Nearest(moved.start.Count() * ratio_) + piece.move;
    moved.end = Ms::Nearest(moved.end.Count() * ratio_) + piece.move;
    if (moved.start >= 0) fine.Add(moved, 1, places);
  }
  const std::size_t best = std::ranges::max_element(places) - places.begin();
  if (best == 0 || best + 1 == places.size()) return piece.move + fine.MoveOf(best);
  // The top of the curve through the best place and its neighbours.
  const float before = places[best - 1];
  const float behind = places[best + 1];
  const float bend = before - 2 * places[best] + behind;
  const float part = bend < 0 ? 0.5F * (before - behind) / bend : 0;
  return piece.move + fine.MoveOf(best) + static_cast<int>(std::lround(part * static_cast<float>(fine.StepMs())));
}

int Synchroniser::ExactMove(const Piece& piece) const {
  std::vector<std::int64_t> differences;
  for (std::size_t i = piece.first; i < piece.behind; ++i) {
    const Ms start = Ms::Nearest(timed_.times[i].start.Count() * ratio_) + piece.move;
    const auto behind = std::ranges::lower_bound(exact_.times, start, {}, &CaptionTimes::start);
    std::int64_t nearest = kFineReachMs + 1;
    if (behind != exact_.times.end()) nearest = Span(start, behind->start);
    if (behind != exact_.times.begin()) {
      const std::int64_t before = Span(start, std::prev(behind)->start);
      if (std::abs(before) < std::abs(nearest)) nearest = before;
    }
    if (std::abs(nearest) <= kFineReachMs) differences.push_back(nearest);
  }
  if (differences.empty()) return piece.move;
  const auto middle = differences.begin() + std::ssize(differences) / 2;
  std::ranges::nth_element(differences, middle);
  return piece.move + static_cast<int>(*middle);
}

void Synchroniser::Refine(std::vector<Piece>& pieces) const {
  const OffsetScores fine = Grid(SoundTable::kStepMs, kFineReachMs, kFineWeights);
  for (Piece& piece : pieces) piece.move = FineMove(fine, piece);
  // Joins neighbours that were parted by the coarse grid alone.
  for (std::size_t i = 1; i < pieces.size();) {
    if (std::abs(pieces[i].move - pieces[i - 1].move) > kSameMs) {
      ++i;
      continue;
    }
    pieces[i - 1].behind = pieces[i].behind;
    pieces.erase(pieces.begin() + i);
    pieces[i - 1].move = FineMove(fine, pieces[i - 1]);
  }
  for (Piece& piece : pieces) piece.move = ExactMove(piece);
}

std::vector<SyncSegment> Synchroniser::SegmentsOf(const std::vector<Piece>& pieces,
                                                  const std::vector<OffsetChoice>& choices) const {
  struct Place {
    Ms offset = 0;
    float margin = -1;
  };
  std::vector<Place> rows(captions_.size());
  for (const Piece& piece : pieces) {
    for (std::size_t i = piece.first; i < piece.behind; ++i) rows[timed_.rows[i]] = {piece.move, choices[i].margin};
  }
  // Rows without times go with the one before, the first ones with the one behind.
  const auto known = std::ranges::find_if(rows, [](const Place& place) { return place.margin >= 0; });
  for (auto row = known; row != rows.begin();) *--row = *known;
  for (std::size_t row = 1; row < rows.size(); ++row) {
    if (rows[row].margin < 0) rows[row] = rows[row - 1];
  }
  std::vector<SyncSegment> segments;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const bool doubtful = rows[row].margin < kMarginOfDoubt;
    const double confidence = 1 - std::exp2(-rows[row].margin / kMarginOfDoubt);
    if (segments.empty() || segments.back().offset != rows[row].offset || segments.back().doubtful != doubtful) {
      segments.push_back({static_cast<int>(row + 1), 0, rows[row].offset, confidence, doubtful});
    }
    segments.back().last = static_cast<int>(row + 1);
    segments.back().confidence = std::min(segments.back().confidence, confidence);
  }
  return segments;
}

SyncResult Synchroniser::Find() {
  SyncResult result;
  if (timed_.times.empty() || voice_.empty()) return result;
  const OffsetScores coarse = Grid(kCoarseMs, kReachMs, kPathWeights);
  const std::vector<CaptionTimes> some = Thinned(timed_.times);
  const std::vector<Candidate> candidates = Ranked(coarse, some, kRatios);
  const float chance = Ranked(coarse, Mirrored(some), std::span(kRatios).first(kRatiosForChance)).front().worth;
  const float least = chance + kBeyondChance * std::sqrt(static_cast<float>(some.size()));
  result.belongs = candidates.front().worth > least;
  if (!result.belongs) return result;
  const OffsetScores scores = Grid(kMiddleMs, kReachMs, kPathWeights);
  result.ratio = BestOf(candidates, scores, some).ratio;
  ratio_ = result.ratio.Value();
  std::vector<OffsetChoice> choices = OffsetPath(scores, timed_.times, ratio_, kPrice).Choices(kElsewhereMs);
  std::vector<Piece> pieces = PiecesOf(scores, choices);
  Refine(pieces);
  const bool stays = pieces.size() == 1 && result.ratio == TimeRatio() &&
                     std::abs(pieces.front().move) <= (exact_.times.empty() ? kStaysMs : kStaysExactMs);
  if (stays) pieces.front().move = 0;
  result.segments = SegmentsOf(pieces, choices);
  return result;
}

}  // namespace

bool SyncResult::Changes() const {
  return ratio != TimeRatio() ||
         std::ranges::any_of(segments, [](const SyncSegment& each) { return each.offset != 0; });
}

SyncResult Synchronise(std::span<const CaptionTimes> captions, const VoiceTrack& voice,
                       std::span<const CaptionTimes> exact) {
  return Synchroniser(captions, voice, exact).Find();
}

}  // namespace cuewright

#include "voice/fit.h"

#include <algorithm>
#include <cmath>

#include "voice/band_levels.h"
#include "voice/fit_edge.h"
#include "voice/fit_memory.h"
#include "voice/fit_words.h"

namespace cuewright {
namespace {

constexpr int kStepMs = SoundTable::kStepMs;
constexpr std::ptrdiff_t kReach = 35;        ///< steps that a time may lie from the calibrated press
constexpr std::ptrdiff_t kWideReach = 60;    ///< while nothing is known of the hand
constexpr std::ptrdiff_t kLevelReach = 250;  ///< steps around a caption by which noise and voice are told
constexpr double kFirstStart = 1;            ///< ms; a start of 0 would mean no times
constexpr double kShortest = 150;            ///< ms that a voice lasts at least
/// A time moves so far that the risk of being worse than the constant is this. Less risk is taken for a caption without
/// its words, and where much of the voice is drowned, so that noise may be taken for it.
constexpr double kMostStartRisk = 0.1;
constexpr double kMostStartRiskAlone = 0.085;
constexpr double kMostEndRisk = 0.22;
constexpr double kMostEndRiskAlone = 0.16;
constexpr double kClearlyHeard = 0.8;  ///< share of a voice that is heard, from which all of the risk is taken
constexpr double kHardlyHeard = 0.5;
constexpr double kLeastRiskShare = 0.1;
/// Steps by which noise shortens a voice that is drowned whole; a voice that is drowned in part is shortened by that
/// part. The words tell where a start is that isn't heard.
constexpr double kDrownedEnd = 12;
constexpr double kDrownedStartAlone = 5;
constexpr double kEndSteps = 0.5;  ///< of the end of a voice that are too quiet even in clean sound
constexpr double kStartSteps = 0.1;
constexpr double kSureStart = 0.65;      ///< confidence from which a caption tells of the hand
constexpr double kEndDoubt = 20;         ///< ends that tell as much of the hand as its starts do
constexpr double kSureEnd = 0.5;         ///< an end is never as sure, but a median of many is
constexpr double kEndPart = 0.9;         ///< of the lateness of starts, where that of ends is not found
constexpr std::size_t kBlock = 40;       ///< captions with one model of the voice
constexpr std::size_t kNeighbours = 20;  ///< captions before and behind them that it learns from as well
constexpr std::size_t kSample = 80;      ///< captions by which the hand is judged
constexpr std::size_t kFewestSure = 5;
constexpr double kLeastSeparation = 0.35;

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + values.size() / 2;
  std::ranges::nth_element(values, middle);
  return *middle;
}

/// The standard deviation that a normal law with the values' median deviation has.
double SpreadOf(std::vector<double> values, double median) {
  for (double& value : values) value = std::abs(value - median);
  return 1.4826 * MedianOf(std::move(values));
}

std::ptrdiff_t StepAt(double ms) { return std::lround(ms / kStepMs); }

bool GivenUp(const FitChoice& choice) { return choice.giveUp != nullptr && *choice.giveUp; }

bool IsTimed(const HeldCaption& caption) { return caption.end > caption.start; }

/// When somebody speaks by the person's constant, in ms.
struct Calibrated {
  double start;
  double end;

  Calibrated(const HeldCaption& caption, const Reaction& hand)
      : start(caption.start.Count() - hand.start), end(std::max(caption.end.Count() - hand.end, start + kShortest)) {}
  StepSpan Steps() const { return {StepAt(start), StepAt(end)}; }
};

/// Steps near an edge that tell of neither side: a voice may begin or end there.
struct EdgeMargin {
  std::ptrdiff_t inside;
  std::ptrdiff_t before;
  std::ptrdiff_t behind;
};
constexpr EdgeMargin kHeldMargin{10, 20, 25};
constexpr EdgeMargin kFoundMargin{3, 6, 8};

/// True when some steps are likelier than others by what is heard.
bool Tells(const EdgeEvidence& evidence) {
  constexpr double kLeast = 0.5;
  const auto [least, most] = std::ranges::minmax(evidence.values);
  return most - least >= kLeast;
}

/// Fits the captions of a film one by one for a given hand.
class Fitter {
 public:
  Fitter(const SoundTable& sound, std::span<const HeldCaption> captions, std::span<const SoundTable> words)
      : sound_(sound), captions_(captions), words_(words) {
    for (std::size_t place = 0; place < captions.size(); ++place) {
      if (IsTimed(captions[place])) timed_.push_back(place);
    }
  }

  /// Judges captions by this hand from now on, and learns what the film's voices are from where they are by it.
  void SetHand(const Reaction& hand) {
    hand_ = hand;
    TakeVoices();
    models_.clear();
    until_.clear();
    for (std::size_t first = 0; first < timed_.size(); first += kBlock) {
      models_.push_back(Learn(first, voices_, kHeldMargin));
      until_.push_back(captions_[timed_[std::min(first + kBlock, timed_.size()) - 1]].start);
    }
  }

  /// Learns the voices once more around wanted captions, from where they were found: those places are nearer than any
  /// hand, so that the beginnings and ends of voices are learned as well.
  void LearnAgain(const FitChoice& choice) {
    constexpr std::size_t kAround = kBlock + kNeighbours;
    std::vector<StepSpan> found = voices_;
    for (std::size_t number = 0; number < timed_.size(); ++number) {
      if (GivenUp(choice)) return;
      if (!AnyWanted(number - std::min(number, kAround), number + kAround)) continue;
      const Edges edges = Fit(number);
      found[number] = {StepAt(edges.start.ms), StepAt(edges.end.ms)};
    }
    std::vector<VoiceModel> again;
    for (std::size_t first = 0; first < timed_.size(); first += kBlock) {
      const bool wanted = AnyWanted(first, first + kBlock);
      again.push_back(wanted ? Learn(first, found, kFoundMargin) : models_[first / kBlock]);
    }
    models_ = std::move(again);
  }

  /// Takes what was learned of the film by other captions.
  void Recall(const FitMemory& memory) {
    hand_ = memory.reaction;
    TakeVoices();
    models_ = memory.models;
    until_ = memory.until;
  }
  FitMemory Remember(FitMemory memory) const {
    memory.reaction = hand_;
    memory.models = models_;
    memory.until = until_;
    return memory;
  }

  const Reaction& Hand() const { return hand_; }
  /// The places of the captions with times.
  const std::vector<std::size_t>& Timed() const { return timed_; }

  double BestSeparation() const {
    double best = 0;
    for (const VoiceModel& model : models_) best = std::max(best, model.Separation());
    return best;
  }

  struct Edges {
    EdgeGuess start;
    EdgeGuess end;
    bool startTold = false;  ///< something was heard that tells of it
    bool endTold = false;
  };

  /// Where the voice of the caption with times begins and ends, `number` counting those alone.
  Edges Fit(std::size_t number) const {
    const std::size_t place = timed_[number];
    const HeldCaption& caption = captions_[place];
    const VoiceModel& model = ModelAt(caption.start);
    const Calibrated usual(caption, hand_);
    const StepSpan steps = usual.Steps();
    const std::ptrdiff_t reach = hand_.known ? kReach : kWideReach;
    const std::size_t count = 2 * reach + 1;
    const SoundLevels levels(sound_, {steps.first - kLevelReach, steps.last + kLevelReach});
    const bool spoken = place < words_.size() && words_[place].Steps() > 0;
    const double trust = spoken ? EdgeTrust::kWithWords : EdgeTrust::kAlone;
    EdgeEvidence start = StartEvidence(model, steps.first - reach, count, trust);
    EdgeEvidence end = EndEvidence(model, steps.last - reach, count, trust);
    const bool startTold = Tells(start);
    const bool endTold = Tells(end);
    const double drowned = 1 - model.Heard();
    if (!spoken) AddDrowned(start, kStartSteps + kDrownedStartAlone * drowned, Drowned::Start);
    for (std::size_t at = 0; at < count; ++at)
      start.values[at] += hand_.StartLikelihood(caption.start.Count() - MsOf(start, at));
    const bool aligned =
        spoken && WordsAlignment(sound_, model, levels, AloneAround(number)).Align(words_[place], steps, start, end);
    AddDrowned(end, kEndSteps + kDrownedEnd * drowned, Drowned::End);
    for (std::size_t at = 0; at < count; ++at)
      end.values[at] += hand_.EndLikelihood(caption.end.Count() - MsOf(end, at));
    const double share = RiskShare(model);
    return {GuessEdge(start, usual.start, share * (aligned ? kMostStartRisk : kMostStartRiskAlone)),
            GuessEdge(end, usual.end, share * (aligned ? kMostEndRisk : kMostEndRiskAlone)), startTold || aligned,
            endTold || aligned};
  }

 private:
  void TakeVoices() {
    voices_.clear();
    for (const std::size_t place : timed_) voices_.push_back(Calibrated(captions_[place], hand_).Steps());
  }

  /// What was learned around a time.
  const VoiceModel& ModelAt(Ms start) const {
    const std::size_t before = std::ranges::lower_bound(until_, start) - until_.begin();
    return models_[std::min(before, models_.size() - 1)];
  }

  /// True when one of the captions from `first` on, up to and not with `behind`, is wanted.
  bool AnyWanted(std::size_t first, std::size_t behind) const {
    const auto numbers = std::span(timed_).first(std::min(behind, timed_.size())).subspan(first);
    return std::ranges::any_of(numbers, [&](std::size_t place) { return captions_[place].wanted; });
  }

  /// The time from the caption before to the one behind.
  StepSpan AloneAround(std::size_t number) const {
    StepSpan alone;
    alone.last = sound_.Steps();
    if (number > 0) alone.first = voices_[number - 1].last;
    if (number + 1 < timed_.size()) alone.last = voices_[number + 1].first;
    return alone;
  }

  /// The share of the risk that is taken. While no hand is known there is nothing to be worse than, and all is taken.
  double RiskShare(const VoiceModel& model) const {
    constexpr double kAny = 1e9;
    if (!hand_.known) return kAny;
    return std::clamp((model.Heard() - kHardlyHeard) / (kClearlyHeard - kHardlyHeard), kLeastRiskShare, 1.0);
  }

  static double MsOf(const EdgeEvidence& edge, std::size_t place) {
    return static_cast<double>(edge.StepOf(place)) * kStepMs;
  }

  /// Learns what a voice is around a block of captions from where each is spoken; what lies nearer to an edge than the
  /// margin belongs to neither side.
  VoiceModel Learn(std::size_t block, std::span<const StepSpan> voices, const EdgeMargin& margin) const {
    constexpr std::ptrdiff_t kLongestGap = 300;
    const std::size_t first = block - std::min(block, kNeighbours);
    const std::size_t last = std::min(block + kBlock + kNeighbours, voices.size());
    std::vector<StepSpan> spoken;
    std::vector<StepSpan> others;
    for (std::size_t number = first; number < last; ++number) {
      const StepSpan& voice = voices[number];
      spoken.push_back({voice.first + margin.inside, voice.last - margin.inside});
      const std::ptrdiff_t furthest = voice.first - kLongestGap;
      const std::ptrdiff_t since = number > 0 ? voices[number - 1].last + margin.behind : furthest;
      others.push_back({std::max(since, furthest), voice.first - margin.before});
      if (number + 1 == voices.size()) others.push_back({voice.last + margin.behind, voice.last + kLongestGap});
    }
    return {sound_, spoken, others};
  }

  const SoundTable& sound_;
  std::span<const HeldCaption> captions_;
  std::span<const SoundTable> words_;
  std::vector<std::size_t> timed_;
  Reaction hand_;
  std::vector<StepSpan> voices_;  ///< where the captions with times are spoken, by the hand
  std::vector<VoiceModel> models_;
  std::vector<Ms> until_;  ///< the start of the last caption of each model
};

/// How late the hand is by the captions whose voice is found without knowing it; false when these are too few.
bool FindHand(Fitter& fitter, std::span<const HeldCaption> captions, Reaction& hand) {
  fitter.SetHand(Reaction::Unknown());
  std::vector<double> starts;
  std::vector<double> ends;
  double sureEnds = 0;
  const std::size_t count = fitter.Timed().size();
  const std::size_t sample = std::min(count, kSample);
  for (std::size_t drawn = 0; drawn < sample; ++drawn) {
    const std::size_t number = drawn * count / sample;
    const Fitter::Edges edges = fitter.Fit(number);
    const HeldCaption& caption = captions[fitter.Timed()[number]];
    if (edges.start.confidence >= kSureStart) starts.push_back(caption.start.Count() - edges.start.ms);
    if (edges.end.confidence >= kSureEnd) {
      ends.push_back(caption.end.Count() - edges.end.ms);
      sureEnds += edges.end.confidence >= kSureStart ? 1 : 0.5;
    }
  }
  const bool enough = starts.size() >= std::min(kFewestSure, sample) && !starts.empty();
  if (enough) {
    hand.start = MedianOf(starts);
    hand.startSigma = std::clamp(SpreadOf(starts, hand.start) / std::max(hand.start, 60.0), 0.2, 0.5);
  }
  // Where noise drowns ends the median is too late: few or doubtful ends count little beside what is usual for people
  // who start so late.
  const double usualEnd = enough ? kEndPart * hand.start : hand.end;
  hand.end = usualEnd;
  if (ends.empty()) return enough;
  const double found = MedianOf(ends);
  const double weight = sureEnds / (sureEnds + kEndDoubt);
  hand.end = weight * found + (1 - weight) * usualEnd;
  hand.endSpread = std::clamp(SpreadOf(ends, found), 90.0, 160.0);
  return enough;
}

/// Takes back moves by which two captions overlap, or come nearer than the gap, that did neither before.
void KeepApart(std::span<const HeldCaption> held, std::span<FittedCaption> fitted, Ms leastGap) {
  for (std::size_t place = 1; place < held.size(); ++place) {
    FittedCaption& before = fitted[place - 1];
    FittedCaption& here = fitted[place];
    if ((!before.wanted && !here.wanted) || held[place - 1].end > held[place].start) continue;
    const Ms gap = std::min(leastGap, held[place].start - held[place - 1].end);
    if (here.start - before.end >= gap) continue;
    // A viewer notices an end less than a start, so the end gives way, unless its caption would vanish or isn't wanted.
    if (before.wanted && (here.start - gap).Count() > before.start.Count() + kShortest) {
      before.end = here.start - gap;
    } else if (here.wanted && before.end + gap < here.end) {
      here.start = before.end + gap;
    } else {
      here.start = held[place].start;
      if (before.wanted) before.end = std::min(before.end, held[place - 1].end);
    }
  }
}

FittedCaption Unmoved(const HeldCaption& caption) {
  FittedCaption same;
  same.start = caption.start;
  same.end = caption.end;
  return same;
}

FittedCaption Moved(const HeldCaption& caption, const Reaction& hand, const Fitter::Edges& edges) {
  const Calibrated usual(caption, hand);
  FittedCaption fitted;
  fitted.wanted = true;
  fitted.startConfidence = edges.start.confidence;
  fitted.endConfidence = edges.end.confidence;
  fitted.startMoved = edges.startTold;
  fitted.endMoved = edges.endTold;
  const double start = std::max(kFirstStart, fitted.startMoved ? edges.start.ms : usual.start);
  const double end = std::max(fitted.endMoved ? edges.end.ms : usual.end, start + kShortest);
  fitted.start = Ms::Nearest(start);
  fitted.end = Ms::Nearest(end);
  return fitted;
}

/// Learns the hand, where it isn't told, and the film's voices.
FitProblem LearnFilm(Fitter& fitter, std::span<const HeldCaption> captions, const FitChoice& choice) {
  Reaction hand;
  bool found = true;
  const bool told = choice.hand || (choice.startLate && choice.endLate);
  if (!told) found = FindHand(fitter, captions, hand);
  if (choice.hand) hand = *choice.hand;
  if (choice.startLate) hand.start = *choice.startLate;
  if (choice.endLate) hand.end = *choice.endLate;
  fitter.SetHand(hand);
  if (!found && !choice.startLate && !choice.hand) return FitProblem::NoReaction;
  if (fitter.BestSeparation() < kLeastSeparation) return FitProblem::NoVoice;
  fitter.LearnAgain(choice);
  return GivenUp(choice) ? FitProblem::GivenUp : FitProblem::None;
}

FitProblem ProblemOf(const SoundTable& sound, std::span<const HeldCaption> captions) {
  const bool any = std::ranges::any_of(captions, [](const HeldCaption& each) { return each.wanted && IsTimed(each); });
  if (!any) return FitProblem::NoCaptions;
  return sound.Silent() ? FitProblem::Silence : FitProblem::None;
}

}  // namespace

FitResult FitCaptions(const SoundTable& sound, std::span<const HeldCaption> captions, std::span<const SoundTable> words,
                      const FitChoice& choice) {
  FitResult result;
  for (const HeldCaption& caption : captions) result.captions.push_back(Unmoved(caption));
  result.problem = ProblemOf(sound, captions);
  if (result.problem != FitProblem::None) return result;

  Fitter fitter(sound, captions, words);
  if (choice.memory != nullptr && Serves(*choice.memory, sound, captions, choice)) {
    fitter.Recall(*choice.memory);
  } else {
    result.problem = LearnFilm(fitter, captions, choice);
    if (choice.memory != nullptr) *choice.memory = {};
    if (result.problem != FitProblem::None) return result;
    if (choice.memory != nullptr) *choice.memory = fitter.Remember(MemoryFor(sound, captions, choice));
  }
  result.reaction = fitter.Hand();

  for (std::size_t number = 0; number < fitter.Timed().size(); ++number) {
    const std::size_t place = fitter.Timed()[number];
    if (GivenUp(choice)) {
      std::ranges::transform(captions, result.captions.begin(), Unmoved);
      result.problem = FitProblem::GivenUp;
      return result;
    }
    if (captions[place].wanted) result.captions[place] = Moved(captions[place], fitter.Hand(), fitter.Fit(number));
  }
  KeepApart(captions, result.captions, choice.leastGap);
  return result;
}

}  // namespace cuewright

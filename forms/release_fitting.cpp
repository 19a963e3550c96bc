#include "forms/release_fitting.h"

#include <algorithm>
#include <chrono>

#include "core/numbers.h"
#include "forms/held_hand.h"

namespace cuewright {
namespace {

constexpr std::size_t kHeard = 60;       ///< captions by which a voice is told from what else is heard
constexpr std::size_t kFewestHeld = 6;   ///< captions by which a hand that nobody measured is found
constexpr std::size_t kKeptEnough = 20;  ///< fits that tell more of a hand than one alone
constexpr double kSure = 0.8;            ///< confidence from which a fit tells of it
constexpr double kNewPart = 0.3;         ///< of what a document tells, beside what was known before

Message ReasonOf(FitProblem problem) {
  switch (problem) {
    case FitProblem::Silence:
      return Message::FitInSilence;
    case FitProblem::NoVoice:
      return Message::FitWithoutVoice;
    case FitProblem::NoReaction:
      return Message::FitWithoutHand;
    default:
      return Message::FitWithoutTimes;
  }
}

int Blend(int before, int now) { return RoundToInt32((1 - kNewPart) * before + kNewPart * now); }

}  // namespace

ReleaseFitting::ReleaseFitting(Workbench bench, TimingCapture& capture, FilmVoice& voice, FitMarks& marks,
                               const HouseCheck& check, Notices& notices)
    : bench_(bench), capture_(capture), voice_(voice), marks_(marks), check_(check), notices_(notices) {
  capture.Held.Connect([this](Row row) { OnHeld(row); });
  bench_.window.tmrRelease.Tick.Connect([this] { Poll(); });
  bench_.window.mnuFitOnRelease.Clicked.Connect([this] {
    bench_.options.fitOnRelease = !bench_.options.fitOnRelease;
    ShowItems();
  });
}

ReleaseFitting::~ReleaseFitting() { giveUp_ = true; }

void ReleaseFitting::ShowItems() {
  bench_.window.mnuFitOnRelease.SetVisible(bench_.options.manner.FitsToTheVoice());
  bench_.window.mnuFitOnRelease.SetChecked(bench_.options.fitOnRelease);
}

void ReleaseFitting::OnHeld(Row row) {
  if (!bench_.options.fitOnRelease || !bench_.options.manner.FitsToTheVoice()) return;
  const CaptionTimes times = bench_.list.TimesAt(row);
  if (times.end <= times.start) return;
  marks_.Hold(row);
  bench_.window.tmrRelease.SetEnabled(true);
}

void ReleaseFitting::Poll() {
  if (search_.valid()) {
    // Between the press and the release of a caption nothing else is a step.
    const bool ready = search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    if (ready && !capture_.Capturing()) Finish();
    return;
  }
  if (capture_.Capturing()) return;
  bench_.window.tmrRelease.SetEnabled(false);
  if (!Waiting().empty()) Begin();
}

std::vector<Row> ReleaseFitting::Waiting() const {
  std::vector<Row> rows;
  for (const auto& [row, mark] : marks_.All()) {
    if (mark.waits && bench_.list.TimesAt(row) == mark.held) rows.push_back(row);
  }
  return rows;
}

void ReleaseFitting::Begin() {
  if (rests_) return StopWaiting();
  job_ = {};
  job_.sound = voice_.Known();
  if (!job_.sound || processes_ == nullptr) return MoveByConstant();
  job_.language = bench_.options.fitLanguage;
  job_.choice.hand = HandInForce(bench_.options);
  job_.choice.leastGap = check_.LeastGap();
  job_.choice.giveUp = &giveUp_;
  if (heard_ != job_.sound) learned_ = {};
  heard_ = job_.sound;
  job_.choice.memory = &learned_;
  numbers_.clear();
  // The latest captions show what the voice sounds like; they are sorted by row, and so by time.
  std::vector<std::pair<Row, const FitMark*>> heard;
  for (const auto& [row, mark] : marks_.All()) heard.emplace_back(row, &mark);
  // A few captions can't tell the lateness of an unknown hand: they wait for more.
  if (!job_.choice.hand && heard.size() < kFewestHeld) return;
  if (heard.size() > kHeard) {
    std::ranges::nth_element(heard, heard.end() - kHeard, {}, [](const auto& each) { return each.second->number; });
    heard.erase(heard.begin(), heard.end() - kHeard);
    std::ranges::sort(heard, {}, [](const auto& each) { return each.first; });
  }
  for (const auto& [row, mark] : heard) {
    const bool wanted = mark->waits && bench_.list.TimesAt(row) == mark->held;
    AddToJob(job_, bench_.list, row, mark->held, wanted);
    numbers_.push_back(wanted ? mark->number : 0);
  }
  search_ = std::async(std::launch::async, [this] { return RunFit(job_, *processes_); });
  bench_.window.tmrRelease.SetEnabled(true);
}

void ReleaseFitting::Finish() {
  const FitFound found = search_.get();
  if (!found.wordsProblem.empty()) TellOnce(Message::WordsUnavailable, FromUtf8(found.wordsProblem));
  const FitProblem problem = found.result.problem;
  if (problem == FitProblem::GivenUp) return;
  if (problem != FitProblem::None) {
    MoveByConstant();
    TellOnce(ReasonOf(problem));
    bench_.window.tmrRelease.SetEnabled(false);
    return;
  }
  std::vector<FitMove> moves;
  for (std::size_t place = 0; place < numbers_.size(); ++place) {
    const Row row = numbers_[place] == 0 ? 0 : marks_.RowOf(numbers_[place]);
    const FittedCaption& fitted = found.result.captions[place];
    if (row == 0 || !fitted.wanted) continue;
    const HeldCaption& held = job_.held[place];
    moves.push_back(MoveOf(row, {held.start, held.end}, held, fitted));
    moves.back().mark.number = numbers_[place];
  }
  std::ranges::sort(moves, {}, &FitMove::row);
  marks_.Move(moves, job_.choice.leastGap);
}

void ReleaseFitting::MoveByConstant() {
  const std::optional<Reaction> hand = HandInForce(bench_.options);
  if (!hand) return StopWaiting();
  std::vector<FitMove> moves;
  for (const Row row : Waiting()) {
    FitMove move{row, bench_.list.TimesAt(row), *marks_.Find(row)};
    move.mark.byConstant = true;
    move.mark.fitted = {std::max<Ms>(Ms::Nearest(move.before.start.Count() - hand->start), 1),
                        Ms::Nearest(move.before.end.Count() - hand->end)};
    moves.push_back(move);
  }
  marks_.Move(moves, check_.LeastGap());
}

void ReleaseFitting::StopWaiting() {
  for (const Row row : Waiting()) marks_.Forget(row);
}

void ReleaseFitting::Forget() {
  bench_.window.tmrRelease.SetEnabled(false);
  giveUp_ = true;
  if (search_.valid()) search_.wait();
  search_ = {};
  giveUp_ = false;
  told_.clear();
  marks_.Clear();
}

void ReleaseFitting::Learn() {
  std::vector<int> presses;
  std::vector<int> releases;
  for (const auto& [row, mark] : marks_.All()) {
    if (!mark.byHand || !marks_.InForce(row, mark)) continue;
    if (mark.startMoved && mark.startConfidence >= kSure)
      presses.push_back((mark.held.start - mark.fitted.start).Count());
    if (mark.endMoved && mark.endConfidence >= kSure) releases.push_back((mark.held.end - mark.fitted.end).Count());
  }
  if (presses.size() < kKeptEnough || releases.size() < kKeptEnough) return;
  const HandTimes now = {MedianLateness(presses), LatenessSpread(presses), MedianLateness(releases),
                         LatenessSpread(releases)};
  const HandTimes before = HandTimesOf(bench_.options, bench_.options.hand);
  const HandTimes learnt =
      before == HandTimes{}
          ? now
          : HandTimes{Blend(before.pressLate, now.pressLate), Blend(before.pressSpread, now.pressSpread),
                      Blend(before.releaseLate, now.releaseLate), Blend(before.releaseSpread, now.releaseSpread)};
  KeepHandTimes(bench_.options, bench_.options.hand, learnt);
}

void ReleaseFitting::TellOnce(Message message, TextView first) {
  if (std::ranges::find(told_, message) != told_.end()) return;
  told_.push_back(message);
  notices_.Tell(message, first);
}

}  // namespace cuewright

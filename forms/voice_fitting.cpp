#include "forms/voice_fitting.h"

#include <chrono>

#include "core/runtime_error.h"
#include "text/labels.h"

namespace cuewright {

VoiceFitting::VoiceFitting(Workbench bench, FilmVoice& voice, FitMarks& marks, const HouseCheck& check,
                           Notices& notices, Messages& messages)
    : bench_(bench), voice_(voice), marks_(marks), check_(check), notices_(notices), messages_(messages) {
  bench_.window.mnuFit.Clicked.Connect([this] { Start(false); });
  bench_.window.mnuFitAll.Clicked.Connect([this] { Start(true); });
  bench_.window.tmrFit.Tick.Connect([this] { Poll(); });
  // Another document comes, or this one goes: what is found is not for that one, however much its times are alike.
  bench_.list.EnabledChanged.Connect([this](bool on) {
    if (!on) Stop();
  });
}

VoiceFitting::~VoiceFitting() { giveUp_ = true; }

void VoiceFitting::ShowItems() {
  const bool shown = voice_.Possible() && bench_.options.manner.FitsToTheVoice();
  bench_.window.mnuFit.SetVisible(shown);
  bench_.window.mnuFitAll.SetVisible(shown);
  if (!shown) Stop();
}

void VoiceFitting::Start(bool all) {
  if (bench_.window.tmrFit.Enabled()) return;
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  film_ = bench_.document.VideoPath;
  job_ = {};
  job_.language = bench_.options.fitLanguage;
  job_.choice.leastGap = check_.LeastGap();
  job_.choice.giveUp = &giveUp_;
  before_ = bench_.list.AllTimes();
  for (Row row = 1; row < bench_.list.Rows(); ++row) {
    AddToJob(job_, bench_.list, row, marks_.HeldTimes(row), all || bench_.list.SelectedRows().Has(row));
  }
  job_.sound = voice_.Known();
  CarryOn steps;
  if (!job_.sound && !steps([&] { voice_.BeginReading(); })) return Tell(Message::FilmSoundFailed, film_);
  bench_.window.tmrFit.SetEnabled(true);
  notices_.Tell(Message::FittingCaptions);
  if (job_.sound) Search();
}

void VoiceFitting::Stop() {
  if (!bench_.window.tmrFit.Enabled()) return;
  bench_.window.tmrFit.SetEnabled(false);
  giveUp_ = true;
  if (search_.valid()) search_.wait();
  search_ = {};
  giveUp_ = false;
  voice_.StopReading();
}

void VoiceFitting::Poll() {
  // The film was replaced or closed, and with it what was to be found.
  if (bench_.document.VideoPath != film_) return Stop();
  if (search_.valid()) {
    if (search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) Finish();
    return;
  }
  if (voice_.Poll()) return;
  job_.sound = voice_.Known();
  if (job_.sound) return Search();
  Stop();
  Tell(Message::FilmSoundFailed, film_);
}

void VoiceFitting::Search() {
  search_ = std::async(std::launch::async, [this] { return RunFit(job_, *processes_); });
}

void VoiceFitting::Finish() {
  bench_.window.tmrFit.SetEnabled(false);
  const FitFound found = search_.get();
  if (found.result.problem == FitProblem::None) {
    Move(found.result);
  } else {
    TellOf(found.result.problem);
  }
  if (!found.wordsProblem.empty()) Tell(Message::WordsUnavailable, FromUtf8(found.wordsProblem));
}

void VoiceFitting::Move(const FitResult& result) {
  std::vector<FitMove> moves;
  int fitted = 0;
  int doubtful = 0;
  for (std::size_t place = 0; place < before_.size(); ++place) {
    const FittedCaption& caption = result.captions[place];
    const Row row = Row::OfIndex(place);
    if (!caption.wanted || !bench_.list.InRange(row) || bench_.list.TimesAt(row) != before_[place]) continue;
    moves.push_back(MoveOf(row, before_[place], job_.held[place], caption));
    ++fitted;
    if (caption.Confidence() < kDoubtfulFit) ++doubtful;
  }
  marks_.Move(moves, job_.choice.leastGap);
  Tell(Message::CaptionsFitted, Decimal(fitted), Decimal(doubtful));
}

void VoiceFitting::TellOf(FitProblem problem) {
  switch (problem) {
    case FitProblem::None:
    case FitProblem::GivenUp:
      return;
    case FitProblem::NoCaptions:
      return Tell(Message::FitWithoutTimes);
    case FitProblem::Silence:
      return Tell(Message::FitInSilence);
    case FitProblem::NoVoice:
      return Tell(Message::FitWithoutVoice);
    case FitProblem::NoReaction:
      return Tell(Message::FitWithoutHand);
  }
}

void VoiceFitting::Tell(Message message, TextView first, TextView second) {
  if (notices_.Seen()) return notices_.Tell(message, first, second);
  messages_.Show({Fill(bench_.strings[message], first, second), BoxIcon::Information, BoxButtons::Ok,
                  WithoutDots(bench_.strings[Message::FitItem])});
}

}  // namespace cuewright

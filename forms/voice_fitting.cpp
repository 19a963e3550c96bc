#include "forms/voice_fitting.h"

#include "text/labels.h"

namespace cuewright {

VoiceFitting::VoiceFitting(Workbench bench, FilmVoice& voice, FitMarks& marks, const HouseCheck& check,
                           Notices& notices, Messages& messages)
    : bench_(bench),
      voice_(voice),
      marks_(marks),
      check_(check),
      notices_(notices),
      messages_(messages),
      search_(bench, bench.window.tmrFit, voice) {
  bench_.window.mnuFit.Clicked.Connect([this] { Start(false); });
  bench_.window.mnuFitAll.Clicked.Connect([this] { Start(true); });
  search_.Unreadable.Connect([this] { Tell(Message::FilmSoundFailed, search_.Film()); });
  search_.Done.Connect([this](const FitFound& found) { Finish(found); });
}

void VoiceFitting::ShowItems() {
  const bool shown = voice_.Possible() && bench_.options.manner.FitsToTheVoice();
  bench_.window.mnuFit.SetVisible(shown);
  bench_.window.mnuFitAll.SetVisible(shown);
  if (!shown) search_.Stop();
}

void VoiceFitting::Start(bool all) {
  if (search_.Running() || voice_.Reading()) return;
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  job_ = {};
  job_.language = bench_.options.fitLanguage;
  job_.choice.leastGap = check_.LeastGap();
  job_.choice.giveUp = &search_.GivenUp();
  before_ = bench_.list.AllTimes();
  for (Row row = 1; row < bench_.list.Rows(); ++row) {
    AddToJob(job_, bench_.list, row, marks_.HeldTimes(row), all || bench_.list.SelectedRows().Has(row));
  }
  const auto fit = [this](const std::shared_ptr<const SoundTable>& sound) {
    job_.sound = sound;
    return RunFit(job_, *processes_);
  };
  if (!search_.Begin(fit)) return Tell(Message::FilmSoundFailed, search_.Film());
  notices_.Tell(Message::FittingCaptions);
}

void VoiceFitting::Finish(const FitFound& found) {
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

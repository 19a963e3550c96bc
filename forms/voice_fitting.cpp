#include "forms/voice_fitting.h"

#include <chrono>

#include "core/media_errors.h"
#include "core/runtime_error.h"
#include "text/labels.h"

namespace cuewright {

VoiceFitting::VoiceFitting(Workbench bench, Processes* processes, const Player& player, Notices& notices,
                           Messages& messages)
    : bench_(bench), processes_(processes), player_(player), notices_(notices), messages_(messages) {
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
  const bool shown = processes_ != nullptr && bench_.options.manner.FitsToTheVoice();
  bench_.window.mnuFit.SetVisible(shown);
  bench_.window.mnuFitAll.SetVisible(shown);
  if (!shown) Stop();
}

void VoiceFitting::Start(bool all) {
  if (bench_.window.tmrFit.Enabled()) return;
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  held_.clear();
  for (Row row = 1; row < bench_.list.Rows(); ++row) {
    const CaptionTimes times = bench_.list.TimesAt(row);
    held_.push_back({times.start, times.end, all || bench_.list.SelectedRows().Has(row)});
  }
  const bool known = whole_ && film_ == bench_.document.VideoPath && track_ == player_.AudioTrack();
  CarryOn steps;
  if (!known && !steps([&] { StartReading(); })) return Tell(Message::FilmSoundFailed, bench_.document.VideoPath);
  bench_.window.tmrFit.SetEnabled(true);
  notices_.Tell(Message::FittingCaptions);
  if (known) Search();
}

void VoiceFitting::StartReading() {
  whole_ = false;
  film_ = bench_.document.VideoPath;
  track_ = player_.AudioTrack();
  sound_.Clear();
  bytes_ = {};
  child_ = processes_->Start(u"ffmpeg", SamplesArguments(film_, track_, false), {.errors = true});
  measurer_ = std::make_unique<SoundMeasurer>(sound_, kSamplesASecond);
}

void VoiceFitting::Stop() {
  bench_.window.tmrFit.SetEnabled(false);
  giveUp_ = true;
  if (search_.valid()) search_.wait();
  search_ = {};
  giveUp_ = false;
  child_.reset();
}

void VoiceFitting::Poll() {
  // The film was replaced or closed, and with it what was to be found.
  if (bench_.document.VideoPath != film_) return Stop();
  if (child_) return PollReading();
  if (search_.valid() && search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) Finish();
}

void VoiceFitting::PollReading() {
  // What ends a program comes behind the last that it wrote.
  const std::optional<int> status = child_->Ended();
  measurer_->Add(bytes_.Take(child_->TakeOutput()));
  const bool cutOff = TellsOfCutOff(child_->TakeErrors());
  if (!status && !cutOff) return;
  child_.reset();
  measurer_->Finish();
  whole_ = status == 0 && !cutOff && sound_.Steps() > 0;
  if (whole_) return Search();
  Stop();
  Tell(Message::FilmSoundFailed, film_);
}

void VoiceFitting::Search() {
  // The search reads the table and the captions, which stay as they are until it has ended.
  search_ = std::async(std::launch::async, [this] {
    FitChoice choice;
    choice.giveUp = &giveUp_;
    return FitCaptions(sound_, held_, {}, choice);
  });
}

void VoiceFitting::Finish() {
  bench_.window.tmrFit.SetEnabled(false);
  const FitResult result = search_.get();
  if (result.problem == FitProblem::None) {
    Move(result);
  } else {
    TellOf(result.problem);
  }
}

void VoiceFitting::Move(const FitResult& result) {
  CaptionList& list = bench_.list;
  std::vector<CaptionTimes> times;
  int moved = 0;
  int doubtful = 0;
  for (Row row = 1; row < list.Rows(); ++row) {
    times.push_back(list.TimesAt(row));
    const auto place = row.Index();
    if (place >= held_.size() || !result.captions[place].wanted) continue;
    // Whoever has given it other times meanwhile wants those.
    if (times.back() != CaptionTimes{held_[place].start, held_[place].end}) continue;
    const FittedCaption& fitted = result.captions[place];
    times.back() = {fitted.start, fitted.end};
    ++moved;
    if (fitted.Confidence() < kDoubtfulFit) ++doubtful;
  }
  if (moved > 0) {
    const EditScope scope(list, EditKind::Fit);
    list.Retime(1, times);
    list.SetModified();
  }
  list.SetRow(list.Selected(), false);
  Tell(Message::CaptionsFitted, Decimal(moved), Decimal(doubtful));
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

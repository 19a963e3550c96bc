#include "audio/film_sound.h"

#include <algorithm>

#include "core/media_errors.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "sound/film_samples.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kDecoder = u"ffmpeg";

}  // namespace

FilmSound::FilmSound(FilmSoundParts parts) : p_(parts) {
  MainWindow& w = p_.window;
  const bool possible = p_.processes != nullptr && p_.store != nullptr;
  w.mnuFilmSound.SetVisible(possible);
  w.mnuEmptySounds.SetVisible(possible);
  if (!possible) return;
  w.mnuFilmSound.Clicked.Connect([this] { Start(); });
  w.mnuEmptySounds.Clicked.Connect([this] { EmptyStore(); });
  w.cmdStopSound.Clicked.Connect([this] { Stop(); });
  w.tmrFilmSound.Tick.Connect([this] { Poll(); });
  w.tmrWaveDetail.Tick.Connect([this] {
    if (question_) Try(&FilmSound::TakeAnswer);
    if (child_) p_.details.Follow(unfinished_);
  });
  readMore_ = p_.details.Changed.ConnectScoped([this] {
    if (Running()) ShowProgress();
  });
  w.tmrTime.Tick.Connect([this] { StartByItself(); });
  w.mnuFile.AboutToShow.Connect([this] { ShowItem(); });
  ShowItem();
}

void FilmSound::ShowItem() { p_.window.mnuFilmSound.SetEnabled(p_.document.HasVideo() && !Running()); }

void FilmSound::Start() {
  if (Running() || !p_.document.HasVideo()) return;
  byItself_ = false;
  Begin();
}

void FilmSound::StartByItself() {
  if (Running() || !p_.options.audioBarOn || !p_.options.manner.WaveIsAWorkbench()) return;
  // The player tells the track only when the film has opened, and none of a film without sound.
  if (!p_.document.HasVideo() || p_.player.AudioTrack() < 0 || p_.document.VideoPath == film_) return;
  if (p_.bar.Loaded()) return;
  byItself_ = true;
  Begin();
}

void FilmSound::Begin() {
  film_ = p_.document.VideoPath;
  Try(&FilmSound::StartSteps);
}

void FilmSound::Try(void (FilmSound::*step)()) {
  CarryOn steps;
  if (steps([&] { (this->*step)(); })) return;
  if (Running()) Finish(false);
  if (!byItself_) Tell();
}

void FilmSound::StartSteps() {
  track_ = p_.player.AudioTrack();
  path_ = p_.store->PathFor(film_, track_);
  if (p_.store->Has(path_)) return Load();
  question_ = std::make_unique<TrackQuestion>(*p_.processes, film_, track_);
  p_.details.BeginFilm(path_);
  p_.window.mnuOpenWav.SetEnabled(false);
  p_.window.cmdStopSound.SetVisible(true);
  p_.window.tmrFilmSound.SetEnabled(true);
  p_.bar.ShowBar();
  TakeAnswer();
}

void FilmSound::TakeAnswer() {
  const std::optional<TrackFacts> facts = question_->Answer();
  if (!facts) return;
  facts_ = *facts;
  StartDecoder();
  question_.reset();
}

void FilmSound::StartDecoder() {
  unfinished_ = p_.store->Begin(path_);
  child_ = p_.processes->Start(Text(kDecoder), WaveArguments(film_, track_, facts_, unfinished_), {.errors = true});
  cutOff_ = false;
}

void FilmSound::Stop() {
  if (Running()) Finish(false);
}

void FilmSound::ForgetFilm() {
  Stop();
  film_.clear();
}

void FilmSound::Poll() {
  if (!Running()) return;
  // The film was replaced or closed: its sound is no longer wanted.
  if (p_.document.VideoPath != film_) return Stop();
  if (question_) return Try(&FilmSound::TakeAnswer);
  // Asked before the wave is read: a program that has ended by now has written all there is to read.
  const std::optional<int> status = child_->Ended();
  p_.details.Follow(unfinished_);
  // A full disk is only reported in its log, not always by its exit status.
  cutOff_ = cutOff_ || TellsOfCutOff(child_->TakeErrors());
  if (!status) return;
  const bool whole = *status == 0 && !cutOff_;
  // The rest of it is read between other events, too.
  if (whole && p_.details.ReadOn()) return;
  if (whole && CentreWasStill(facts_, p_.details.Table())) {
    p_.store->Discard(path_);
    p_.details.BeginFilm(path_);
    return Try(&FilmSound::StartDecoder);
  }
  Finish(whole);
  if (!whole && !byItself_) Tell();
}

void FilmSound::ShowProgress() {
  const double seconds = p_.details.Peaks().Length().Seconds();
  const double whole = p_.player.Duration();
  const Text amount = whole > 0 ? Decimal(static_cast<int>(std::min(seconds / whole, 1.0) * 100)) + u" %"
                                : Decimal(static_cast<int>(seconds)) + u" s";
  p_.window.lblWave.SetText(Fill(p_.strings[Message::ReadingFilmSound], amount));
  p_.window.lblWave.SetVisible(true);
}

void FilmSound::Finish(bool whole) {
  question_.reset();
  child_.reset();  // ends it when it still runs
  MainWindow& w = p_.window;
  w.tmrFilmSound.SetEnabled(false);
  w.cmdStopSound.SetVisible(false);
  w.lblWave.SetVisible(false);
  w.mnuOpenWav.SetEnabled(true);
  CarryOn steps;
  if (whole && steps([&] { p_.store->Keep(path_); })) {
    p_.details.EndFilm();
    return Load();
  }
  p_.details.Forget();
  // A wave that was open before is still shown.
  if (p_.bar.Loaded() && p_.options.manner.WaveIsAWorkbench()) p_.details.Open(p_.document.WavePath);
  p_.store->Discard(path_);
  if (whole) Tell();
}

void FilmSound::Load() {
  p_.bar.LoadWaveFile(path_, false);
  p_.bar.PlaceCurrentMarks();
}

void FilmSound::Tell() {
  p_.messages.Show({Fill(p_.strings[Message::FilmSoundFailed], film_), BoxIcon::Error, BoxButtons::Ok,
                    WithoutDots(p_.strings[Message::AudioBar])});
}

void FilmSound::EmptyStore() {
  const MessageBox question{p_.strings[Message::EmptySoundStoreQuestion], BoxIcon::Question, BoxButtons::YesNo,
                            p_.strings[Message::EmptySoundStore], true};
  if (p_.messages.Show(question) != BoxAnswer::Yes) return;
  CarryOn steps;
  steps([&] { p_.store->Empty(); });
  if (steps.Last()) p_.messages.Show({steps.Last()->description, BoxIcon::Warning});
}

}  // namespace cuewright

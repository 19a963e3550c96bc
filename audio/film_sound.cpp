#include "audio/film_sound.h"

#include <algorithm>

#include "core/counting.h"
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
  // The decoder waits while its pipe is full, so that samples are taken more often than the progress is shown.
  w.tmrWaveDetail.Tick.Connect([this] {
    if (Running()) TakeSamples();
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
  CarryOn steps;
  if (!steps([&] { StartSteps(); }) && !byItself_) Tell();
}

void FilmSound::StartSteps() {
  const int track = p_.player.AudioTrack();
  path_ = p_.store->PathFor(film_, track);
  if (p_.store->Has(path_)) return Load();
  unfinished_ = p_.store->Begin(path_);
  const TrackFacts facts = FactsOf(*p_.processes, film_, track);
  child_ = p_.processes->Start(Text(kDecoder), SamplesArguments(film_, track, facts, unfinished_), {.errors = true});
  p_.details.BeginFilm(path_);
  bytes_ = {};
  cutOff_ = false;
  samples_ = 0;
  ShowProgress();
  p_.window.mnuOpenWav.SetEnabled(false);
  p_.window.cmdStopSound.SetVisible(true);
  p_.window.tmrFilmSound.SetEnabled(true);
  p_.bar.ShowBar();
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
  // Asked before its output is taken: a program that has ended by now has written all there is to take.
  const std::optional<int> status = child_->Ended();
  TakeSamples();
  // A full disk is only reported in its log, not always by its exit status.
  cutOff_ = cutOff_ || TellsOfCutOff(child_->TakeErrors());
  if (!status) return;
  const bool whole = *status == 0 && !cutOff_;
  Finish(whole);
  if (!whole && !byItself_) Tell();
}

void FilmSound::TakeSamples() {
  const std::span<const std::int16_t> samples = bytes_.Take(child_->TakeOutput());
  p_.details.TakeSamples(samples);
  p_.details.Follow(unfinished_);
  samples_ += CountOf(samples);
  if (!samples.empty()) ShowProgress();
}

void FilmSound::ShowProgress() {
  const double seconds = static_cast<double>(samples_) / kSamplesASecond;
  const double whole = p_.player.Duration();
  const Text amount = whole > 0 ? Decimal(static_cast<int>(std::min(seconds / whole, 1.0) * 100)) + u" %"
                                : Decimal(static_cast<int>(seconds)) + u" s";
  p_.window.lblWave.SetText(Fill(p_.strings[Message::ReadingFilmSound], amount));
  p_.window.lblWave.SetVisible(true);
}

void FilmSound::Finish(bool whole) {
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

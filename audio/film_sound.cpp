#include "audio/film_sound.h"

#include <algorithm>
#include <charconv>

#include "core/media_errors.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kDecoder = u"ffmpeg";
constexpr double kMicroseconds = 1e6;
constexpr std::string_view kTimeKey = "out_time_us=";

/// The decoder's arguments. "file:" keeps a name from being taken for an option or an address.
std::vector<Text> Arguments(const Text& film, int track, const Text& wave) {
  return {u"-nostdin", u"-v", u"error", u"-y", u"-i", u"file:" + film,
          // The track that plays, or the first one; silence where it begins late, so that the wave has the film's time.
          u"-map", track < 0 ? Text(u"0:a:0") : u"0:" + Decimal(track), u"-af", u"aresample=async=1:first_pts=0",
          u"-ac", u"1", u"-ar", u"22050", u"-c:a", u"pcm_s16le", u"-map_metadata", u"-1", u"-fflags", u"+bitexact",
          u"-flags:a", u"+bitexact", u"-f", u"wav", u"-progress", u"pipe:1", u"file:" + wave,
          // For some containers the decoder takes the start of the first selected stream as the start of the film: the
          // picture and the sound are therefore selected here as well, and written nowhere.
          u"-map", u"0:v?", u"-map", u"0:a", u"-c", u"copy", u"-frames:v", u"1", u"-frames:a", u"1", u"-f", u"null",
          u"-"};
}

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
  w.mnuFile.AboutToShow.Connect([this] { p_.window.mnuFilmSound.SetEnabled(p_.document.HasVideo() && !Running()); });
}

void FilmSound::Start() {
  if (Running() || !p_.document.HasVideo()) return;
  film_ = p_.document.VideoPath;
  CarryOn steps;
  if (!steps([&] { StartSteps(); })) Tell();
}

void FilmSound::StartSteps() {
  const int track = p_.player.AudioTrack();
  path_ = p_.store->PathFor(film_, track);
  if (p_.store->Has(path_)) return Load();
  const Text unfinished = p_.store->Begin(path_);
  child_ = p_.processes->Start(Text(kDecoder), Arguments(film_, track, unfinished), {.errors = true});
  output_.clear();
  cutOff_ = false;
  done_ = 0;
  ShowProgress();
  p_.window.mnuOpenWav.SetEnabled(false);
  p_.window.cmdStopSound.SetVisible(true);
  p_.window.tmrFilmSound.SetEnabled(true);
  p_.bar.ShowBar();
}

void FilmSound::Stop() {
  if (!Running()) return;
  Finish(false);
}

void FilmSound::Poll() {
  if (!Running()) return;
  // The film was replaced or closed: its sound is no longer wanted.
  if (p_.document.VideoPath != film_) return Stop();
  ReadProgress();
  const std::optional<int> status = child_->Ended();
  // A full disk is only reported in its log, not always by its exit status.
  cutOff_ = cutOff_ || TellsOfCutOff(child_->TakeErrors());
  if (!status) return;
  const bool whole = *status == 0 && !cutOff_;
  Finish(whole);
  if (!whole) Tell();
}

void FilmSound::ReadProgress() {
  output_ += child_->TakeOutput();
  std::size_t end = 0;
  bool moved = false;
  while ((end = output_.find('\n')) != std::string::npos) {
    const std::string line = output_.substr(0, end);
    output_.erase(0, end + 1);
    if (!line.starts_with(kTimeKey)) continue;
    std::from_chars(line.data() + kTimeKey.size(), line.data() + line.size(), done_);
    moved = true;
  }
  if (moved) ShowProgress();
}

void FilmSound::ShowProgress() {
  const double seconds = static_cast<double>(std::max<std::int64_t>(done_, 0)) / kMicroseconds;
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
  if (!whole) return p_.store->Discard(path_);
  CarryOn steps;
  if (steps([&] { p_.store->Keep(path_); })) {
    Load();
  } else {
    p_.store->Discard(path_);
    Tell();
  }
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

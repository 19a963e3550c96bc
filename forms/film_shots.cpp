#include "forms/film_shots.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "capture/film_position.h"
#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "shots/measure_bytes.h"
#include "shots/shots.h"

namespace cuewright {
namespace {

/// Pictures belong to no sound track.
constexpr int kNoTrack = -1;
constexpr TextView kMeasured = u".shots";
constexpr TextView kMarks = u".marks";
/// Measures of a film of half a day.
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 27;
/// A hand means a mark this near.
constexpr Ms kReachMs = 120;

Ms MsOf(const PictureMeasure& measure) { return Ms::OfPicture(measure.us); }

}  // namespace

FilmShots::FilmShots(Workbench bench, Files& files, Processes* processes, SoundStore* store, const Player& player,
                     const FilmSound& sound)
    : bench_(bench), files_(files), processes_(processes), store_(store), player_(player), sound_(sound) {
  bench_.window.tmrTime.Tick.Connect([this] { StartByItself(); });
  bench_.window.tmrShots.Tick.Connect([this] { Poll(); });
  bench_.window.cmdStopSound.Clicked.Connect([this] { Stop(); });
}

void FilmShots::StartByItself() {
  // Once a film is open its picture has a size; a film of sound alone never has one. The sound is read first.
  if (bench_.document.VideoPath == film_ || !bench_.document.HasVideo() || !player_.Picture() || sound_.Running()) {
    return;
  }
  if (!bench_.options.manner.WaveIsAWorkbench()) return;
  TakeUp();
  if (measures_.empty() && bench_.options.findShots && processes_ != nullptr) Begin();
}

void FilmShots::TakeUp() {
  ForgetFilm();
  film_ = bench_.document.VideoPath;
  CarryOn step;
  if (store_ != nullptr) step([&] { path_ = store_->PathFor(film_, kNoTrack); });
  if (!path_.empty()) {
    ReadMeasures(Kept(path_ + Text(kMeasured)), measures_);
    marks_.Read(Kept(path_ + Text(kMarks)));
  }
  Decide();
}

std::string FilmShots::Kept(const Text& path) const {
  std::string bytes;
  CarryOn step;
  step([&] {
    if (files_.Exists(path)) bytes = files_.Read(path, kMostBytes);
  });
  return bytes;
}

void FilmShots::Keep(const Text& path, const std::string& bytes) {
  if (path_.empty()) return;
  CarryOn step;
  // Shots that the cache can't keep are searched again the next time.
  step([&] {
    store_->Begin(path_);  // makes the folder
    files_.WritePrivate(path, bytes);
  });
}

void FilmShots::Begin() {
  measurer_ = std::make_unique<ShotMeasurer>();
  CarryOn step;
  step([&] { pictures_ = std::make_unique<FilmPictures>(*processes_, film_, *measurer_, true); });
  if (!pictures_) return;
  bench_.window.tmrShots.SetEnabled(true);
  bench_.window.cmdStopSound.SetVisible(true);
  ShowProgress();
}

void FilmShots::Stop() {
  if (!Running()) return;
  bench_.window.tmrShots.SetEnabled(false);
  pictures_.reset();  // ends the decoder when it still runs
  measurer_.reset();
  // The progress line may meanwhile be in use for the film's sound.
  if (sound_.Running()) return;
  bench_.window.cmdStopSound.SetVisible(false);
  bench_.window.lblWave.SetVisible(false);
}

void FilmShots::ForgetFilm() {
  Stop();
  const bool had = !shots_.empty();
  film_.clear();
  path_.clear();
  measures_ = {};
  found_.clear();
  shots_.clear();
  marks_.Clear();
  if (had) Changed();
}

void FilmShots::Poll() {
  if (!Running()) return;
  if (bench_.document.VideoPath != film_) return ForgetFilm();
  if (const auto reading = pictures_->Poll()) return Finish(*reading);
  ShowProgress();
}

void FilmShots::ShowProgress() {
  const double whole = player_.Duration();
  if (sound_.Running() || whole <= 0) return;
  const int percent = RoundToInt32(std::trunc(std::clamp(pictures_->Seconds() / whole, 0.0, 1.0) * 100));
  bench_.window.lblWave.SetText(Fill(bench_.strings[Message::FindingShots], Decimal(percent) + u" %"));
  bench_.window.lblWave.SetVisible(true);
}

void FilmShots::Finish(const FilmReading& reading) {
  measures_ = measurer_->Measures();
  Stop();
  // Of a film that breaks off the shots so far are shown, but not kept: the rest may be readable the next time.
  if (reading.problem.empty()) Keep(path_ + Text(kMeasured), BytesOf(measures_));
  Decide();
}

void FilmShots::Decide() {
  found_.clear();
  for (const Shot& shot : FindShots(measures_, bench_.options.shotSense / 100.0)) found_.push_back(shot.At());
  shots_ = marks_.Apply(found_);
  Changed();
}

void FilmShots::SetSensitivity(int percent) {
  bench_.options.shotSense = percent;
  Decide();
}

std::optional<FilmShots::Marked> FilmShots::Toggle(Ms ms) {
  if (!bench_.document.HasVideo()) return {};
  if (bench_.document.VideoPath != film_) TakeUp();
  // A shot begins with a picture.
  if (const auto picture = PictureAt(ms)) ms = PictureBegins(*picture).value_or(ms);
  const std::vector<Ms> before = std::exchange(shots_, {});
  const ShotMarks::Change change = marks_.Toggle(ms, found_, kReachMs);
  shots_ = marks_.Apply(found_);
  Keep(path_ + Text(kMarks), marks_.Lines());
  // The shot that was set or taken, which may lie a picture beside the time that was asked for.
  std::vector<Ms> other;
  std::ranges::set_symmetric_difference(before, shots_, std::back_inserter(other));
  Changed();
  return Marked{change, other.empty() ? ms : other.front()};
}

std::optional<FilmShots::Marked> FilmShots::ToggleAtFilm() {
  return bench_.document.HasVideo() ? Toggle(FilmPosition(bench_.window, player_)) : std::nullopt;
}

std::optional<std::int32_t> FilmShots::PictureAt(Ms ms) const {
  const auto behind = std::ranges::upper_bound(measures_, ms, {}, MsOf);
  if (behind == measures_.begin()) return {};
  return PlaceAt(measures_, behind) - 1;
}

std::optional<Ms> FilmShots::PictureBegins(std::int32_t picture) const {
  if (picture < 0 || picture >= CountOf(measures_)) return {};
  return MsOf(ItemAt(measures_, picture));
}

}  // namespace cuewright

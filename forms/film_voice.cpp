#include "forms/film_voice.h"

#include "core/media_errors.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kMostTable = 1 << 26;

}  // namespace

FilmVoice::FilmVoice(const DocumentState& document, const Player& player, const Files& files, Processes* processes,
                     SoundStore* store)
    : document_(document), player_(player), files_(files), processes_(processes), store_(store) {}

bool FilmVoice::IsOfOpenFilm() const { return film_ == document_.VideoPath && track_ == player_.AudioTrack(); }

std::shared_ptr<const SoundTable> FilmVoice::Known() {
  if (!document_.HasVideo()) return nullptr;
  if (table_ && IsOfOpenFilm()) return table_;
  if (!Reading() && !TakeKept()) return nullptr;
  return IsOfOpenFilm() ? table_ : nullptr;
}

bool FilmVoice::TakeKept() {
  if (store_ == nullptr) return false;
  const int track = player_.AudioTrack();
  auto kept = std::make_shared<SoundTable>();
  bool read = false;
  CarryOn step;
  step([&] {
    const Text path = SoundTableBeside(store_->PathFor(document_.VideoPath, track));
    read = files_.Exists(path) && kept->Read(files_.Read(path, kMostTable)) && kept->Steps() > 0;
  });
  if (!read) return false;
  film_ = document_.VideoPath;
  track_ = track;
  table_ = std::move(kept);
  return true;
}

void FilmVoice::BeginReading() {
  StopReading();
  table_.reset();
  film_ = document_.VideoPath;
  track_ = player_.AudioTrack();
  question_ = std::make_unique<TrackQuestion>(*processes_, film_, track_);
  TakeAnswer();
}

void FilmVoice::TakeAnswer() {
  const std::optional<TrackFacts> facts = question_->Answer();
  if (!facts) return;
  facts_ = *facts;
  question_.reset();
  StartDecoder();
}

void FilmVoice::StartDecoder() {
  growing_ = std::make_shared<SoundTable>();
  bytes_ = {};
  child_ = processes_->Start(u"ffmpeg", SamplesArguments(film_, track_, facts_), {.errors = true});
  measurer_ = std::make_unique<SoundMeasurer>(*growing_, kSamplesASecond);
}

void FilmVoice::StopReading() {
  question_.reset();
  child_.reset();
  measurer_.reset();
  growing_.reset();
}

bool FilmVoice::Poll() {
  CarryOn step;
  if (!step([&] { GoOn(); })) StopReading();
  return Reading();
}

void FilmVoice::GoOn() {
  if (question_) return TakeAnswer();
  if (!child_) return;
  // Asked before its output is taken: a program that has ended by now has written all there is to take.
  const std::optional<int> status = child_->Ended();
  measurer_->Add(bytes_.Take(child_->TakeOutput()));
  const bool cutOff = TellsOfCutOff(child_->TakeErrors());
  if (!status && !cutOff) return;
  measurer_->Finish();
  if (status == 0 && !cutOff && growing_->Steps() > 0) {
    if (CentreWasStill(facts_, *growing_)) return StartDecoder();
    table_ = std::move(growing_);
  }
  StopReading();
}

}  // namespace cuewright

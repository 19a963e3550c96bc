#include "audio/wave_details.h"

#include "core/runtime_error.h"
#include "sound/film_samples.h"

namespace cuewright {
namespace {

/// Bytes that are read in one tick of the timer, few enough that the window goes on painting meanwhile.
constexpr std::size_t kPiece = 1 << 20;
constexpr std::size_t kPieceToMeasure = 1 << 18;
constexpr std::uint64_t kMostTable = 1 << 26;

}  // namespace

WaveDetails::WaveDetails(MainWindow& window, Files& files) : window_(window), files_(files) {
  window_.tmrWaveDetail.Tick.Connect([this] { Tick(); });
}

void WaveDetails::Open(TextView path) {
  const bool same = path == path_;
  if (same && (reader_.Open() || peaks_.Length() > 0)) return;
  growing_ = false;
  BeginFile(path);
  if (!same) {
    path_ = path;
    if (!ReadTable()) reader_.Measure(table_);
  }
  Changed();
}

bool WaveDetails::ReadTable() {
  table_.Clear();
  const Text path = SoundTableBeside(path_);
  bool read = false;
  CarryOn step;
  step([&] { read = files_.Exists(path) && table_.Read(files_.Read(path, kMostTable)); });
  return read;
}

void WaveDetails::BeginFile(TextView file) {
  reader_.Forget();
  fine_.Forget();
  CarryOn step;
  step([&] { reader_.Begin(files_.OpenToRead(file)); });
  ShowTimer();
}

void WaveDetails::ShowTimer() { window_.tmrWaveDetail.SetEnabled(growing_ || reader_.Open()); }

void WaveDetails::BeginFilm(TextView path) {
  Forget();
  path_ = path;
  growing_ = true;
  measurer_ = std::make_unique<SoundMeasurer>(table_, kSamplesASecond);
  ShowTimer();
}

void WaveDetails::TakeSamples(std::span<const std::int16_t> samples) {
  if (measurer_ && !samples.empty()) measurer_->Add(samples);
}

void WaveDetails::Follow(TextView unfinished) {
  if (!reader_.Open() && files_.Exists(unfinished)) BeginFile(unfinished);
}

void WaveDetails::EndFilm() {
  growing_ = false;
  ShowTimer();
  if (!measurer_) return;
  measurer_->Finish();
  measurer_.reset();
  CarryOn step;
  // Without that file the table is measured anew the next time.
  step([&] { files_.WritePrivate(SoundTableBeside(path_), table_.Bytes()); });
  Changed();
}

void WaveDetails::Forget() {
  growing_ = false;
  reader_.Forget();
  fine_.Forget();
  measurer_.reset();
  table_.Clear();
  path_.clear();
  ShowTimer();
  Changed();
}

void WaveDetails::Tick() {
  if (!reader_.Open()) return;
  auto result = WaveDetailReader::Result::NoWave;
  CarryOn step;
  step([&] { result = reader_.Read(reader_.Measuring() ? kPieceToMeasure : kPiece); });
  if (result == WaveDetailReader::Result::Read) return Changed();
  if (result == WaveDetailReader::Result::Nothing && growing_) return;
  End();
}

void WaveDetails::End() {
  reader_.Finish();
  reader_.Close();
  CarryOn step;
  // Of a file that can't be opened pictures show the table alone.
  step([&] { fine_.Open(files_.OpenToRead(path_), reader_.Layout()); });
  ShowTimer();
  Changed();
}

}  // namespace cuewright

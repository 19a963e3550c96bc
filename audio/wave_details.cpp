#include "audio/wave_details.h"

#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Bytes that are read in one tick of the timer, few enough that the window goes on painting meanwhile.
constexpr std::size_t kPiece = 1 << 20;
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
  if (!same) table_.Clear();
  path_ = path;
  if (table_.Steps() == 0 && !ReadTable()) reader_.Measure(table_);
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
  ShowTimer();
}

void WaveDetails::Follow(TextView unfinished) {
  if (reader_.Open() || !files_.Exists(unfinished)) return;
  BeginFile(unfinished);
  table_.Clear();
  reader_.Measure(table_);
}

void WaveDetails::EndFilm() {
  growing_ = false;
  if (!reader_.Open()) {
    // It couldn't be read while it grew, and is read anew once it is opened.
    reader_.Forget();
    return ShowTimer();
  }
  End();
  CarryOn step;
  // Without that file the table is measured anew the next time.
  step([&] { files_.WritePrivate(SoundTableBeside(path_), table_.Bytes()); });
}

void WaveDetails::Forget() {
  growing_ = false;
  reader_.Forget();
  fine_.Forget();
  table_.Clear();
  path_.clear();
  ShowTimer();
  Changed();
}

bool WaveDetails::ReadOn() {
  if (!reader_.Open()) return false;
  auto result = WaveDetailReader::Result::NoWave;
  CarryOn step;
  step([&] { result = reader_.Read(kPiece); });
  // Closed: what was measured of it isn't all of it.
  if (result == WaveDetailReader::Result::NoWave) End();
  if (result == WaveDetailReader::Result::Read) Changed();
  return result == WaveDetailReader::Result::Read;
}

void WaveDetails::Tick() {
  if (!ReadOn() && !growing_ && reader_.Open()) End();
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

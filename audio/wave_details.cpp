#include "audio/wave_details.h"

#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Bytes that are read at once: about what a picture may take.
constexpr std::size_t kPiece = 1 << 20;

}  // namespace

WaveDetails::WaveDetails(MainWindow& window, Files& files) : window_(window), files_(files) {
  window_.tmrWaveDetail.Tick.Connect([this] { Tick(); });
}

void WaveDetails::Open(TextView path) {
  if (path == path_) return;
  growing_ = false;
  Begin(path, path);
}

void WaveDetails::Follow(TextView unfinished, TextView path) {
  growing_ = true;
  Begin(unfinished, path);
}

void WaveDetails::Begin(TextView file, TextView path) {
  reader_.Forget();
  path_.clear();
  CarryOn step;
  // What a decoder writes may not have been made yet: it is opened once more then, when it is whole.
  if (step([&] { reader_.Begin(files_.OpenToRead(file)); })) path_ = path;
  window_.tmrWaveDetail.SetEnabled(reader_.Open());
  Changed();
}

void WaveDetails::Forget() {
  growing_ = false;
  reader_.Forget();
  path_.clear();
  window_.tmrWaveDetail.SetEnabled(false);
  Changed();
}

void WaveDetails::Tick() {
  if (!reader_.Open()) return;
  auto result = WaveDetailReader::Result::NoWave;
  CarryOn step;
  step([&] { result = reader_.Read(kPiece); });
  if (result == WaveDetailReader::Result::Read) return Changed();
  if (result == WaveDetailReader::Result::Nothing && growing_) return;
  End();
}

void WaveDetails::End() {
  reader_.Finish();
  reader_.Close();
  window_.tmrWaveDetail.SetEnabled(false);
  Changed();
}

}  // namespace cuewright

#include "audio/wave_detail_reader.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "text/byte_numbers.h"

namespace cuewright {
namespace {

constexpr std::size_t kMostHeader = 4096;
constexpr std::uint32_t kLeastRateToMeasure = 16000;
constexpr std::uint64_t kMsASecond = 1000;
/// From this size on the header tells none: its writer hasn't ended, or the file has more than 4 GiB.
constexpr std::uint32_t kUnknownSize = 0xFFFFFF00;

/// Samples of 8 bits, of which 128 is silence.
struct Sample8 {
  static constexpr std::size_t kBytes = 1;
  static std::int16_t At(const char* at) { return static_cast<std::int16_t>((ByteOf(*at) - 128) * 256); }
};

}  // namespace

void WaveDetailReader::Begin(std::unique_ptr<FileReader> file) {
  Forget();
  file_ = std::move(file);
}

void WaveDetailReader::Forget() {
  file_.reset();
  peaks_.Clear();
  position_ = dataBegin_ = frame_ = msEnd_ = 0;
  begun_ = false;
  table_ = nullptr;
  measurer_.reset();
}

WaveDetailReader::Header WaveDetailReader::ReadHeader() {
  buffer_.resize(kMostHeader);
  const std::string_view bytes(buffer_.data(), file_->ReadAt(0, buffer_.data(), kMostHeader));
  constexpr std::size_t kFirstChunk = 12;
  if (bytes.size() < kFirstChunk) return Header::Missing;
  if (!bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE") return Header::NoWave;
  constexpr std::size_t kChunkHead = 8;
  constexpr std::size_t kFormat = 16;
  for (std::size_t at = kFirstChunk; at + kChunkHead <= bytes.size();) {
    const std::string_view name = bytes.substr(at, 4);
    const std::uint32_t size = NumberOf<std::uint32_t>(bytes.substr(at + 4, 4));
    const std::size_t body = at + kChunkHead;
    if (name == "data") {
      if (frameBytes_ == 0 || rate_ == 0 || (bits_ != 8 && bits_ != 16)) return Header::NoWave;
      position_ = dataBegin_ = body;
      end_ = size == 0 || size >= kUnknownSize ? std::numeric_limits<std::uint64_t>::max() : position_ + size;
      msEnd_ = (rate_ + kMsASecond - 1) / kMsASecond;
      if (table_ != nullptr && rate_ >= kLeastRateToMeasure && bits_ == 16) {
        measurer_ = std::make_unique<SoundMeasurer>(*table_, rate_);
      }
      return Header::Read;
    }
    if (name == "fmt " && body + kFormat <= bytes.size()) {
      rate_ = NumberOf<std::uint32_t>(bytes.substr(body + 4, 4));
      frameBytes_ = NumberOf<std::uint32_t>(bytes.substr(body + 12, 2));
      bits_ = NumberOf<std::uint32_t>(bytes.substr(body + 14, 2));
    }
    at = body + size;
  }
  return bytes.size() == kMostHeader ? Header::NoWave : Header::Missing;
}

WaveDetailReader::Result WaveDetailReader::Read(std::size_t most) {
  if (position_ == 0) {
    const Header header = ReadHeader();
    if (header != Header::Read) return header == Header::NoWave ? Result::NoWave : Result::Nothing;
  }
  const std::uint64_t left = end_ - std::min(end_, position_);
  const std::size_t wanted = std::min<std::uint64_t>(std::max<std::size_t>(most, frameBytes_), left);
  buffer_.resize(wanted);
  const std::size_t frames = file_->ReadAt(position_, buffer_.data(), wanted) / frameBytes_;
  if (frames == 0) return Result::Nothing;
  position_ += frames * frameBytes_;
  if (bits_ == 16) {
    Take<Sample16>(buffer_.data(), frames);
    if (measurer_) Mix({buffer_.data(), frames * frameBytes_});
  } else {
    Take<Sample8>(buffer_.data(), frames);
  }
  return Result::Read;
}

template <class Sample>
void WaveDetailReader::Take(const char* bytes, std::size_t frames) {
  const char* const end = bytes + frames * frameBytes_;
  while (bytes < end) {
    // What the buffer has of the current ms.
    const std::uint64_t room = (msEnd_ - frame_) * frameBytes_;
    const char* const stop = bytes + std::min<std::uint64_t>(room, end - bytes);
    int maximum = begun_ ? peak_.maximum : std::numeric_limits<std::int16_t>::min();
    int minimum = begun_ ? peak_.minimum : std::numeric_limits<std::int16_t>::max();
    frame_ += (stop - bytes) / frameBytes_;
    for (; bytes < stop; bytes += Sample::kBytes) {
      const int sample = Sample::At(bytes);
      maximum = std::max(maximum, sample);
      minimum = std::min(minimum, sample);
    }
    peak_ = {static_cast<std::int16_t>(maximum), static_cast<std::int16_t>(minimum)};
    begun_ = true;
    if (frame_ < msEnd_) return;
    // At less than 1000 samples a second one sample lasts for several ms.
    const std::uint64_t whole = frame_ * kMsASecond / rate_;
    std::uint64_t ms = peaks_.Length().Count();
    for (; ms < whole; ++ms) peaks_.Append(peak_);
    begun_ = false;
    msEnd_ = ((ms + 1) * rate_ + kMsASecond - 1) / kMsASecond;
  }
}

void WaveDetailReader::Mix(std::span<const char> bytes) {
  mixed_.clear();
  MixFrames(bytes, frameBytes_, mixed_);
  measurer_->Add(mixed_);
}

void WaveDetailReader::Finish() {
  if (measurer_) measurer_->Finish();
  measurer_.reset();
  table_ = nullptr;
  if (!begun_) return;
  peaks_.Append(peak_);
  begun_ = false;
}

}  // namespace cuewright

#include "runner/sound_times.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr double kFirst = 0.005;  // seconds
/// A packet length counts as the encoder's own when at least one packet in this many has it.
constexpr long long kSeldom = 50;
constexpr double kGap = 0.01;  // some containers round each packet's time to ms
constexpr std::size_t kMostStreams = 64;
constexpr std::size_t kLongestLine = 4096;

}  // namespace

void SoundTimes::Take(std::string_view bytes) {
  rest_ += bytes;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = rest_.find('\n', begin)) != std::string::npos; begin = end + 1) {
    TakeLine(rest_.substr(begin, end - begin));
  }
  rest_.erase(0, begin);
  if (rest_.size() > kLongestLine) rest_.clear();
}

SoundTimes::Stream& SoundTimes::At(std::size_t number) {
  if (number >= streams_.size()) streams_.resize(number + 1);
  return streams_[number];
}

void SoundTimes::TakeLine(const std::string& line) {
  unsigned number = 0;
  long long above = 0;
  long long below = 0;
  char kind[16] = "";
  if (std::sscanf(line.c_str(), "#tb %u: %lld/%lld", &number, &above, &below) == 3) {
    if (number < kMostStreams && below > 0) At(number).unit = ToReal(above) / ToReal(below);
  } else if (std::sscanf(line.c_str(), "#media_type %u: %15s", &number, kind) == 2) {
    if (number < kMostStreams) At(number).sound = std::string_view(kind) == "audio";
  } else {
    long long dts = 0;
    long long pts = 0;
    long long duration = 0;
    if (std::sscanf(line.c_str(), "%u, %lld, %lld, %lld", &number, &dts, &pts, &duration) != 4) return;
    if (number < streams_.size() && streams_[number].sound) TakePacket(streams_[number], pts, duration);
  }
}

void SoundTimes::TakePacket(Stream& stream, std::int64_t pts, std::int64_t duration) {
  const double start = ToReal(pts) * stream.unit;
  const double expected = stream.end.value_or(0);
  if (std::abs(start - expected) > (stream.end ? kGap : kFirst)) even_ = false;
  const double length = ToReal(duration) * stream.unit;
  ++stream.packets;
  ++stream.lengths[std::llround(length * 1000)];
  stream.end = start + length;
}

bool SoundTimes::Even() const {
  if (!even_) return false;
  for (const Stream& stream : streams_) {
    for (const auto& [length, count] : stream.lengths) {
      // Some containers store a gap as one long packet. Regular packets may differ in length, but each length is
      // frequent.
      const bool longer = ToReal(length) > 2 * ToReal(stream.lengths.begin()->first) + kGap * 1000;
      if (longer && count * kSeldom < stream.packets + kSeldom) return false;
    }
  }
  return true;
}

}  // namespace cuewright

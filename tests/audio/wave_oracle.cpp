#include "tests/audio/wave_oracle.h"

#include <cfenv>
#include <cmath>
#include <limits>
#include <optional>

namespace cuewright::testing {
namespace {

struct Failure {};

/// Whole numbers of a width; anything beyond fails.
std::int64_t Fits(std::int64_t value, std::int64_t lowest, std::int64_t highest) {
  if (value < lowest || value > highest) throw Failure{};
  return value;
}
std::int64_t Fits16(std::int64_t value) { return Fits(value, -32768, 32767); }
std::int64_t Fits32(std::int64_t value) {
  return Fits(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
}

/// The nearest whole number, a tie to the even one.
std::int64_t Rounded32(double value) {
  if (!(std::abs(value) < 4e9)) throw Failure{};
  const double down = std::floor(value);
  const double part = value - down;
  const auto whole = static_cast<std::int64_t>(down);
  if (part < 0.5) return Fits32(whole);
  if (part > 0.5) return Fits32(whole + 1);
  return Fits32(whole % 2 == 0 ? whole : whole + 1);
}

double Divided(double a, double b) {
  if (b == 0) throw Failure{};
  return a / b;
}

class Reading {
 public:
  Reading(std::string_view file, std::int32_t screenColumns, int giveUpAt)
      : file_(file), screenColumns_(screenColumns), giveUpAt_(giveUpAt) {}

  WaveOutcome Run() {
    try {
      Header();
      Measures();
      out_.end = Walk() ? WaveOutcome::End::Loaded : WaveOutcome::End::GivenUp;
    } catch (const Failure&) {
      out_.end = WaveOutcome::End::Failed;
    }
    return out_;
  }

 private:
  /// One byte at a position counted from 1.
  unsigned Byte(std::int64_t position) const {
    if (position < 1 || position > static_cast<std::int64_t>(file_.size())) throw Failure{};
    return static_cast<unsigned char>(file_[static_cast<std::size_t>(position - 1)]);
  }
  std::string Bytes(std::int64_t position, int count) const {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(Byte(position + i));
    return bytes;
  }
  std::int64_t Unsigned(std::int64_t position, int size) const {
    std::int64_t value = 0;
    for (int i = size - 1; i >= 0; --i) value = value * 256 + Byte(position + i);
    return value;
  }
  std::int64_t Signed32(std::int64_t position) const { return static_cast<std::int32_t>(Unsigned(position, 4)); }
  /// Reads bytes for nothing. Only the first missing one matters.
  void Discard(std::int64_t& position, std::int64_t count) const {
    for (; count > 0; --count) Byte(position++);
  }

  void Header() {
    if (Bytes(1, 4) != "RIFF" || Bytes(9, 4) != "WAVE" || Bytes(13, 4) != "fmt ") throw Failure{};
    const std::int64_t formatSize = Unsigned(17, 4);
    samplesPerSecond_ = Signed32(25);
    bytesPerSecond_ = Signed32(29);
    bits_ = Unsigned(35, 2);
    std::int64_t position = 37;
    Discard(position, formatSize - 16);
    for (;;) {
      const std::string name = Bytes(position, 4);
      dataSize_ = Unsigned(position + 4, 4);
      position += 8;
      if (name == "data") break;
      Discard(position, dataSize_);
    }
    out_.events.emplace_back("header");
  }

  void Measures() {
    const auto length = static_cast<std::int64_t>(file_.size());
    start_ = Fits16(length - dataSize_ + 1);
    const auto a = static_cast<double>(length - start_);
    const auto rate = static_cast<double>(samplesPerSecond_);
    const double tens = std::floor(Divided(a, rate) * 100) + 1;
    out_.peakCount =
        static_cast<std::int32_t>(Rounded32(tens * Divided(rate, static_cast<double>(bytesPerSecond_)) * 2));
    columnBytes_ = Fits16(Rounded32(static_cast<double>(bytesPerSecond_) / 100));
    if (columnBytes_ % 2 != 0) {
      columnBytes_ -= 1;
      alternate_ = true;
    }
    if (columnBytes_ < 1) throw Failure{};
    out_.events.emplace_back("begin");
    const std::int64_t bound = Fits32(std::int64_t{out_.peakCount} + 1);
    if (bound < 0) throw Failure{};
    out_.upperBound = static_cast<std::int32_t>(bound);
    const auto minutes = static_cast<std::int64_t>(
        std::trunc(static_cast<double>(Rounded32(static_cast<double>(out_.peakCount) / 200)) / 60));
    step_ = minutes <= 10 ? 16 : minutes <= 30 ? 32 : 64;
  }

  std::int64_t Sample(std::int64_t position) const {
    if (bits_ == 8) return Fits16((static_cast<std::int64_t>(Byte(position)) - 127) * 256);
    return static_cast<std::int16_t>(Unsigned(position, 2));
  }

  /// False when it was given up.
  bool Walk() {
    std::int64_t entry = 0;
    std::int64_t counter = 0;
    std::int64_t maximum = 0;
    std::int64_t minimum = 0;
    for (std::int64_t p = start_; p <= dataSize_; p = Fits32(p + step_)) {
      const std::int64_t sample = Sample(p);
      if (sample > maximum) maximum = sample;
      if (sample < minimum) minimum = sample;
      counter += step_;
      if (entry > out_.peakCount) break;
      if (counter < columnBytes_) continue;
      out_.peaks.push_back(static_cast<std::int16_t>(maximum));
      out_.peaks.push_back(static_cast<std::int16_t>(minimum));
      maximum = minimum = 0;
      if (alternate_) columnBytes_ += (entry / 2) % 2 == 0 ? 2 : -2;
      p -= counter - columnBytes_;
      counter = 0;
      if (entry / 2 == screenColumns_) out_.events.push_back("screenful " + std::to_string(entry / 2));
      entry += 2;
      if ((entry + 10) % 1000 != 0) continue;
      out_.events.push_back("progress " + std::to_string(p) + "/" + std::to_string(dataSize_));
      if (++progresses_ == giveUpAt_) return false;
    }
    return true;
  }

  std::string_view file_;
  std::int32_t screenColumns_;
  int giveUpAt_;
  int progresses_ = 0;
  std::int64_t samplesPerSecond_ = 0;
  std::int64_t bytesPerSecond_ = 0;
  std::int64_t bits_ = 0;
  std::int64_t dataSize_ = 0;
  std::int64_t start_ = 0;
  std::int64_t columnBytes_ = 0;
  bool alternate_ = false;
  std::int64_t step_ = 0;
  WaveOutcome out_;
};

}  // namespace

WaveOutcome ReadWaveSlowly(std::string_view file, std::int32_t screenColumns, int giveUpAt) {
  return Reading(file, screenColumns, giveUpAt).Run();
}

}  // namespace cuewright::testing

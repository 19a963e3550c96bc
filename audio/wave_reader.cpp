#include "audio/wave_reader.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "sound/sample.h"

namespace cuewright {
namespace {

/// Bytes that are read at once: few enough to stay in the nearest cache, many enough to make calls cheap.
constexpr std::size_t kPiece = 1 << 17;
constexpr std::int64_t kLastPosition = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kProgressEvery = 1000;  // entries
constexpr std::int32_t kProgressAhead = 10;
constexpr std::int64_t kShortMinutes = 10;
constexpr std::int64_t kMiddleMinutes = 30;

[[noreturn]] void ThrowNoWave() { throw RuntimeError{kErrorDeviceIo, u"Not a wave file"}; }
[[noreturn]] void ThrowPastEnd() { throw RuntimeError{62, u"Input past end of file"}; }

double Divided(double a, std::int32_t b) {
  if (b == 0) throw RuntimeError{11, u"Division by zero"};
  return a / b;
}

struct Extremes {
  std::int32_t maximum = 0;
  std::int32_t minimum = 0;
};

/// Looks at samples of 16 bits, the lower byte first.
struct Samples16 {
  static constexpr std::size_t kSize = 2;

  static Extremes Of(const unsigned char* at, std::int64_t count, std::size_t step) {
    Extremes found;
    for (; count > 0; --count, at += step) {
      const std::int16_t sample = SampleOf(at[0], at[1]);
      found.maximum = std::max<std::int32_t>(found.maximum, sample);
      found.minimum = std::min<std::int32_t>(found.minimum, sample);
    }
    return found;
  }
};

/// The same for samples of 8 bits; the highest level does not fit into 16 bits and is a run-time error.
struct Samples8 {
  static constexpr std::size_t kSize = 1;

  static Extremes Of(const unsigned char* at, std::int64_t count, std::size_t step) {
    constexpr std::int32_t kSilence = 127;
    std::int32_t highest = kSilence;
    std::int32_t lowest = kSilence;
    for (; count > 0; --count, at += step) {
      highest = std::max<std::int32_t>(highest, *at);
      lowest = std::min<std::int32_t>(lowest, *at);
    }
    return {Checked16((highest - kSilence) * 256).Value(), (lowest - kSilence) * 256};
  }
};

}  // namespace

struct WaveReader::Format {
  std::int32_t samplesPerSecond = 0;
  std::int32_t bytesPerSecond = 0;
  int bits = 0;
  std::uint32_t dataSize = 0;
};

/// How the samples are walked through.
struct WaveReader::Course {
  std::int64_t first = 0;  ///< position of the first sample, counted from 1
  std::int64_t size = 0;   ///< of the samples, and the last position that is looked at
  std::int64_t columnBytes = 0;
  bool alternate = false;  ///< columns are 2 bytes longer and shorter in turn
  std::int64_t step = 0;
};

/// The file through one piece of it.
class WaveReader::Pieces {
 public:
  explicit Pieces(FileReader& file) : file_(file), bytes_(std::make_unique_for_overwrite<unsigned char[]>(kPiece)) {}

  std::int64_t Size() const { return file_.Size(); }

  /// `count` bytes from a position counted from 1 on; fails where the file hasn't all of them.
  const unsigned char* At(std::int64_t position, std::size_t count) {
    const std::int64_t offset = position - 1;
    if (offset >= start_ && offset + static_cast<std::int64_t>(count) <= end_) return bytes_.get() + (offset - start_);
    return Fetch(offset, count);
  }

  std::uint32_t Number(std::int64_t position, std::size_t size) {
    const unsigned char* const bytes = At(position, size);
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value |= std::uint32_t{bytes[i]} << (8 * i);
    return value;
  }

  bool Holds(std::int64_t position, std::string_view mark) {
    return std::memcmp(At(position, mark.size()), mark.data(), mark.size()) == 0;
  }

 private:
  const unsigned char* Fetch(std::int64_t offset, std::size_t count) {
    if (offset < 0) ThrowInvalidCall();
    const std::size_t read = file_.ReadAt(offset, reinterpret_cast<char*>(bytes_.get()), kPiece);
    start_ = offset;
    end_ = offset + read;
    if (read < count) ThrowPastEnd();
    return bytes_.get();
  }

  FileReader& file_;
  std::unique_ptr<unsigned char[]> bytes_;
  std::int64_t start_ = 0;  // offsets of what is in `bytes_`
  std::int64_t end_ = 0;
};

WaveLoadResult WaveReader::Load(FileReader& file, WaveLoadSteps& steps) {
  try {
    Pieces pieces(file);
    const Format format = ReadHeader(pieces);
    steps.OnHeader();
    return Measure(pieces, format, steps);
  } catch (const RuntimeError&) {
    return WaveLoadResult::Failed;
  }
}

WaveReader::Format WaveReader::ReadHeader(Pieces& pieces) {
  constexpr std::uint32_t kFormatSize = 16;
  if (!pieces.Holds(1, "RIFF") || !pieces.Holds(9, "WAVE") || !pieces.Holds(13, "fmt ")) ThrowNoWave();
  Format format;
  const std::uint32_t size = pieces.Number(17, 4);
  format.samplesPerSecond = pieces.Number(25, 4);
  format.bytesPerSecond = pieces.Number(29, 4);
  format.bits = pieces.Number(35, 2);
  std::int64_t position = 37;
  // Skipped bytes count as read, so the file must have them.
  const auto skip = [&](std::int64_t count) {
    position += count;
    if (position - 1 > pieces.Size()) ThrowPastEnd();
  };
  if (size > kFormatSize) skip(size - kFormatSize);
  for (;;) {
    const bool data = pieces.Holds(position, "data");
    format.dataSize = pieces.Number(position + 4, 4);
    if (data) return format;
    position += 8;
    skip(format.dataSize);
  }
}

WaveLoadResult WaveReader::Measure(Pieces& pieces, const Format& format, WaveLoadSteps& steps) {
  Course course;
  course.size = format.dataSize;
  course.first = Checked16(pieces.Size() - course.size + 1).Value();
  const double length = static_cast<double>(pieces.Size() - course.first);
  const double tens = std::floor(Divided(length, format.samplesPerSecond) * 100) + 1;
  peaks_.SetPeakCount(RoundToInt32(tens * Divided(format.samplesPerSecond, format.bytesPerSecond) * 2));
  course.columnBytes = Checked16(RoundToInt32(format.bytesPerSecond / 100.0)).Value();
  course.alternate = course.columnBytes % 2 != 0;
  if (course.alternate) --course.columnBytes;
  if (course.columnBytes < 1) ThrowInvalidCall();
  steps.OnBegin();

  if (peaks_.PeakCount() < -1 || peaks_.PeakCount() == std::numeric_limits<std::int32_t>::max()) ThrowInvalidCall();
  peaks_.Reach();
  peaks_.Expect(pieces.Size() / course.columnBytes + 1);
  const std::int64_t minutes = RoundToInt32(peaks_.PeakCount() / 200.0) / 60;
  course.step = minutes <= kShortMinutes ? 16 : minutes <= kMiddleMinutes ? 32 : 64;
  return format.bits == 8 ? Walk<Samples8>(pieces, course, steps) : Walk<Samples16>(pieces, course, steps);
}

template <class Samples>
WaveLoadResult WaveReader::Walk(Pieces& pieces, Course course, WaveLoadSteps& steps) {
  const std::int64_t step = course.step;
  const auto extremes = [&](std::int64_t at, std::int64_t count) {
    const std::size_t bytes = (count - 1) * step + Samples::kSize;
    return Samples::Of(pieces.At(at, bytes), count, step);
  };
  std::int32_t screen = steps.ScreenColumns();
  std::int32_t nextProgress = kProgressEvery - kProgressAhead;
  std::int64_t position = course.first;
  for (std::int32_t entry = 0; position <= course.size;) {
    if (entry > peaks_.PeakCount()) {
      extremes(position, 1);  // it is looked at before the table is found to be full
      break;
    }
    const std::int64_t count = (course.columnBytes + step - 1) / step;
    const std::int64_t last = position + (count - 1) * step;
    if (last > course.size || last > kLastPosition) {
      // The last column is never completed, but its samples are still read.
      const std::int64_t left = (std::min(course.size, kLastPosition) - position) / step + 1;
      extremes(position, left);
      if (position + left * step > kLastPosition) ThrowOverflow();
      break;
    }
    const Extremes column = extremes(position, count);
    peaks_.Append(static_cast<std::int16_t>(column.maximum), static_cast<std::int16_t>(column.minimum));
    if (course.alternate) course.columnBytes += entry / 2 % 2 == 0 ? 2 : -2;
    // Samples that the step went too far are read again for the next column.
    position += course.columnBytes;
    if (entry / 2 == screen) steps.OnScreenful();
    entry += 2;
    if (entry == nextProgress) {
      if (steps.OnProgress(position - step, course.size)) return WaveLoadResult::GivenUp;
      nextProgress += kProgressEvery;
      screen = steps.ScreenColumns();
    }
    if (position > kLastPosition) ThrowOverflow();
  }
  return WaveLoadResult::Loaded;
}

}  // namespace cuewright

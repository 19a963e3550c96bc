#include "audio/wave_reader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/memory_reader.h"
#include "core/runtime_error.h"
#include "tests/audio/wave_files.h"
#include "tests/audio/wave_oracle.h"

namespace cuewright::testing {

void PrintTo(const WaveOutcome& outcome, std::ostream* out) {
  *out << "end " << static_cast<int>(outcome.end) << ", count " << outcome.peakCount << ", bound " << outcome.upperBound
       << ", " << outcome.peaks.size() << " entries:";
  for (std::size_t i = 0; i < std::min<std::size_t>(outcome.peaks.size(), 12); ++i) *out << ' ' << outcome.peaks[i];
  for (const std::string& event : outcome.events) *out << "; " << event;
}

namespace {

using End = WaveOutcome::End;

struct Recorder final : WaveLoadSteps {
  Recorder(WaveOutcome& into, std::int32_t width, int stop) : out(into), columns(width), giveUpAt(stop) {}

  void OnHeader() override { out.events.emplace_back("header"); }
  void OnBegin() override { out.events.emplace_back("begin"); }
  std::int32_t ScreenColumns() const override { return columns; }
  void OnScreenful() override { out.events.push_back("screenful " + std::to_string(columns)); }
  bool OnProgress(std::int64_t position, std::int64_t size) override {
    out.events.push_back("progress " + std::to_string(position) + "/" + std::to_string(size));
    return ++progresses == giveUpAt;
  }

  WaveOutcome& out;
  std::int32_t columns;
  int giveUpAt;
  int progresses = 0;
};

WaveOutcome Load(const std::string& bytes, std::int32_t columns = 1920, int giveUpAt = 0) {
  WaveOutcome outcome;
  WavePeaks peaks;
  MemoryReader file(bytes);
  Recorder steps(outcome, columns, giveUpAt);
  const WaveLoadResult result = WaveReader(peaks).Load(file, steps);
  outcome.end =
      result == WaveLoadResult::Loaded ? End::Loaded : (result == WaveLoadResult::Failed ? End::Failed : End::GivenUp);
  outcome.peakCount = peaks.PeakCount();
  outcome.upperBound = peaks.UpperBound();
  for (std::int32_t entry = 0; entry < 2 * peaks.Columns(); ++entry) outcome.peaks.push_back(peaks.At(entry));
  return outcome;
}

/// A tone of 16 bits.
std::string Tone(std::size_t samples, double level = 12000) {
  std::string bytes;
  for (std::size_t i = 0; i < samples; ++i) {
    const int value = static_cast<int>(level * std::sin(0.05 * static_cast<double>(i)));
    bytes += LittleEndian(static_cast<std::uint16_t>(value), 2);
  }
  return bytes;
}

TEST(WaveReader, ColumnsOfAnEvenSizeDoNotAlternate) {
  WaveSpec spec;
  spec.samplesPerSecond = 44100;
  // Each sample is the number of its column, so that a column's end shows.
  for (int i = 0; i < 441 * 20; ++i) spec.data += LittleEndian(static_cast<std::uint64_t>(i / 441 + 1), 2);
  const WaveOutcome outcome = Load(spec.Bytes());
  ASSERT_EQ(outcome.end, End::Loaded);
  for (std::size_t column = 0; column + 1 < outcome.peaks.size() / 2; ++column) {
    // 56 samples 16 bytes apart reach 14 bytes into the next column.
    EXPECT_GE(outcome.peaks[2 * column], static_cast<int>(column) + 1);
    EXPECT_LE(outcome.peaks[2 * column], static_cast<int>(column) + 2);
  }
  EXPECT_EQ(outcome, ReadWaveSlowly(spec.Bytes(), 1920));
}

TEST(WaveReader, ColumnsOfAnOddSizeAlternateAroundIt) {
  // 22050 Hz of 16 bits has 441 bytes a column: 440, then 442 and 440 in turn. One sample stands at the first place of
  // each column, all others are 0.
  WaveSpec spec;
  std::string data(441 * 200, '\0');
  std::size_t at = 0;
  for (int column = 0; column < 100; ++column) {
    data.replace(at, 2, LittleEndian(static_cast<std::uint64_t>(1000 + column), 2));
    at += column % 2 == 0 ? 442 : 440;
  }
  spec.data = data;
  const WaveOutcome outcome = Load(spec.Bytes());
  ASSERT_EQ(outcome.end, End::Loaded);
  for (std::size_t column = 0; column < 100; ++column) EXPECT_EQ(outcome.peaks[2 * column], 1000 + column) << column;
}

TEST(WaveReader, SilenceOf8BitsIs127) {
  WaveSpec spec;
  spec.samplesPerSecond = 8000;
  spec.bits = 8;
  spec.data = std::string(8000, static_cast<char>(128));
  const WaveOutcome silent = Load(spec.Bytes());
  ASSERT_FALSE(silent.peaks.empty());
  for (std::size_t i = 0; i < silent.peaks.size(); i += 2) {
    EXPECT_EQ(silent.peaks[i], 256);
    EXPECT_EQ(silent.peaks[i + 1], 0);
  }
  spec.data = std::string(8000, static_cast<char>(127));
  for (const std::int16_t peak : Load(spec.Bytes()).peaks) EXPECT_EQ(peak, 0);
}

TEST(WaveReader, TheHighestLevelOf8BitsFailsAtItsSample) {
  WaveSpec spec;
  spec.samplesPerSecond = 8000;
  spec.bits = 8;
  spec.data = std::string(8000, static_cast<char>(200));
  spec.data[16 * 200] = static_cast<char>(255);
  const WaveOutcome outcome = Load(spec.Bytes());
  EXPECT_EQ(outcome.end, End::Failed);
  EXPECT_EQ(outcome, ReadWaveSlowly(spec.Bytes(), 1920));
  EXPECT_EQ(outcome.peaks.size() / 2, 16u * 200 / 80);
  // Between the places that are looked at it does no harm.
  spec.data[16 * 200] = static_cast<char>(200);
  spec.data[16 * 200 + 1] = static_cast<char>(255);
  EXPECT_EQ(Load(spec.Bytes()).end, End::Loaded);
}

TEST(WaveReader, AChunkBehindTheDataShiftsTheReadingByItsSize) {
  WaveSpec spec;
  spec.samplesPerSecond = 44100;
  spec.data = std::string(882 * 50, '\0');
  for (std::size_t i = 882 * 10; i < 882 * 11; i += 2) spec.data.replace(i, 2, LittleEndian(5000, 2));
  const auto loudest = [](const WaveOutcome& outcome) {
    std::size_t best = 0;
    for (std::size_t i = 0; i < outcome.peaks.size(); i += 2) {
      if (outcome.peaks[i] > outcome.peaks[best]) best = i;
    }
    return best / 2;
  };
  EXPECT_EQ(loudest(Load(spec.Bytes())), 10u);
  spec.chunksBehind = Chunk("LIST", std::string(2 * 882 - 8, 'x'));
  EXPECT_EQ(loudest(Load(spec.Bytes())), 8u);
}

TEST(WaveReader, AChunkOfOddSizeInFrontOfTheDataIsMisread) {
  WaveSpec spec;
  spec.data = Tone(4000);
  spec.chunksBefore = Chunk("LIST", "odd") + std::string(1, '\0');  // the pad byte that the file format has
  const WaveOutcome outcome = Load(spec.Bytes());
  EXPECT_EQ(outcome.end, End::Failed);
  EXPECT_TRUE(outcome.events.empty());
  spec.chunksBefore = Chunk("LIST", "even");
  EXPECT_EQ(Load(spec.Bytes()).end, End::Loaded);
}

TEST(WaveReader, AShortFileHasNoScreenful) {
  WaveSpec spec;
  spec.data = Tone(22050 * 3);
  EXPECT_EQ(Load(spec.Bytes(), 1920).events, (std::vector<std::string>{"header", "begin"}));
  const WaveOutcome longer = Load(spec.Bytes(), 100);
  EXPECT_EQ(longer.events, (std::vector<std::string>{"header", "begin", "screenful 100"}));
}

TEST(WaveReader, TheStepGrowsWithTheLength) {
  // Every 32nd byte begins a sample of its own, the others are 0: a step of 16 looks at both kinds, one of 32 at one.
  const auto maximumOf = [](int minutes, int seconds) {
    WaveSpec spec;
    spec.samplesPerSecond = 3200;
    spec.data = std::string(static_cast<std::size_t>(6400 * (60 * minutes + seconds)), '\0');
    for (std::size_t i = 16; i + 1 < spec.data.size(); i += 32) spec.data[i + 1] = 0x20;
    std::int16_t most = 0;
    for (const std::int16_t peak : Load(spec.Bytes()).peaks) most = std::max(most, peak);
    return most;
  };
  EXPECT_EQ(maximumOf(10, 5), 0x2000);
  EXPECT_EQ(maximumOf(11, 0), 0);
}

TEST(WaveReader, TheStepGrowsOnceMoreWithLongSound) {
  const auto maximumOf = [](int minutes) {
    WaveSpec spec;
    spec.samplesPerSecond = 3200;
    spec.data = std::string(static_cast<std::size_t>(6400 * 60 * minutes), '\0');
    for (std::size_t i = 32; i + 1 < spec.data.size(); i += 64) spec.data[i + 1] = 0x20;
    std::int16_t most = 0;
    for (const std::int16_t peak : Load(spec.Bytes()).peaks) most = std::max(most, peak);
    return most;
  };
  EXPECT_EQ(maximumOf(30), 0x2000);
  EXPECT_EQ(maximumOf(31), 0);
}

TEST(WaveReader, MarksThatDifferAndAnotherFirstChunkAreRefused) {
  const std::string good = [] {
    WaveSpec spec;
    spec.data = Tone(3000);
    return spec.Bytes();
  }();
  for (const std::size_t place : {0u, 3u, 8u, 11u, 12u, 15u}) {
    std::string bytes = good;
    bytes[place] ^= 1;
    const WaveOutcome outcome = Load(bytes);
    EXPECT_EQ(outcome.end, End::Failed) << place;
    EXPECT_TRUE(outcome.events.empty()) << place;
  }
  std::string other = good;
  other[5] ^= 1;   // the size of the whole
  other[20] ^= 1;  // the format's tag
  other[22] ^= 1;  // the channels
  other[32] ^= 1;  // the alignment
  EXPECT_EQ(Load(other).end, End::Loaded);
}

TEST(WaveReader, RatesOfZeroAndColumnsOfNoBytesAreRefusedBehindTheHeader) {
  struct Case {
    int samples;
    std::int64_t bytes;
  };
  for (const Case& c : {Case{0, 44100}, Case{22050, 0}, Case{100, 100}, Case{100, 149}, Case{22050, 3276800},
                        Case{22050, 0xFFFFFF00}}) {
    WaveSpec spec;
    spec.samplesPerSecond = c.samples;
    spec.bytesPerSecond = c.bytes;
    spec.data = Tone(3000);
    const WaveOutcome outcome = Load(spec.Bytes());
    EXPECT_EQ(outcome, ReadWaveSlowly(spec.Bytes(), 1920)) << c.samples << " " << c.bytes;
    EXPECT_EQ(outcome.end, End::Failed) << c.samples << " " << c.bytes;
    EXPECT_EQ(outcome.events.front(), "header");
  }
}

TEST(WaveReader, DataBeyond16BitsOfThePositionOrLargerThanTheFileFails) {
  WaveSpec far;
  far.data = Tone(3000);
  far.chunksBefore = Chunk("LIST", std::string(40000, 'x'));
  EXPECT_EQ(Load(far.Bytes()).end, End::Failed);
  EXPECT_EQ(Load(far.Bytes()).events, (std::vector<std::string>{"header"}));
  far.chunksBefore = Chunk("LIST", std::string(32766 - 44 - 8, 'x'));
  EXPECT_EQ(Load(far.Bytes()).end, End::Loaded);

  WaveSpec lying;
  lying.data = Tone(3000);
  lying.dataSize = 7000;
  EXPECT_EQ(Load(lying.Bytes()).end, End::Failed);
  lying.dataSize = 4000000000;
  EXPECT_EQ(Load(lying.Bytes()).end, End::Failed);
}

TEST(WaveReader, AFileWithoutDataEndsTheWalk) {
  WaveSpec spec;
  const std::string whole = spec.Bytes();
  const std::string headless = whole.substr(0, whole.size() - 8);
  EXPECT_EQ(Load(headless).end, End::Failed);
  EXPECT_EQ(Load(headless + "LIST" + LittleEndian(0xFFFFFFFF, 4)).end, End::Failed);
  EXPECT_EQ(Load(headless + "data" + LittleEndian(0, 2)).end, End::Failed);
  EXPECT_EQ(Load("").end, End::Failed);
  EXPECT_EQ(Load("RIFF").end, End::Failed);
}

TEST(WaveReader, TheFirst16BytesOfALongerFormatCount) {
  WaveSpec spec;
  spec.formatSize = 40;
  spec.formatMore = std::string(24, 'x');
  spec.data = Tone(5000);
  EXPECT_EQ(Load(spec.Bytes()).end, End::Loaded);
  spec.formatMore.pop_back();
  EXPECT_EQ(Load(spec.Bytes()), ReadWaveSlowly(spec.Bytes(), 1920));
  EXPECT_EQ(Load(spec.Bytes()).end, End::Failed);
  spec.formatSize = 4;  // nothing is given back
  spec.formatMore.clear();
  EXPECT_EQ(Load(spec.Bytes()).end, End::Loaded);
}

TEST(WaveReader, ALyingHeaderCostsNoMemory) {
  WaveSpec spec;
  spec.samplesPerSecond = 2000000000;
  spec.bytesPerSecond = 200;
  spec.data = Tone(1000);
  const WaveOutcome outcome = Load(spec.Bytes());
  EXPECT_EQ(outcome, ReadWaveSlowly(spec.Bytes(), 1920));
  EXPECT_GT(outcome.upperBound, 10000000);
  EXPECT_LE(outcome.peaks.size(), 2000u);
}

TEST(WaveReader, TheLastBytesOfTheSamplesAreNeverRead) {
  WaveSpec spec;
  spec.samplesPerSecond = 44100;
  spec.data = std::string(882 * 10, '\0');
  // Bytes from the data's own length on, counted in the file, are left out: the last 44 of the data.
  for (std::size_t i = spec.data.size() - 43; i < spec.data.size(); ++i) spec.data[i] = 0x30;
  for (const std::int16_t peak : Load(spec.Bytes()).peaks) EXPECT_EQ(peak, 0);
}

TEST(WaveReader, ProgressIsToldEvery500ColumnsAndCanGiveUp) {
  WaveSpec spec;
  spec.samplesPerSecond = 8000;
  spec.data = Tone(8000 * 12);
  const WaveOutcome whole = Load(spec.Bytes());
  EXPECT_EQ(whole, ReadWaveSlowly(spec.Bytes(), 1920));
  ASSERT_EQ(whole.events.size(), 4u);
  EXPECT_EQ(whole.events[2], "progress " + std::to_string(45 + 495 * 160 - 16) + "/192000");
  const WaveOutcome stopped = Load(spec.Bytes(), 1920, 1);
  EXPECT_EQ(stopped.end, End::GivenUp);
  EXPECT_EQ(stopped.peaks.size(), 990u);
  EXPECT_EQ(stopped, ReadWaveSlowly(spec.Bytes(), 1920, 1));
}

TEST(WaveReader, AFailureWhileReadingFailsTheLoad) {
  struct Broken final : FileReader {
    std::uint64_t Size() const override { return bytes.size(); }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
      if (offset > 100000) throw RuntimeError{kErrorDeviceIo, u"Device I/O error"};
      return MemoryReader(bytes).ReadAt(offset, to, count);
    }
    std::string bytes;
  } file;
  WaveSpec spec;
  spec.data = Tone(200000);
  file.bytes = spec.Bytes();
  WaveOutcome outcome;
  WavePeaks peaks;
  Recorder steps(outcome, 1920, 0);
  EXPECT_EQ(WaveReader(peaks).Load(file, steps), WaveLoadResult::Failed);
  EXPECT_GT(peaks.Columns(), 100);
}

/// A file with sensible or odd parts in any combination.
WaveSpec RandomWave(std::mt19937& random) {
  const auto below = [&](std::uint32_t limit) { return random() % limit; };
  constexpr int kRates[] = {8000, 11025, 16000, 22050, 32000, 44100, 48000, 96000};
  WaveSpec spec;
  spec.samplesPerSecond = kRates[below(8)];
  spec.channels = 1 + static_cast<int>(below(2));
  spec.bits = below(3) == 0 ? 8 : 16;
  const std::size_t size = below(4) == 0 ? below(2000) : below(400000);
  const bool loud = below(6) == 0;
  for (std::size_t i = 0; i < size; ++i) {
    const std::uint32_t byte = random() & 0xFF;
    spec.data += static_cast<char>(spec.bits == 8 && !loud ? byte % 255 : byte);
  }
  switch (below(10)) {
    case 0:
      spec.bytesPerSecond = below(4000000);
      break;
    case 1:
      spec.samplesPerSecond = static_cast<int>(random());
      break;
    case 2:
      spec.dataSize = below(static_cast<std::uint32_t>(size) + 400);
      break;
    case 3:
      spec.bytesPerSecond = below(3000);
      break;
    default:
      break;
  }
  if (below(3) == 0) spec.chunksBefore += Chunk("LIST", std::string(below(below(4) == 0 ? 40000 : 60), 'c'));
  if (below(4) == 0) spec.chunksBehind += Chunk("LIST", std::string(below(300), 'c'));
  if (below(5) == 0) {
    spec.formatMore = std::string(below(30), 'f');
    spec.formatSize = 16 + static_cast<std::uint32_t>(spec.formatMore.size());
  }
  return spec;
}

TEST(WaveReader, GivesWhatTheSlowReadingGivesForAnyFile) {
  std::mt19937 random(5);
  for (int i = 0; i < 400; ++i) {
    std::string bytes = RandomWave(random).Bytes();
    if (random() % 4 == 0) bytes.resize(random() % (bytes.size() + 1));
    const auto columns = static_cast<std::int32_t>(random() % 1000);
    const int giveUpAt = random() % 8 == 0 ? 1 : 0;
    ASSERT_EQ(Load(bytes, columns, giveUpAt), ReadWaveSlowly(bytes, columns, giveUpAt)) << "file " << i;
  }
}

}  // namespace
}  // namespace cuewright::testing

#include "audio/wave_detail_reader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace cuewright {
namespace {

/// A file in memory that can grow while it is read.
class GrowingFile final : public FileReader {
 public:
  explicit GrowingFile(const std::string& bytes) : bytes_(bytes) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
    if (offset >= bytes_.size()) return 0;
    const std::size_t read = std::min(count, bytes_.size() - static_cast<std::size_t>(offset));
    std::memcpy(to, bytes_.data() + offset, read);
    return read;
  }

 private:
  const std::string& bytes_;
};

std::string Number(std::uint32_t value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

std::string Header(std::uint32_t rate, std::uint32_t channels, std::uint32_t bits, std::uint32_t size) {
  const std::uint32_t frame = channels * bits / 8;
  return "RIFF" + Number(36 + size, 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) + Number(channels, 2) +
         Number(rate, 4) + Number(rate * frame, 4) + Number(frame, 2) + Number(bits, 2) + "data" + Number(size, 4);
}

struct WaveDetail : ::testing::Test {
  void Begin() { reader.Begin(std::make_unique<GrowingFile>(bytes)); }
  std::string bytes;
  WavePyramid peaks;
  WaveDetailReader reader{peaks};
  using Result = WaveDetailReader::Result;
};

TEST_F(WaveDetail, ReadsPeaksOfAMillisecondInAnyPieces) {
  // 22.05 samples a ms: the sample tells the ms that it belongs to.
  std::string samples;
  for (int i = 0; i < 22050; ++i) samples += Number(static_cast<std::uint32_t>(i * 1000 / 22050), 2);
  bytes = Header(22050, 1, 16, 44100) + samples;
  for (const std::size_t piece : {std::size_t{1000}, std::size_t{7}, std::size_t{1 << 20}}) {
    Begin();
    while (reader.Read(piece) == Result::Read) {
    }
    reader.Finish();
    ASSERT_EQ(peaks.Length(), 1000) << piece;
    for (std::int16_t ms = 0; ms < 1000; ++ms) {
      ASSERT_EQ(peaks.Of(std::int32_t{ms}, ms + 1), (WavePeak{ms, ms})) << piece;
    }
  }
}

TEST_F(WaveDetail, FollowsAFileThatGrows) {
  const std::string whole = Header(8000, 1, 16, 0xFFFFFFFF);
  bytes = whole.substr(0, 30);
  Begin();
  EXPECT_EQ(reader.Read(100), Result::Nothing);
  bytes = whole;
  EXPECT_EQ(reader.Read(100), Result::Nothing);
  bytes += std::string(160, '\1');
  EXPECT_EQ(reader.Read(1000), Result::Read);
  EXPECT_EQ(peaks.Length(), 10);
  EXPECT_EQ(reader.Read(1000), Result::Nothing);
  bytes += std::string(16, '\2');
  EXPECT_EQ(reader.Read(1000), Result::Read);
  EXPECT_EQ(peaks.Of(10, 11), (WavePeak{0x0202, 0x0202}));
}

TEST_F(WaveDetail, TakesAllChannelsAndBytesAndStopsWhereTheSamplesEnd) {
  bytes = Header(1000, 2, 16, 8) + Number(5, 2) + Number(0xFFF0, 2) + Number(100, 2) + Number(7, 2) + "LIST";
  Begin();
  EXPECT_EQ(reader.Read(100), Result::Read);
  EXPECT_EQ(reader.Read(100), Result::Nothing);
  EXPECT_EQ(peaks.Length(), 2);
  EXPECT_EQ(peaks.Of(0, 1), (WavePeak{5, -16}));
  EXPECT_EQ(peaks.Of(1, 2), (WavePeak{100, 7}));
  bytes = Header(1000, 1, 8, 2) + "\x80\xFF";
  Begin();
  EXPECT_EQ(reader.Read(100), Result::Read);
  EXPECT_EQ(peaks.Of(0, 2), (WavePeak{127 * 256, 0}));
}

TEST_F(WaveDetail, ASampleOfASlowSoundLastsForSeveralMilliseconds) {
  bytes = Header(100, 1, 16, 4) + Number(3, 2) + Number(9, 2);
  Begin();
  EXPECT_EQ(reader.Read(100), Result::Read);
  EXPECT_EQ(peaks.Length(), 20);
  EXPECT_EQ(peaks.Of(0, 10), (WavePeak{3, 3}));
  EXPECT_EQ(peaks.Of(10, 20), (WavePeak{9, 9}));
}

TEST_F(WaveDetail, WhatIsNoWaveIsTold) {
  bytes = "RIFX and further bytes";
  Begin();
  EXPECT_EQ(reader.Read(100), Result::NoWave);
  bytes = Header(8000, 1, 24, 100) + std::string(100, 'x');
  Begin();
  EXPECT_EQ(reader.Read(100), Result::NoWave);
}

}  // namespace
}  // namespace cuewright

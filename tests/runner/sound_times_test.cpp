#include "runner/sound_times.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

constexpr const char* kHead =
    "#software: x\n#tb 0: 1/25\n#media_type 0: video\n#tb 1: 1/1000\n#media_type 1: audio\n#codec_id 1: mp2\n";

bool Even(const std::string& packets) {
  const std::string list = kHead + packets;
  SoundTimes times;
  for (const char c : list) times.Take({&c, 1});
  return times.Even();
}

TEST(RunnerSoundTimes, AreEvenWherePacketFollowsPacketFromTheBeginning) {
  EXPECT_TRUE(Even("1, 0, 0, 24, 576, 0x1\n0, 90, 90, 1, 9, 0x2\n1, 24, 24, 24, 576, 0x1\n1, 49, 49, 24, 576, 0x1\n"));
  EXPECT_TRUE(Even("1, -3, -3, 24, 576, 0x1\n"));
  EXPECT_TRUE(Even(""));
}

TEST(RunnerSoundTimes, AreNotWhereTheSoundBeginsElsewhereOrHasAGap) {
  for (const char* packets : {
           "1, 700, 700, 24, 576, 0x1\n",
           "1, -21, -21, 24, 576, 0x1\n",
           "1, 0, 0, 24, 576, 0x1\n1, 48, 48, 24, 576, 0x1\n",
           "1, 0, 0, 24, 576, 0x1\n1, 24, 24, 900, 576, 0x1\n1, 924, 924, 24, 576, 0x1\n",
       }) {
    EXPECT_FALSE(Even(packets)) << packets;
  }
}

TEST(RunnerSoundTimes, AreEvenWherePacketsDifferInLengthAllAlong) {
  std::string packets;
  int at = 0;
  for (int i = 0; i < 200; ++i) {
    const int length = i % 5 == 0 ? 2 : 23;
    packets += "1, " + std::to_string(at) + ", " + std::to_string(at) + ", " + std::to_string(length) + ", 576, 0x1\n";
    at += length;
  }
  EXPECT_TRUE(Even(packets));
  EXPECT_FALSE(Even(packets + "1, " + std::to_string(at) + ", " + std::to_string(at) + ", 300, 576, 0x1\n"));
}

TEST(RunnerSoundTimes, TakeDamagedListsAsTheyCome) {
  EXPECT_TRUE(Even("#tb 99999999: 1/0\n#tb 2: 1/0\n7, x\n99, 1, 1, 1\n\n" + std::string(10000, '1')));
}

}  // namespace
}  // namespace cuewright

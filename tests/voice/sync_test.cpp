#include "voice/sync.h"

#include <gtest/gtest.h>

#include <random>

namespace cuewright {
namespace {

/// Captions of a dialogue from a seed, and what becomes of them.
struct Dialogue {
  explicit Dialogue(unsigned seed, int count = 100) : random(seed) {
    std::int32_t at = 3000;
    for (int i = 0; i < count; ++i) {
      const std::int32_t length = Draw(700, 4500);
      captions.push_back({at, at + length});
      at += length + (Draw(0, 9) < 4 ? Draw(250, 700) : Draw(700, 3500));
    }
  }

  std::int32_t Draw(int least, int most) { return std::uniform_int_distribution<std::int32_t>(least, most)(random); }

  std::mt19937 random;
  std::vector<CaptionTimes> captions;
};

/// A film's voice: loud where the captions are, with noise on it.
VoiceTrack NoisyVoice(const std::vector<CaptionTimes>& captions, unsigned seed) {
  VoiceTrack voice = VoiceOfCaptions(captions);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> noise(0.0F, 0.5F);
  for (float& step : voice) step = step * 0.5F + noise(random);
  return voice;
}

std::vector<CaptionTimes> Moved(std::vector<CaptionTimes> captions, double ratio, Ms ms) {
  for (CaptionTimes& times : captions) {
    times.start = Ms::Nearest(times.start.Count() * ratio) + ms;
    times.end = Ms::Nearest(times.end.Count() * ratio) + ms;
  }
  return captions;
}

/// Every row lies in exactly one segment, in order.
void ExpectWhole(const SyncResult& result, std::size_t rows) {
  Row next = 1;
  for (const SyncSegment& segment : result.segments) {
    EXPECT_EQ(segment.first, next);
    EXPECT_GE(segment.last, segment.first);
    EXPECT_GE(segment.confidence, 0);
    EXPECT_LE(segment.confidence, 1);
    next = segment.last + 1;
  }
  EXPECT_EQ(next, static_cast<int>(rows) + 1);
}

TEST(Synchronise, FindsAShift) {
  Dialogue film(1);
  const std::vector<CaptionTimes> late = Moved(film.captions, 1, 37120);
  const SyncResult result = Synchronise(late, NoisyVoice(film.captions, 2));
  ASSERT_TRUE(result.belongs);
  EXPECT_EQ(result.ratio, TimeRatio());
  ASSERT_EQ(result.segments.size(), 1U);
  EXPECT_NEAR(result.segments[0].offset.Count(), -37120, 20);
  EXPECT_FALSE(result.segments[0].doubtful);
  EXPECT_TRUE(result.Changes());
}

TEST(Synchronise, FindsTheRatiosOfTheUsualRates) {
  for (const TimeRatio ratio : {TimeRatio{25025, 24000}, TimeRatio{24, 25}, TimeRatio{25, 24}, TimeRatio{1001, 1000}}) {
    Dialogue film(3);
    const std::vector<CaptionTimes> other = Moved(film.captions, 1 / ratio.Value(), 2500);
    const SyncResult result = Synchronise(other, NoisyVoice(film.captions, 4));
    ASSERT_TRUE(result.belongs);
    EXPECT_EQ(result.ratio, ratio) << ratio.numerator;
    ASSERT_EQ(result.segments.size(), 1U);
    for (std::size_t i = 0; i < other.size(); ++i) {
      EXPECT_NEAR(other[i].start.Count() * ratio.Value() + result.segments[0].offset.Count(),
                  film.captions[i].start.Count(), 40)
          << i;
    }
  }
}

TEST(Synchronise, FindsCutsAtTheirPlaces) {
  Dialogue film(5, 120);
  std::vector<CaptionTimes> other = film.captions;
  // Twice something was put in, and once a scene with its captions is gone.
  const auto put = [&](std::size_t from, Ms ms) {
    for (std::size_t i = from; i < other.size(); ++i) other[i] = {other[i].start + ms, other[i].end + ms};
  };
  put(30, 12000);
  put(95, 31000);
  std::vector<CaptionTimes> less(other.begin(), other.begin() + 60);
  const Ms gone = other[70].start - other[60].start;
  for (std::size_t i = 70; i < other.size(); ++i) less.push_back({other[i].start - gone, other[i].end - gone});
  const SyncResult result = Synchronise(less, NoisyVoice(film.captions, 6));
  ASSERT_TRUE(result.belongs);
  ExpectWhole(result, less.size());
  int right = 0;
  int wrongAndSure = 0;
  for (const SyncSegment& segment : result.segments) {
    for (Row row = segment.first; row <= segment.last; ++row) {
      const auto place = row.Index();
      const CaptionTimes& truth = film.captions[place < 60 ? place : place + 10];
      const bool near = Abs(less[place].start + segment.offset - truth.start) <= 100;
      right += int{near};
      wrongAndSure += int{!near && !segment.doubtful};
    }
  }
  EXPECT_GE(right, 106);
  EXPECT_EQ(wrongAndSure, 0);
}

TEST(Synchronise, LeavesWhatFits) {
  Dialogue film(7);
  std::vector<CaptionTimes> rough = film.captions;
  for (CaptionTimes& times : rough) {
    times.start += film.Draw(-60, 60);
    times.end += film.Draw(0, 500);
  }
  const SyncResult result = Synchronise(rough, NoisyVoice(film.captions, 8));
  ASSERT_TRUE(result.belongs);
  EXPECT_FALSE(result.Changes());
}

TEST(Synchronise, TellsAFilmOfOtherCaptions) {
  for (unsigned seed = 10; seed < 18; ++seed) {
    const SyncResult result = Synchronise(Dialogue(seed).captions, NoisyVoice(Dialogue(seed + 100).captions, seed));
    EXPECT_FALSE(result.belongs) << seed;
    EXPECT_TRUE(result.segments.empty());
  }
}

TEST(Synchronise, AnotherSubtitleGivesTheMillisecond) {
  Dialogue film(20);
  const SyncResult result = Synchronise(Moved(film.captions, 1, -2347), VoiceOfCaptions(film.captions), film.captions);
  ASSERT_TRUE(result.belongs);
  ASSERT_EQ(result.segments.size(), 1U);
  EXPECT_EQ(result.segments[0].offset, 2347);
}

TEST(Synchronise, RowsWithoutTimesAndOutOfOrderLieInOneSegment) {
  Dialogue film(21, 60);
  std::vector<CaptionTimes> other = Moved(film.captions, 1, 5000);
  other.insert(other.begin(), {0, 0});
  other.insert(other.begin() + 30, {0, 0});
  other.push_back({0, 0});
  std::swap(other[10], other[40]);
  const SyncResult result = Synchronise(other, NoisyVoice(film.captions, 22));
  ASSERT_TRUE(result.belongs);
  ExpectWhole(result, other.size());
  for (const SyncSegment& segment : result.segments) EXPECT_NEAR(segment.offset.Count(), -5000, 20);
}

TEST(Synchronise, NothingToHearOrToPlaceBelongsNowhere) {
  const std::vector<CaptionTimes> captions = Dialogue(23).captions;
  EXPECT_FALSE(Synchronise(captions, {}).belongs);
  EXPECT_FALSE(Synchronise(captions, VoiceTrack(60000, 0.0F)).belongs);
  EXPECT_FALSE(Synchronise({}, NoisyVoice(captions, 24)).belongs);
  EXPECT_FALSE(Synchronise(std::vector<CaptionTimes>(40), NoisyVoice(captions, 24)).belongs);
  EXPECT_FALSE(Synchronise(std::vector<CaptionTimes>{{1000, 2000}}, NoisyVoice(captions, 24)).belongs);
  // Times at the end of what can be counted.
  EXPECT_FALSE(
      Synchronise(std::vector<CaptionTimes>{{2147483000, 2147483647}, {5, 2147483647}}, NoisyVoice(captions, 24))
          .belongs);
}

TEST(VoiceOfSound, IsLoudWhereABandRises) {
  SoundTable sound;
  for (int step = 0; step < 6000; ++step) {
    SoundTable::Step bands{};
    const bool voice = step / 200 % 3 == 0;
    for (std::uint8_t& band : bands) band = static_cast<std::uint8_t>(voice ? 120 : 60 + step % 5);
    sound.Append(bands);
  }
  const VoiceTrack voice = VoiceOfSound(sound);
  ASSERT_EQ(voice.size(), 6000U);
  EXPECT_GT(voice[100], 0.9F);
  EXPECT_LT(voice[300], 0.2F);
}

TEST(VoiceOfSound, ASteadySoundTellsNothing) {
  SoundTable sound;
  for (int step = 0; step < 3000; ++step) sound.Append({90, 90, 90, 90, 90, 90, 90, 90, 90});
  for (const float step : VoiceOfSound(sound)) EXPECT_EQ(step, 0.0F);
  EXPECT_TRUE(VoiceOfSound(SoundTable()).empty());
}

}  // namespace
}  // namespace cuewright

#include "shots/shots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace cuewright {
namespace {

/// A still picture of its own for each number: smooth spots of light in some colour.
Thumbnail Scene(int number, int moved = 0) {
  std::mt19937 random(static_cast<unsigned>(number));
  Thumbnail picture;
  std::array<std::array<int, 4>, 10> spots{};
  for (auto& spot : spots) {
    spot = {static_cast<int>(random() % 64), static_cast<int>(random() % 36), static_cast<int>(random() % 120) + 40,
            static_cast<int>(random() % 150) + 20};
  }
  for (int y = 0; y < Thumbnail::kHeight; ++y) {
    for (int x = 0; x < Thumbnail::kWidth; ++x) {
      int level = 40;
      for (const auto& spot : spots) {
        const int dx = x + moved - spot[0];
        const int dy = y - spot[1];
        level += std::max(0, spot[2] - (dx * dx + dy * dy) * 100 / spot[3]);
      }
      picture.bytes[static_cast<std::size_t>(y * Thumbnail::kWidth + x)] =
          static_cast<std::uint8_t>(std::min(level, 235));
    }
  }
  std::fill_n(picture.bytes.begin() + Thumbnail::kLuma, Thumbnail::kChroma,
              static_cast<std::uint8_t>(90 + random() % 76));
  std::fill_n(picture.bytes.begin() + Thumbnail::kLuma + Thumbnail::kChroma, Thumbnail::kChroma,
              static_cast<std::uint8_t>(90 + random() % 76));
  return picture;
}

Thumbnail Mixed(const Thumbnail& one, const Thumbnail& other, int part, int of) {
  Thumbnail mixed;
  for (std::size_t i = 0; i < Thumbnail::kBytes; ++i) {
    mixed.bytes[i] = static_cast<std::uint8_t>((one.bytes[i] * (of - part) + other.bytes[i] * part) / of);
  }
  return mixed;
}

/// The luma of a picture changed level by level.
template <class Change>
Thumbnail WithLuma(Thumbnail picture, Change change) {
  for (std::size_t i = 0; i < Thumbnail::kLuma; ++i) {
    picture.bytes[i] = static_cast<std::uint8_t>(std::clamp(change(int{picture.bytes[i]}), 0, 255));
  }
  return picture;
}

Thumbnail Black() {
  Thumbnail picture;
  std::fill_n(picture.bytes.begin(), Thumbnail::kLuma, std::uint8_t{16});
  std::fill(picture.bytes.begin() + Thumbnail::kLuma, picture.bytes.end(), std::uint8_t{128});
  return picture;
}

class ShotsTest : public testing::Test {
 protected:
  void Add(const Thumbnail& picture, int count = 1) {
    for (int i = 0; i < count; ++i) measurer.Add(picture, 40000 * frames++);
  }

  using Found = std::vector<std::pair<int, ShotKind>>;
  Found Find(double sensitivity = 1) {
    measurer.Finish();
    Found found;
    for (const Shot& shot : FindShots(measurer.Measures(), sensitivity)) found.emplace_back(shot.frame, shot.kind);
    return found;
  }

  ShotMeasurer measurer;
  std::int64_t frames = 0;
};

constexpr auto kCut = ShotKind::Cut;
constexpr auto kFade = ShotKind::Fade;

TEST_F(ShotsTest, ACutIsTheFirstPictureOfTheNewShot) {
  Add(Scene(1), 20);
  Add(Scene(2), 7);
  Add(Scene(3), 20);
  EXPECT_EQ(Find(), (Found{{20, kCut}, {27, kCut}}));
}

TEST_F(ShotsTest, AShotBearsTheTimeOfItsPicture) {
  Add(Scene(1), 20);
  Add(Scene(2), 20);
  measurer.Finish();
  const std::vector<Shot> shots = FindShots(measurer.Measures());
  ASSERT_EQ(shots.size(), 1u);
  EXPECT_EQ(shots[0].us, 800000);
  EXPECT_EQ(shots[0].At(), 800);
}

TEST_F(ShotsTest, AFilmOfOneShotOrOnePictureHasNone) {
  EXPECT_EQ(Find(), Found{});
  Add(Scene(1));
  EXPECT_EQ(Find(), Found{});
}

TEST_F(ShotsTest, ACutInTheDarkIsFound) {
  const auto dark = [](int level) { return 16 + (level - 16) / 8; };
  Add(WithLuma(Scene(1), dark), 20);
  Add(WithLuma(Scene(2), dark), 20);
  EXPECT_EQ(Find(), (Found{{20, kCut}}));
}

TEST_F(ShotsTest, OneLevelMoreIsNoCutWhereverTheLevelLies) {
  for (int level = 60; level < 70; ++level) {
    ShotMeasurer one;
    Thumbnail picture;
    for (std::int64_t i = 0; i < 40; ++i) {
      picture.bytes.fill(static_cast<std::uint8_t>(i < 20 ? level : level + 1));
      // Something to be seen.
      std::fill_n(picture.bytes.begin(), 200, std::uint8_t{160});
      one.Add(picture, 40000 * i);
    }
    one.Finish();
    EXPECT_TRUE(FindShots(one.Measures()).empty()) << level;
  }
}

TEST_F(ShotsTest, PicturesThatAFilmShowsSeveralTimesAreNoCuts) {
  for (int step = 0; step < 20; ++step) Add(Scene(1, step % 3 * 12), 5);
  for (int step = 0; step < 20; ++step) Add(Scene(2, step % 3 * 12), 5);
  EXPECT_EQ(Find(), (Found{{100, kCut}}));
}

TEST_F(ShotsTest, AFlashIsNoCut) {
  const auto light = [](int level) { return level + 100; };
  for (const int pictures : {1, 2, 3, 4, 5}) {
    Add(Scene(1), 20);
    Add(WithLuma(Scene(1), light), pictures);
  }
  Add(Scene(1), 20);
  EXPECT_EQ(Find(), Found{});
}

TEST_F(ShotsTest, APanIsNoCutAndACutWithinIsFound) {
  for (int i = 0; i < 60; ++i) Add(Scene(1, i - 20));
  for (int i = 0; i < 60; ++i) Add(Scene(2, i - 20));
  EXPECT_EQ(Find(), (Found{{60, kCut}}));
}

TEST_F(ShotsTest, ALightThatIsTurnedUpIsNeitherCutNorFade) {
  Add(Scene(1), 30);
  for (int i = 0; i < 24; ++i) Add(WithLuma(Scene(1), [i](int level) { return level * (48 + i) / 72; }));
  Add(Scene(1), 30);
  Found found = Find();
  std::erase_if(found, [](const auto& shot) { return shot.second == kCut && shot.first == 30; });
  EXPECT_EQ(found, Found{});
}

TEST_F(ShotsTest, AFadeIsToldByItsMiddle) {
  Add(Scene(1), 40);
  for (int i = 1; i <= 16; ++i) Add(Mixed(Scene(1), Scene(2), i, 17));
  Add(Scene(2), 40);
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 48, 1);
}

TEST_F(ShotsTest, AFadeToBlackIsAFade) {
  Add(Scene(1), 40);
  for (int i = 1; i <= 16; ++i) Add(Mixed(Scene(1), Black(), i, 17));
  Add(Black(), 40);
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 48, 2);
}

TEST_F(ShotsTest, AFadeThroughBlackIsOneFadeAndItsMiddleIsInTheBlack) {
  Add(Scene(1), 40);
  for (int i = 1; i <= 12; ++i) Add(Mixed(Scene(1), Black(), i, 12));
  Add(Black(), 5);
  for (int i = 1; i <= 12; ++i) Add(Mixed(Black(), Scene(2), i, 12));
  Add(Scene(2), 40);
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 40 + 14, 2);
}

TEST_F(ShotsTest, AFadeThroughBlackThatPassesItBetweenTwoPicturesIsOneFade) {
  Add(Scene(1), 40);
  for (int i = 2; i <= 26; i += 2) Add(Mixed(Scene(1), Black(), i, 27));
  for (int i = 1; i <= 25; i += 2) Add(Mixed(Black(), Scene(2), i, 27));
  Add(Scene(2), 40);
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 53, 2);
}

TEST_F(ShotsTest, AFadeThroughBlackToAShotOfLittleDetailIsOneFade) {
  const Thumbnail weak = Mixed(Scene(2), WithLuma(Black(), [](int) { return 120; }), 4, 5);
  Add(Scene(1), 40);
  for (int i = 2; i <= 26; i += 2) Add(Mixed(Scene(1), Black(), i, 27));
  for (int i = 1; i <= 25; i += 2) Add(Mixed(Black(), weak, i, 27));
  Add(weak, 60);
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 53, 3);
}

TEST_F(ShotsTest, BlackForTwoSecondsLiesBetweenTwoFades) {
  Add(Scene(1), 40);
  for (int i = 1; i <= 12; ++i) Add(Mixed(Scene(1), Black(), i, 12));
  Add(Black(), 50);
  for (int i = 1; i <= 12; ++i) Add(Mixed(Black(), Scene(2), i, 12));
  Add(Scene(2), 40);
  const Found found = Find();
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 46, 2);
  EXPECT_EQ(found[1].second, kFade);
  EXPECT_NEAR(found[1].first, 40 + 12 + 50 + 6, 2);
}

TEST_F(ShotsTest, AFilmComesOutOfTheBlackAndEndsInIt) {
  for (int i = 0; i <= 24; ++i) Add(Mixed(Black(), Scene(1), i, 24));
  Add(Scene(1), 60);
  for (int i = 1; i < 24; ++i) Add(Mixed(Scene(1), Black(), i, 24));
  const Found found = Find();
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 12, 2);
  EXPECT_EQ(found[1].second, kFade);
  EXPECT_NEAR(found[1].first, 25 + 60 + 11, 2);
}

TEST_F(ShotsTest, AFadeBetweenShotsThatAreBothPannedOverIsFound) {
  for (int i = 0; i < 40; ++i) Add(Scene(1, i / 4));
  for (int i = 1; i <= 30; ++i) Add(Mixed(Scene(1, 10 + i / 4), Scene(2, i / 4), i, 31));
  for (int i = 31; i < 70; ++i) Add(Scene(2, i / 4));
  const Found found = Find();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].second, kFade);
  EXPECT_NEAR(found[0].first, 55, 2);
}

TEST_F(ShotsTest, AHandThatShakesMakesNoFade) {
  for (int i = 0; i < 200; ++i) Add(Scene(1, static_cast<int>(std::lround(4 * std::sin(i / 3.0)))));
  EXPECT_EQ(Find(), Found{});
}

TEST_F(ShotsTest, PicturesThatRepeatBetweenStepsAreNoCuts) {
  for (int i = 0; i < 120; ++i) Add(Scene(1, i / 3 * 3));
  EXPECT_EQ(Find(), Found{});
}

TEST_F(ShotsTest, AnotherSensitivityDecidesAnewOnTheSameMeasures) {
  Add(Scene(1), 20);
  Add(Mixed(Scene(1), Scene(2), 1, 9), 20);
  EXPECT_EQ(Find(1), Found{});
  EXPECT_EQ(Find(4), (Found{{20, kCut}}));
}

}  // namespace
}  // namespace cuewright

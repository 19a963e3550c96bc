#include "core/frame_rate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "core/runtime_error.h"

namespace cuewright::testing {
namespace {

std::pair<int, int> Fraction(const FrameRate& rate) { return {rate.Numerator(), rate.Denominator()}; }

TEST(FrameRate, IsTheFractionThatTelevisionMeans) {
  const std::pair<TextView, std::pair<int, int>> rows[] = {
      {u"23.976", {24000, 1001}}, {u"23,976", {24000, 1001}},  {u"23.98", {24000, 1001}},
      {u"29.97", {30000, 1001}},  {u"29,970", {30000, 1001}},  {u"59.94", {60000, 1001}},
      {u"47.952", {48000, 1001}}, {u"119.88", {120000, 1001}}, {u"25", {25, 1}},
      {u" 25 ", {25, 1}},         {u"25.0", {25, 1}},          {u"24", {24, 1}},
      {u"12.5", {25, 2}},         {u"18.333", {18333, 1000}},  {u"23.9760239", {24000, 1001}},
      {u"240", {240, 1}},         {u"29.971", {29971, 1000}},
  };
  for (const auto& [text, fraction] : rows) {
    EXPECT_EQ(Fraction(FrameRate::FromText(text)), fraction) << ToUtf8(text);
  }
}

TEST(FrameRate, IsNoneForATextThatIsNoNumber) {
  for (const TextView text : {u"", u"  ", u"fast", u"25 fps", u"-25", u"1,234.5", u".", u"25.", u".5", u"0", u"0.0001",
                              u"1e3", u"123456789012", u"9999999999999999999999999999"}) {
    EXPECT_FALSE(FrameRate::FromText(text)) << ToUtf8(text);
  }
  EXPECT_FALSE(FrameRate());
  EXPECT_FALSE(FrameRate(-1));
}

TEST(FrameRate, IsUsualFrom1To240) {
  for (const double rate : {1.0, 15.0, 23.976, 240.0}) EXPECT_TRUE(FrameRate(rate).IsUsual()) << rate;
  for (const double rate : {0.0, 0.999, 240.001, 1000.0}) EXPECT_FALSE(FrameRate(rate).IsUsual()) << rate;
}

TEST(FrameRate, KeepsTheNumberThatWasGiven) {
  EXPECT_EQ(FrameRate::FromText(u"23,976").AsGiven(), 23.976f);
  EXPECT_EQ(FrameRate::FromText(u"29.9701").AsGiven(), 29.9701f);
  EXPECT_EQ(FrameRate(23.976f), FrameRate::FromText(u"23.976"));
}

TEST(FrameRate, IsShownWithThreeDigitsAtMost) {
  EXPECT_EQ(FrameRate(23.976).AsText(), u"23.976");
  EXPECT_EQ(FrameRate(29.97).AsText(u','), u"29,97");
  EXPECT_EQ(FrameRate(25).AsText(), u"25");
  EXPECT_EQ(FrameRate(12.5).AsText(), u"12.5");
}

TEST(FrameRate, CountsFramesByTheFraction) {
  const FrameRate film(23.976);
  EXPECT_EQ(film.MsOfFrames(24000), 1001000);
  EXPECT_EQ(film.FramesOfMs(1001000), 24000);
  EXPECT_EQ(film.MsOfFrames(1), 42);  // 41.708
  EXPECT_EQ(FrameRate(25).FramesOfMs(59), 1);
  EXPECT_EQ(FrameRate(25).FramesOfMs(60), 2);
  EXPECT_EQ(FrameRate(25).FramesOfMs(-60), -1);
  EXPECT_EQ(FrameRate().FramesOfMs(1000), 0);
}

TEST(FrameRate, FailsWhereTimesDoNotFit) {
  CarryOn errors;
  EXPECT_FALSE(errors([] { FrameRate(25).MsOfFrames(60000000); }));
  EXPECT_EQ(errors.Last()->number, kErrorOverflow);
  EXPECT_FALSE(errors([] { FrameRate(25).MsOfFrames(std::int64_t{1} << 60); }));
  EXPECT_FALSE(errors([] { FrameRate(1000000).FramesOfMs(2147483647); }));
  EXPECT_FALSE(errors([] { FrameRate().MsOfFrames(1); }));
}

TEST(FrameRate, LosesNoFrameOnTheWayThroughTimes) {
  for (const double rate : {1.0, 15.0, 23.976, 24.0, 25.0, 29.97, 30.0, 47.952, 59.94, 119.88, 239.76, 240.0, 18.333}) {
    const FrameRate frames(rate);
    for (std::int64_t frame = 0; frame < 2000000; frame += 997) {
      ASSERT_EQ(frames.FramesOfMs(frames.MsOfFrames(frame)), frame) << rate;
    }
  }
}

}  // namespace
}  // namespace cuewright::testing

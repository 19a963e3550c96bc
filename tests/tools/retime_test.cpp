#include "tools/retime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct RetimeTest : ::testing::Test {
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }

  std::vector<CaptionTimes> Times() const {
    std::vector<CaptionTimes> times;
    for (Row row = 1; row < list.Rows(); ++row) times.push_back(list.TimesAt(row));
    return times;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

TimeMap Through(std::vector<TimePoint> points) {
  TimeMap map;
  EXPECT_EQ(TimeMap::Through(std::move(points), map), TimeMap::Fault::None);
  return map;
}

TEST(TimeMapTest, ShiftsEveryTime) {
  EXPECT_EQ(TimeMap::Shift(250).At(1000), 1250);
  EXPECT_EQ(TimeMap::Shift(-1500).At(1000), -500);
}

TEST(TimeMapTest, ScalesAboutZeroAndRoundsToTheNearest) {
  const TimeMap slower = TimeMap::Scale({25, 24});
  EXPECT_EQ(slower.At(0), 0);
  EXPECT_EQ(slower.At(24), 25);
  EXPECT_EQ(slower.At(12), 13);  // 12.5
  EXPECT_EQ(slower.At(1000), 1042);
  EXPECT_EQ(TimeMap::Scale({1, 1000000000}).At(2147483647), 2);
  EXPECT_EQ(TimeMap::Scale({1000000000, 1}).At(2147483647), 2147483647000000000);
}

TEST(TimeMapTest, TakesRatesByTheirFractions) {
  const SpeedRatio ratio = SpeedRatio::OfRates(25.0, 23.976);
  EXPECT_EQ(ratio.numerator, 1001);
  EXPECT_EQ(ratio.denominator, 960);
  EXPECT_EQ(TimeMap::Scale(ratio).At(7200000), 7507500);
  EXPECT_EQ(TimeMap::Scale(SpeedRatio::OfRates(23.976, 24.0)).At(1001000), 1000000);
}

TEST(SpeedRatioTest, IsReadFromFractionsAndDecimals) {
  struct Row {
    TextView text;
    std::int64_t numerator, denominator;  // 0: no ratio
  };
  for (const Row& row : {Row{u"25/24", 25, 24},     Row{u"50/48", 25, 24},
                         Row{u" 25 / 24 ", 25, 24}, Row{u"1.001", 1001, 1000},
                         Row{u"1,5", 3, 2},         Row{u"23.976/25", 2997, 3125},
                         Row{u"2", 2, 1},           Row{u"", 0, 0},
                         Row{u"/", 0, 0},           Row{u"25/", 0, 0},
                         Row{u"0/5", 0, 0},         Row{u"5/0", 0, 0},
                         Row{u"1/2/3", 0, 0},       Row{u"-1", 0, 0},
                         Row{u"1.", 0, 0},          Row{u".5", 0, 0},
                         Row{u"1.2.3", 0, 0},       Row{u"1 2", 0, 0},
                         Row{u"1234567890", 0, 0},  Row{u"999999999/1.00000001", 0, 0}}) {
    const std::optional<SpeedRatio> ratio = SpeedRatio::FromText(row.text);
    ASSERT_EQ(ratio.has_value(), row.numerator != 0) << ToUtf8(row.text);
    if (!ratio) continue;
    EXPECT_EQ(ratio->numerator, row.numerator) << ToUtf8(row.text);
    EXPECT_EQ(ratio->denominator, row.denominator) << ToUtf8(row.text);
  }
}

TEST(TimeMapTest, GoesStraightBetweenPointsAndOnBeyondThem) {
  const TimeMap map = Through({{20000, 30000}, {10000, 10000}, {40000, 40000}});
  EXPECT_EQ(map.At(10000), 10000);
  EXPECT_EQ(map.At(15000), 20000);
  EXPECT_EQ(map.At(20000), 30000);
  EXPECT_EQ(map.At(30000), 35000);
  EXPECT_EQ(map.At(40000), 40000);
  EXPECT_EQ(map.At(50000), 45000);
  EXPECT_EQ(map.At(5000), 0);
  EXPECT_EQ(map.At(0), -10000);
}

TEST(TimeMapTest, OfOnePointIsAShift) {
  const TimeMap map = Through({{5000, 7000}});
  EXPECT_EQ(map.At(0), 2000);
  EXPECT_EQ(map.At(100000), 102000);
}

TEST(TimeMapTest, OfPointsThatFitNoLineIsRefused) {
  TimeMap map = TimeMap::Shift(5);
  EXPECT_EQ(TimeMap::Through({}, map), TimeMap::Fault::NoPoint);
  EXPECT_EQ(TimeMap::Through({{1000, 1}, {1000, 2}}, map), TimeMap::Fault::SameTime);
  EXPECT_EQ(TimeMap::Through({{1000, 5000}, {2000, 4000}}, map), TimeMap::Fault::TurnedRound);
  EXPECT_EQ(TimeMap::Through({{1000, 5000}, {2000, 5000}}, map), TimeMap::Fault::TurnedRound);
  EXPECT_EQ(map.At(0), 5);
}

TEST(TimeMapTest, IsExactToHalfAMsWhereverTimesLie) {
  const TimeMap map = Through({{1003, -2147480000}, {2147483000, 2147483647}});
  const long double slope = (2147483647.0L + 2147480000.0L) / (2147483000.0L - 1003.0L);
  for (std::int64_t at = 0; at < 2147000000; at += 1234567) {
    const auto ms = static_cast<std::int32_t>(at);
    const long double exact = -2147480000.0L + (ms - 1003.0L) * slope;
    ASSERT_LE(std::fabs(static_cast<long double>(map.At(ms)) - exact), 0.5001L) << ms;
  }
}

TEST_F(RetimeTest, MovesStartsAndEndsInTheRange) {
  Put({{1000, 2000, u"a"}, {3000, 4000, u"b"}, {5000, 6000, u"c"}, {7000, 8000, u"d"}});
  const RetimeResult result = RetimeCaptions(list, {RowRange{2, 3}}, TimeMap::Shift(500));
  EXPECT_EQ(Times(), (std::vector<CaptionTimes>{{1000, 2000}, {3500, 4500}, {5500, 6500}, {7000, 8000}}));
  EXPECT_EQ(result.changed, 2);
  EXPECT_EQ(result.belowZero, 0);
  EXPECT_TRUE(modified);
}

TEST_F(RetimeTest, LeavesCaptionsWithoutTimesAndMissingEndsAlone) {
  Put({{0, 0, u"a"}, {0, 1000, u"b"}, {2000, 0, u"c"}});
  EXPECT_EQ(RetimeCaptions(list, {RowRange{}}, TimeMap::Shift(100)).changed, 2);
  EXPECT_EQ(Times(), (std::vector<CaptionTimes>{{0, 0}, {100, 1100}, {2100, 0}}));
}

TEST_F(RetimeTest, CountsWhatWouldBeBeforeTheFilmAndLetsItBeginAtZero) {
  Put({{100, 300, u"a"}, {400, 900, u"b"}, {1000, 2000, u"c"}});
  const RetimeResult result = RetimeCaptions(list, {RowRange{}}, TimeMap::Shift(-500));
  EXPECT_EQ(Times(), (std::vector<CaptionTimes>{{0, 0}, {0, 400}, {500, 1500}}));
  EXPECT_EQ(result.belowZero, 2);
}

TEST_F(RetimeTest, TakesSeveralRangesAsOneChangeThatLeavesWhatLiesBetween) {
  Put({{1000, 2000, u"a"}, {3000, 4000, u"b"}, {5000, 6000, u"c"}, {7000, 8000, u"d"}, {9000, 9500, u"e"}});
  const RetimeRows rows = {{2, 2}, {4, 7}};
  int splices = 0;
  list.Spliced.Connect([&](const Splice&) { ++splices; });
  const RetimeResult foreseen = ForeseeRetiming(list, rows, TimeMap::Shift(-3500));
  EXPECT_EQ(splices, 0);
  EXPECT_EQ(RetimeCaptions(list, rows, TimeMap::Shift(-3500)), foreseen);
  EXPECT_EQ(foreseen, (RetimeResult{3, 1}));
  EXPECT_EQ(splices, 1);
  EXPECT_EQ(Times(), (std::vector<CaptionTimes>{{1000, 2000}, {0, 500}, {5000, 6000}, {3500, 4500}, {5500, 6000}}));
}

TEST_F(RetimeTest, StopsAtTheLargestTimeThereIs) {
  Put({{2000000000, 2147483647, u"a"}});
  RetimeCaptions(list, {RowRange{}}, TimeMap::Scale({SpeedRatio::kMost, 1}));
  EXPECT_EQ(Times(), (std::vector<CaptionTimes>{{2147483647, 2147483647}}));
}

TEST_F(RetimeTest, IsOneChangeOfTimesAndNoneWhenNothingMoves) {
  Put({{1000, 2000, u"a"}, {3000, 4000, u"b"}});
  int splices = 0;
  list.Spliced.Connect([&](const Splice& splice) {
    ++splices;
    EXPECT_TRUE(splice.TimesOnly());
  });
  EXPECT_EQ(RetimeCaptions(list, {RowRange{}}, TimeMap::Shift(0)).changed, 0);
  EXPECT_EQ(RetimeCaptions(list, {RowRange{5, 9}}, TimeMap::Shift(10)).changed, 0);
  EXPECT_EQ(splices, 0);
  EXPECT_FALSE(modified);
  RetimeCaptions(list, {RowRange{}}, TimeMap::Shift(10));
  EXPECT_EQ(splices, 1);
}

TEST_F(RetimeTest, GoesThroughAFullListInNoTime) {
  std::vector<Caption> captions;
  for (int i = 0; i < 32000; ++i) captions.push_back({i * 1000 + 1, i * 1000 + 900, u"text"});
  Put(std::move(captions));
  std::vector<TimePoint> points;
  for (int i = 0; i < 20; ++i) points.push_back({i * 1600000, i * 1600500 + 7});
  const TimeMap map = Through(points);
  const auto began = std::chrono::steady_clock::now();
  EXPECT_EQ(RetimeCaptions(list, {RowRange{}}, map).changed, 32000);
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - began;
  // Optimised it takes a tenth of this.
  EXPECT_LT(took.count(), 100);
}

}  // namespace
}  // namespace cuewright

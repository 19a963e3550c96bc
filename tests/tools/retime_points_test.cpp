#include "tools/retime_points.h"

#include <gtest/gtest.h>

#include "tools/typed_time.h"

namespace cuewright {
namespace {

std::vector<Row> RowsOf(const RetimePoints& points) {
  std::vector<Row> rows;
  for (const RetimePoints::Point& point : points.All()) rows.push_back(point.row);
  return rows;
}

TEST(RetimePointsTest, StandInTheOrderOfTheirRowsAndOnceARow) {
  RetimePoints points;
  EXPECT_EQ(points.Put(9, 9000), 0u);
  EXPECT_EQ(points.Put(3, 3000), 0u);
  EXPECT_EQ(points.Put(9, 9500), 1u);
  EXPECT_EQ(RowsOf(points), (std::vector<Row>{3, 9}));
  EXPECT_EQ(points.All()[1].ms, 9500);
  points.Remove(0);
  points.Remove(5);
  EXPECT_EQ(RowsOf(points), std::vector<Row>{9});
}

TEST(RetimePointsTest, FollowTheirCaptionsAndGoWithThem) {
  RetimePoints points;
  for (const Row row : {2, 5, 8}) points.Put(row, row.Number() * 1000);
  points.Follow({3, 0, 2, {}, {}});
  EXPECT_EQ(RowsOf(points), (std::vector<Row>{2, 7, 10}));
  points.Follow({7, 2, 0, {}, {}});
  EXPECT_EQ(RowsOf(points), (std::vector<Row>{2, 8}));
  points.Follow({2, 1, 2, {}, {}});
  EXPECT_EQ(RowsOf(points), (std::vector<Row>{2, 9}));
}

TEST(RetimePointsTest, MeanTheTimesThatTheirCaptionsHaveNow) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  list.Replace(1, 1, {{1000, 2000, u"a"}, {0, 0, u"b"}, {5000, 6000, u"c"}});
  RetimePoints points;
  for (const Row row : {1, 2, 3, 9}) points.Put(row, row.Number() * 10000);
  const std::vector<TimePoint> times = points.Times(list);
  ASSERT_EQ(times.size(), 2u);
  EXPECT_EQ(times[0].from, 1000);
  EXPECT_EQ(times[0].to, 10000);
  EXPECT_EQ(times[1].from, 5000);
  EXPECT_EQ(times[1].to, 30000);
}

TEST(TypedTimeTest, TakesSecondsWithMinutesAndHoursInFront) {
  struct Row {
    TextView text;
    int ms;  // -1: no time
  };
  for (const Row& row : {Row{u"1", 1000},
                         Row{u"1.5", 1500},
                         Row{u"0,025", 25},
                         Row{u" 2:03.25 ", 123250},
                         Row{u"1:00:02,500", 3602500},
                         Row{u"00:00:02,100", 2100},
                         Row{u"90:00", 5400000},
                         Row{u"2147483.647", 2147483647},
                         Row{u"2147483.648", -1},
                         Row{u"", -1},
                         Row{u".5", 500},
                         Row{u"5:.5", -1},
                         Row{u"1.", -1},
                         Row{u"1.2345", -1},
                         Row{u"-1", -1},
                         Row{u"1:2:3:4", -1},
                         Row{u"1::2", -1},
                         Row{u"1.5:3", -1},
                         Row{u"one", -1},
                         Row{u"999999999:999999999:999999999", -1}}) {
    EXPECT_EQ(TypedTime(row.text).value_or(-1), row.ms) << ToUtf8(row.text);
  }
}

TEST(TypedTimeTest, TakesWholeNumbers) {
  EXPECT_EQ(TypedNumber(u" 12 "), 12);
  EXPECT_EQ(TypedNumber(u"999999999"), 999999999);
  for (const TextView text : {u"", u"-1", u"1.5", u"1000000000", u"x"}) {
    EXPECT_EQ(TypedNumber(text), std::nullopt) << ToUtf8(text);
  }
}

}  // namespace
}  // namespace cuewright

#include "tools/delay.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct DelayTest : ::testing::Test {
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

using Shifting = DelayTest;

TEST_F(Shifting, MovesStartsAndEndsOfTimedCaptions) {
  Put({{1000, 2000, u"a"}, {3000, 0, u"b"}, {5000, 4000, u"c"}});
  ShiftCaptions(list, 250);
  EXPECT_EQ(list.At(1), (Caption{1250, 2250, u"a"}));
  EXPECT_EQ(list.At(2), (Caption{3250, 250, u"b"}));
  EXPECT_EQ(list.At(3), (Caption{5250, 4250, u"c"}));
  EXPECT_TRUE(modified);
}

TEST_F(Shifting, LeavesUntimedRowsAloneAlsoWithAnEnd) {
  Put({{0, 700, u"a"}, {1000, 2000, u"b"}});
  ShiftCaptions(list, 100);
  EXPECT_EQ(list.At(1), (Caption{0, 700, u"a"}));
}

TEST_F(Shifting, AnUntimedListChangesNothingAndAsksNothing) {
  Put({{0, 700, u"a"}, {0, 0, u"b"}});
  int splices = 0;
  list.Spliced.Connect([&](const Splice&) { ++splices; });
  EXPECT_EQ(CountBelowZero(list, -5000), 0);
  ShiftCaptions(list, -5000);
  EXPECT_EQ(splices, 0);
  EXPECT_FALSE(modified);
}

TEST_F(Shifting, AStartThatBecomesZeroIsNotCountedAndItsEndMoves) {
  Put({{1000, 2500, u"a"}});
  EXPECT_EQ(CountBelowZero(list, -1000), 0);
  ShiftCaptions(list, -1000);
  EXPECT_EQ(list.At(1), (Caption{0, 1500, u"a"}));
  EXPECT_FALSE(list.IsCaptionTimed(1));
}

TEST_F(Shifting, AStartBelowZeroIsCountedAndLosesItsTimingEndIncluded) {
  Put({{1000, 2500, u"a"}, {1001, 2500, u"b"}});
  EXPECT_EQ(CountBelowZero(list, -1001), 1);
  ShiftCaptions(list, -1001);
  EXPECT_EQ(list.At(1), (Caption{0, 0, u"a"}));
  EXPECT_EQ(list.At(2), (Caption{0, 1499, u"b"}));
}

TEST_F(Shifting, AnEndBelowZeroIsStoredAsZero) {
  Put({{5000, 1000, u"a"}});
  ShiftCaptions(list, -2000);
  EXPECT_EQ(list.At(1), (Caption{3000, 0, u"a"}));
}

TEST_F(Shifting, IsOneChangeOfTheList) {
  Put({{1000, 2000, u"a"}, {0, 0, u"b"}, {3000, 4000, u"c"}});
  int splices = 0;
  list.Spliced.Connect([&](const Splice& splice) {
    ++splices;
    EXPECT_TRUE(splice.TimesOnly());
  });
  ShiftCaptions(list, 10);
  EXPECT_EQ(splices, 1);
}

TEST_F(Shifting, StopsAtTheLargestTimeThereIs) {
  Put({{2147483000, 2147483600, u"a"}});
  ShiftCaptions(list, 3659990);
  EXPECT_EQ(list.At(1), (Caption{2147483647, 2147483647, u"a"}));
}

TEST_F(DelayTest, AResetWipesEveryRow) {
  Put({{1000, 2000, u"a"}, {0, 500, u"b"}});
  ClearAllTiming(list);
  EXPECT_EQ(list.At(1), (Caption{0, 0, u"a"}));
  EXPECT_EQ(list.At(2), (Caption{0, 0, u"b"}));
  EXPECT_TRUE(modified);
}

}  // namespace
}  // namespace cuewright

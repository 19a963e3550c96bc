#include "audio/board_drag.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

/// Three captions, of which the first two touch.
struct BoardDragging : ::testing::Test {
  BoardDragging() { list.Replace(1, 1, {{1000, 2000, u"a"}, {2000, 3000, u"b"}, {4000, 5000, u"c"}}); }

  std::vector<CaptionTimes> After(const BoardHit& hit, std::int32_t from, std::int32_t to, const RowSet& with = {}) {
    BoardDrag drag(list, hit, from, with);
    drag.MoveTo(to);
    drag.Store(list);
    return {list.TimesAt(1), list.TimesAt(2), list.TimesAt(3)};
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

using Times = std::vector<CaptionTimes>;

TEST_F(BoardDragging, AnEdgeMovesAloneAndKeepsSomeLength) {
  EXPECT_EQ(After({BoardPart::End, 3, 0}, 5003, 5503), (Times{{1000, 2000}, {2000, 3000}, {4000, 5500}}));
  EXPECT_EQ(After({BoardPart::Start, 3, 0}, 4000, 9000), (Times{{1000, 2000}, {2000, 3000}, {5460, 5500}}));
  EXPECT_TRUE(modified);
}

TEST_F(BoardDragging, TheBorderOfTwoMovesBoth) {
  EXPECT_EQ(After({BoardPart::Border, 1, 2}, 2001, 1801), (Times{{1000, 1800}, {1800, 3000}, {4000, 5000}}));
  EXPECT_EQ(After({BoardPart::Border, 1, 2}, 1800, 9000), (Times{{1000, 2960}, {2960, 3000}, {4000, 5000}}));
}

TEST_F(BoardDragging, AWholeCaptionTakesThoseSelectedWithItAlong) {
  RowSet with(1);
  with.Add(3, 3);
  EXPECT_EQ(After({BoardPart::Body, 1, 0}, 1500, 1700, with), (Times{{1200, 2200}, {2000, 3000}, {4200, 5200}}));
  // Held by one that isn't selected it goes alone, and never to before the film.
  EXPECT_EQ(After({BoardPart::Body, 2, 0}, 2500, -9000, with), (Times{{1200, 2200}, {1, 1001}, {4200, 5200}}));
}

TEST_F(BoardDragging, ACaptionThatIsShorterThanAllowedIsNotMadeLongerByTakingHoldOfIt) {
  list.Replace(1, 1, {{1000, 1010, u"a"}});
  EXPECT_EQ(After({BoardPart::End, 1, 0}, 1010, 1005).front(), (CaptionTimes{1000, 1010}));
  EXPECT_EQ(After({BoardPart::End, 1, 0}, 1010, 1080).front(), (CaptionTimes{1000, 1080}));
}

TEST_F(BoardDragging, WhatDoesNotMoveChangesNothing) {
  (void)After({BoardPart::Body, 1, 0}, 1500, 1500);
  EXPECT_FALSE(modified);
}

}  // namespace
}  // namespace cuewright

#include "audio/edge_snapping.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

using All = std::vector<CaptionTimes>;

/// 80 ms between captions, 500 ms around a shot, an end 80 ms before it, gaps below half a second closed up.
constexpr EdgeRules kRules = {80, 500, 80, 500};

All Snap(const All& times, const std::vector<Ms>& shots = {}, const EdgeRules& rules = kRules) {
  return SnapEdges(times, std::vector<bool>(times.size(), true), shots, rules);
}

struct Case {
  const char* what;
  All before;
  std::vector<Ms> shots;
  All after;
};

TEST(SnapEdges, MovesEdgesAsTheHouseWantsThem) {
  const Case cases[] = {
      {"a start near a shot goes to it", {{1200, 3000}}, {1000}, {{1000, 3000}}},
      {"an end near a shot ends before it", {{1000, 3100}}, {3300}, {{1000, 3220}}},
      {"an edge at the border of the zone stays", {{1500, 3000}}, {1000, 3500}, {{1500, 3000}}},
      {"of two shots the nearer one counts", {{1200, 3000}}, {1000, 1300}, {{1300, 3000}}},
      {"a caption that would lose its duration stays", {{1100, 1400}}, {1200}, {{1100, 1400}}},
      {"a short gap is closed up", {{1000, 2000}, {2300, 3000}}, {}, {{1000, 2220}, {2300, 3000}}},
      {"a gap that is too short becomes the least", {{1000, 2000}, {2040, 3000}}, {}, {{1000, 1960}, {2040, 3000}}},
      {"a long gap stays", {{1000, 2000}, {2500, 3000}}, {}, {{1000, 2000}, {2500, 3000}}},
      {"captions that overlap are another matter", {{1000, 2000}, {1900, 3000}}, {}, {{1000, 2000}, {1900, 3000}}},
      {"captions without times stay", {{0, 0}, {1200, 2000}}, {}, {{0, 0}, {1200, 2000}}},
      {"a gap with a shot in it isn't closed up over it",
       {{1000, 2000}, {2400, 3000}},
       {2300},
       {{1000, 2220}, {2300, 3000}}},
      {"a gap is closed up to what went to a shot", {{1000, 2000}, {2700, 3500}}, {2450}, {{1000, 2370}, {2450, 3500}}},
  };
  for (const Case& each : cases) EXPECT_EQ(Snap(each.before, each.shots), each.after) << each.what;
}

TEST(SnapEdges, IsDoneWithOnePass) {
  const All once = Snap({{1200, 2000}, {2300, 3100}, {3150, 4000}, {4600, 5200}}, {1000, 3300, 4500});
  EXPECT_EQ(Snap(once, {1000, 3300, 4500}), once);
}

TEST(SnapEdges, MovesNoOtherThanTheWanted) {
  const All times = {{1200, 2000}, {2300, 3100}};
  EXPECT_EQ(SnapEdges(times, {false, false}, {1000}, kRules), times);
  EXPECT_EQ(SnapEdges(times, {true, false}, {1000, 3000}, kRules), (All{{1000, 2220}, {2300, 3100}}));
}

TEST(SnapEdges, WithoutRulesNothingMoves) {
  const All times = {{1200, 2000}, {2040, 3100}};
  EXPECT_EQ(Snap(times, {1190, 2010}, {}), times);
}

}  // namespace
}  // namespace cuewright

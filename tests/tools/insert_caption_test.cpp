#include "tools/insert_caption.h"

#include "tests/tools/shaping_rig.h"

namespace cuewright {
namespace {

using InsertTest = testing::ShapingRig;
using Captions = std::vector<Caption>;

TEST_F(InsertTest, PutsACaptionBehindTheRowAsLongAsALineNeeds) {
  Put({{1000, 2000, u"a"}, {9000, 9500, u"b"}});
  EXPECT_EQ(InsertBeside(list, 1, Side::Below), 2);
  EXPECT_EQ(All(), (Captions{{1000, 2000, u"a"}, {2000, 3500, u""}, {9000, 9500, u"b"}}));
  EXPECT_TRUE(modified);
}

TEST_F(InsertTest, PutsACaptionRightInFrontOfTheRow) {
  Put({{1000, 2000, u"a"}, {9000, 9500, u"b"}});
  EXPECT_EQ(InsertBeside(list, 2, Side::Above), 2);
  EXPECT_EQ(list.At(2), (Caption{7500, 9000, u""}));
  EXPECT_EQ(InsertBeside(list, 1, Side::Above), 1);
  EXPECT_EQ(list.At(1), (Caption{1, 1000, u""})) << "a start of 0 is none";
}

TEST_F(InsertTest, NeverReachesOverANeighbour) {
  Put({{1000, 2000, u"a"}, {0, 0, u"untimed"}, {2600, 3000, u"b"}, {3050, 4000, u"c"}});
  InsertBeside(list, 1, Side::Below);
  EXPECT_EQ(list.At(2), (Caption{2000, 2600, u""}));
  EXPECT_EQ(InsertBeside(list, 4, Side::Below), 5);
  EXPECT_EQ(list.At(5), (Caption{0, 0, u""})) << "50 ms are no room";
  InsertBeside(list, 6, Side::Above);
  EXPECT_EQ(list.At(6), (Caption{0, 0, u""}));
}

TEST_F(InsertTest, HasNoTimesBesideACaptionWithoutTimes) {
  Put({{0, 0, u"a"}, {500, 0, u"b"}});
  InsertBeside(list, 1, Side::Above);
  InsertBeside(list, 3, Side::Below);
  EXPECT_EQ(All(), (Captions{{0, 0, u""}, {0, 0, u"a"}, {500, 0, u"b"}, {0, 0, u""}}));
}

TEST_F(InsertTest, FollowsTheDurationsOfTheSettings) {
  options.durationPerCharacter = {250, 120, 100};
  Put({{1000, 2000, u"a"}});
  InsertBeside(list, 1, Side::Below);
  EXPECT_EQ(list.At(2), (Caption{2000, 5000, u""}));
}

TEST_F(InsertTest, StandsWhereItsTimeBelongs) {
  Put({{1000, 2000, u"a"}, {5000, 6000, u"b"}, {0, 0, u"untimed"}});
  EXPECT_EQ(InsertAt(list, 3000), 2);
  EXPECT_EQ(list.At(2), (Caption{3000, 4500, u""}));
  EXPECT_EQ(InsertAt(list, 4600), 3);
  EXPECT_EQ(list.At(3), (Caption{4600, 5000, u""}));
  EXPECT_EQ(InsertAt(list, 0), 1);
  EXPECT_EQ(list.At(1), (Caption{1, 1000, u""}));
  EXPECT_EQ(InsertAt(list, 7000), 6);
  EXPECT_EQ(list.At(6), (Caption{7000, 8500, u""}));
  EXPECT_EQ(list.At(7).text, u"untimed");
}

TEST_F(InsertTest, IsRefusedWhereAnotherCaptionStands) {
  Put({{1000, 2000, u"a"}, {2050, 3000, u"b"}});
  for (const std::int32_t ms : {1000, 1500, 1999, 2000, 2050, 960}) EXPECT_EQ(InsertAt(list, ms), std::nullopt) << ms;
  EXPECT_EQ(list.Rows(), 3);
  EXPECT_FALSE(modified);
}

TEST_F(InsertTest, FillsABlankDocument) {
  EXPECT_EQ(InsertAt(list, 4000), 1);
  EXPECT_EQ(All(), (Captions{{4000, 5500, u""}}));
}

TEST_F(InsertTest, ACopyStandsInNoFile) {
  Put({{1000, 2000, u"a", 7}, {5000, 6000, u"b", 8}});
  DuplicateCaption(list, 1);
  EXPECT_EQ(All(), (Captions{{1000, 2000, u"a"}, {1000, 2000, u"a"}, {5000, 6000, u"b"}}));
  EXPECT_EQ(list.At(1).origin, 7u);
  EXPECT_EQ(list.At(2).origin, 0u);
}

}  // namespace
}  // namespace cuewright

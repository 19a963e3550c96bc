#include "tools/join_captions.h"

#include "tests/tools/shaping_rig.h"

namespace cuewright {
namespace {

using JoinTest = testing::ShapingRig;
using Captions = std::vector<Caption>;

TEST_F(JoinTest, PutsTextsBelowEachOtherFromTheFirstStartToTheLastEnd) {
  Put({{1000, 2000, u"a", 4}, {2500, 3000, u"b", 5}, {5000, 6000, u"c"}});
  EXPECT_TRUE(JoinCaptions(list, {1, 2}, JoinAs::Lines));
  EXPECT_EQ(All(), (Captions{{1000, 3000, u"a|b"}, {5000, 6000, u"c"}}));
  EXPECT_EQ(list.At(1).origin, 4u);
  EXPECT_TRUE(modified);
}

TEST_F(JoinTest, TakesAnyNumberOfRows) {
  Put({{1000, 2000, u"a"}, {0, 0, u"b"}, {5000, 6000, u" "}, {7000, 7500, u"d"}});
  EXPECT_TRUE(JoinCaptions(list, {1, 4}, JoinAs::Lines));
  EXPECT_EQ(All(), (Captions{{1000, 7500, u"a|b|d"}}));
}

TEST_F(JoinTest, HasTheTimesOfTheOneThatHasSome) {
  Put({{0, 0, u"a"}, {2500, 3000, u"b"}});
  EXPECT_TRUE(JoinCaptions(list, {1, 2}, JoinAs::Lines));
  EXPECT_EQ(All(), (Captions{{2500, 3000, u"a|b"}}));
}

TEST_F(JoinTest, LeavesWhatStandsBetween) {
  Put({{1000, 2000, u"a"}, {2500, 3000, u"b"}, {3500, 4000, u"c"}});
  RowSet rows(1);
  rows.Add(3, 3);
  EXPECT_TRUE(JoinCaptions(list, rows, JoinAs::Lines));
  EXPECT_EQ(All(), (Captions{{1000, 4000, u"a|c"}, {2500, 3000, u"b"}}));
}

TEST_F(JoinTest, NeedsTwoRowsThatAreThere) {
  Put({{1000, 2000, u"a"}, {2500, 3000, u"b"}});
  EXPECT_FALSE(JoinCaptions(list, {2, 3}, JoinAs::Lines));
  EXPECT_FALSE(JoinCaptions(list, {0, 1}, JoinAs::Lines));
  EXPECT_FALSE(JoinCaptions(list, {1, 1}, JoinAs::Lines));
  EXPECT_FALSE(modified);
}

TEST_F(JoinTest, KeepsTheStylesOfWholeCaptions) {
  struct Row {
    Text first, second, joined;
  };
  for (const Row& row :
       {Row{u"<i>a", u"<i>b", u"<i>a|b"}, Row{u"<i>a", u"b", u"<i>a</i>|b"}, Row{u"a", u"<b>b", u"a|<b>b</b>"},
        Row{u"<b><i>a", u"<i>b", u"<i><b>a</b>|b"}, Row{u"<i>a</i> x", u"b", u"<i>a</i> x|b"}}) {
    Put({{1000, 2000, row.first}, {2500, 3000, row.second}});
    EXPECT_TRUE(JoinCaptions(list, {1, 2}, JoinAs::Lines));
    EXPECT_EQ(list.At(1).text, row.joined);
  }
}

TEST_F(JoinTest, DropsAStyleOfAPartThatTheFormatDoesNotHave) {
  const ListMarks plain;
  list.SetMarks(plain);
  Put({{1000, 2000, u"<i>a"}, {2500, 3000, u"b"}});
  EXPECT_TRUE(JoinCaptions(list, {1, 2}, JoinAs::Lines));
  EXPECT_EQ(list.At(1).text, u"a|b");
}

TEST_F(JoinTest, ADialogueHasALineEachBehindADash) {
  struct Row {
    Text first, second, joined;
  };
  for (const Row& row :
       {Row{u"Who?", u"Me.", u"- Who?|- Me."}, Row{u"Who|is it?", u"Me.", u"- Who is it?|- Me."},
        Row{u"- Who?|- He.", u"I.", u"- Who?|- He.|- I."}, Row{u"<i>Who?", u"<i>Me.", u"<i>- Who?|- Me."},
        Row{u"<i>Who?", u"Me.", u"<i>- Who?</i>|- Me."}, Row{u"\u2013 Who?", u"Me.", u"\u2013 Who?|- Me."}}) {
    Put({{1000, 2000, row.first}, {2500, 3000, row.second}});
    EXPECT_TRUE(JoinCaptions(list, {1, 2}, JoinAs::Dialogue));
    EXPECT_EQ(list.At(1).text, row.joined);
  }
}

TEST_F(JoinTest, ACaptionLastsUntilTheNextStarts) {
  Put({{1000, 2000, u"a"}, {2500, 3000, u"b"}, {0, 0, u"c"}, {2000, 2100, u"d"}});
  EXPECT_TRUE(MeetNext(list, 1));
  EXPECT_EQ(list.At(1).end, 2500);
  EXPECT_FALSE(MeetNext(list, 2));
  EXPECT_FALSE(MeetNext(list, 3));
  EXPECT_FALSE(MeetNext(list, 4));
  EXPECT_EQ(list.At(2).end, 3000);
}

TEST_F(JoinTest, TextsChangePlacesAndTimesStay) {
  Put({{1000, 2000, u"a", 1}, {2500, 3000, u"b", 2}});
  EXPECT_TRUE(SwapTextWithNext(list, 1));
  EXPECT_EQ(All(), (Captions{{1000, 2000, u"b"}, {2500, 3000, u"a"}}));
  EXPECT_EQ(list.At(1).origin, 1u);
  EXPECT_FALSE(SwapTextWithNext(list, 2));
}

}  // namespace
}  // namespace cuewright

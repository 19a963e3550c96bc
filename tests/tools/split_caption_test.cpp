#include "tools/split_caption.h"

#include "tests/tools/shaping_rig.h"

namespace cuewright {
namespace {

using SplitTest = testing::ShapingRig;
using Captions = std::vector<Caption>;

TEST_F(SplitTest, DividesTimeAsTheLettersAreDivided) {
  Put({{1000, 3000, u"Good evening, Inspector.", 5}});
  EXPECT_TRUE(SplitAtPlace(list, 1, 4));
  EXPECT_EQ(All(), (Captions{{1000, 1364, u"Good"}, {1364, 3000, u"evening, Inspector."}}));
  EXPECT_EQ(list.At(1).origin, 5u);
  EXPECT_EQ(list.At(2).origin, 0u);
  EXPECT_TRUE(modified);
}

TEST_F(SplitTest, DropsBlanksAndLineEndsAtThePlace) {
  for (const std::size_t place : {3u, 4u}) {
    Put({{1000, 2000, u"one|two"}});
    EXPECT_TRUE(SplitAtPlace(list, 1, place));
    EXPECT_EQ(All(), (Captions{{1000, 1500, u"one"}, {1500, 2000, u"two"}})) << place;
  }
}

TEST_F(SplitTest, TakesAPlaceInsideAWordAsItIs) {
  Put({{1000, 2000, u"onetwo"}});
  EXPECT_TRUE(SplitAtPlace(list, 1, 3));
  EXPECT_EQ(All(), (Captions{{1000, 1500, u"one"}, {1500, 2000, u"two"}}));
}

TEST_F(SplitTest, FindsTheBestPlaceNearTheMiddleWhenTheCaretIsAtAnEnd) {
  struct Row {
    Text text, first, second;
  };
  for (const Row& row : {Row{u"one two", u"one", u"two"}, Row{u"a little longer|text", u"a little longer", u"text"},
                         Row{u"Yes. But it was him.", u"Yes.", u"But it was him."},
                         Row{u"\u4ECA\u65E5\u306F\u6674\u308C", u"\u4ECA\u65E5", u"\u306F\u6674\u308C"}}) {
    for (const std::size_t place : {std::size_t{0}, row.text.size(), row.text.size() + 9}) {
      Put({{1000, 2000, row.text}});
      EXPECT_TRUE(SplitAtPlace(list, 1, place));
      ASSERT_EQ(list.Rows(), 3);
      EXPECT_EQ(list.At(1).text, row.first);
      EXPECT_EQ(list.At(2).text, row.second);
    }
  }
}

TEST_F(SplitTest, LeavesASingleWordAlone) {
  for (const TextView text : {u"", u"word", u" word |"}) {
    Put({{1000, 2000, Text(text)}});
    EXPECT_FALSE(SplitAtPlace(list, 1, 0)) << ToUtf8(text);
    EXPECT_FALSE(SplitAtTime(list, 1, 1500)) << ToUtf8(text);
    EXPECT_EQ(list.Rows(), 2);
  }
  EXPECT_FALSE(modified);
}

TEST_F(SplitTest, KeepsStylesInBothParts) {
  Put({{1000, 2000, u"<i>one two"}, {3000, 4000, u"<i>one</i> <b>two</b>"}, {5000, 6000, u"{\\an8}<i>one two</i>"}});
  EXPECT_TRUE(SplitAtPlace(list, 3, 3));
  EXPECT_TRUE(SplitAtPlace(list, 2, 3));
  EXPECT_TRUE(SplitAtPlace(list, 1, 3));
  EXPECT_EQ(All(), (Captions{{1000, 1500, u"<i>one"},
                             {1500, 2000, u"<i>two"},
                             {3000, 3500, u"<i>one</i>"},
                             {3500, 4000, u"<b>two</b>"},
                             {5000, 5500, u"{\\an8}<i>one</i>"},
                             {5500, 6000, u"{\\an8}<i>two</i>"}}));
}

TEST_F(SplitTest, CountsThePlaceInWhatThePaneShows) {
  Put({{1000, 2000, u"<i>one two"}});
  options.rawMarks = true;
  EXPECT_TRUE(SplitAtPlace(list, 1, 6));
  EXPECT_EQ(list.At(1).text, u"<i>one");
  EXPECT_EQ(list.At(2).text, u"two");
}

TEST_F(SplitTest, TwoSpeakersNeedNoDashesAlone) {
  Put({{1000, 2000, u"- Who?|- Me."}, {3000, 4000, u"- Who?|- Me.|- You?"}, {5000, 6000, u"Well-known|- Me."}});
  EXPECT_TRUE(SplitAtPlace(list, 3, 10));
  EXPECT_TRUE(SplitAtPlace(list, 2, 6));
  EXPECT_TRUE(SplitAtPlace(list, 1, 6));
  std::vector<Text> texts;
  for (const Caption& caption : All()) texts.push_back(caption.text);
  EXPECT_EQ(texts, (std::vector<Text>{u"Who?", u"Me.", u"- Who?", u"- Me.|- You?", u"Well-known", u"- Me."}));
}

TEST_F(SplitTest, ACaptionWithoutTimesOrEndHasPartsWithout) {
  Put({{0, 0, u"one two"}, {500, 0, u"one two"}});
  EXPECT_TRUE(SplitAtPlace(list, 2, 3));
  EXPECT_TRUE(SplitAtPlace(list, 1, 3));
  EXPECT_EQ(All(), (Captions{{0, 0, u"one"}, {0, 0, u"two"}, {500, 0, u"one"}, {0, 0, u"two"}}));
}

TEST_F(SplitTest, EachPartStandsForAWhile) {
  Put({{1000, 2000, u"a long long long long long sentence indeed"}, {3000, 3100, u"one two"}});
  EXPECT_TRUE(SplitAtPlace(list, 2, 1));
  EXPECT_TRUE(SplitAtPlace(list, 1, 1));
  EXPECT_EQ(list.At(1).end, 1100);
  EXPECT_EQ(list.At(3).end, 3050);
}

TEST_F(SplitTest, AtATimeTheTextIsSplitNearTheSameShare) {
  Put({{1000, 3000, u"one two three four"}});
  EXPECT_TRUE(SplitAtTime(list, 1, 1800));
  EXPECT_EQ(All(), (Captions{{1000, 1800, u"one two"}, {1800, 3000, u"three four"}}));
  EXPECT_FALSE(SplitAtTime(list, 1, 1000));
  EXPECT_FALSE(SplitAtTime(list, 1, 1800));
  EXPECT_TRUE(SplitAtTime(list, 2, 2900));
  EXPECT_EQ(list.At(2), (Caption{1800, 2900, u"three"})) << "the last blank is nearest";
}

/// A sound of this level, with a pause from a time to another.
Loudness Sound(std::int32_t from, std::int32_t to, std::int32_t pauseBegins, std::int32_t pauseEnds) {
  Loudness sound;
  sound.from = from;
  for (Ms ms = from; ms < to; ms += Loudness::kStepMs) {
    sound.levels.push_back(ms >= pauseBegins && ms < pauseEnds ? 10 : 5000);
  }
  return sound;
}

TEST(QuietestNearTest, FindsThePauseWithinReach) {
  const Loudness sound = Sound(1000, 4000, 2300, 2400);
  const Ms found = QuietestNear(sound, 2000, 400);
  EXPECT_GE(found, 2330);
  EXPECT_LE(found, 2370);
  EXPECT_LT(Abs(QuietestNear(sound, 2000, 100) - 2000), 101);
  EXPECT_EQ(QuietestNear({}, 2000, 400), 2000);
  EXPECT_EQ(QuietestNear(sound, 9000, 400), 9000);
}

TEST(QuietestNearTest, OfEqualTimesTheNearestIsTaken) {
  const Ms found = QuietestNear(Sound(0, 4000, 5000, 5000), 2000, 400);
  EXPECT_LE(Abs(found - 2000), Loudness::kStepMs);
}

TEST_F(SplitTest, TheTimesPartAtThePause) {
  Put({{1000, 3000, u"one two"}});
  EXPECT_TRUE(SplitAtPlace(list, 1, 3, Sound(1000, 3000, 2200, 2300)));
  EXPECT_GE(list.At(1).end, 2230);
  EXPECT_LE(list.At(1).end, 2270);
  EXPECT_EQ(list.At(2).start, list.At(1).end);
}

}  // namespace
}  // namespace cuewright

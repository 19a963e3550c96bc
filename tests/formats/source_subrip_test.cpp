#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

/// Two captions, the first of two lines and in italics.
constexpr char kUsual[] =
    "1\n00:00:12,400 --> 00:00:15,200\n<i>Good evening,\nInspector.</i>\n\n"
    "2\n00:00:16,000 --> 00:00:19,800\nNobody <b>leaves</b>.\n\n";

TEST(SubRip, CaptionsHaveTheirTextAndTheStylesOfAll) {
  const SourceRig rig(u"SUBRIP", kUsual);
  EXPECT_EQ(rig.Rows(),
            (Rows{{12400, 15200, u"<i>Good evening,|Inspector."}, {16000, 19800, u"Nobody <b>leaves</b>."}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
}

TEST(SubRip, ATimeWithALetterInItIsNoTimeOfZero) {
  const SourceRig rig(u"SUBRIP",
                      "1\n00:00:01,000 --> 00:00:0x,000\na\n\n2\n00:00:0x,000 --> 00:00:04,000\nb\n\n"
                      "3\n00:00:05,000 --> 00:00:06,000X1:10\nc\n\n4\n00:00:07 --> 00:00:08\nd\n");
  EXPECT_EQ(rig.Rows(), (Rows{{5000, 6000, u"c"}, {7000, 8000, u"d"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{2, 3, 6, 7}));
}

struct TimeCase {
  const char* written;
  std::int32_t ms;
};

TEST(SubRip, TimesAreReadAsPeopleWriteThem) {
  for (const TimeCase& time : {TimeCase{"00:00:01.500", 1500},
                               {"0:00:01,500", 1500},
                               {"100:00:00,000", 360000000},
                               {"00:00:01,5", 1500},
                               {"00:00:01,05", 1050},
                               {"00:00:01", 1000},
                               {"00:00:01,50049", 1500},
                               {"0:0:1,5", 1500},
                               {"00:00:01, 500", 1500},
                               {"00:00:01 ,500", 1500},
                               {"00: 00: 01,500", 1500},
                               {"00:00:01:500", 1500},
                               {"01:02,500", 62500}}) {
    const SourceRig rig(u"SUBRIP", "1\n" + std::string(time.written) + " --> 200:00:00,000\na\n\n");
    ASSERT_EQ(rig.Rows().size(), 1u) << time.written;
    EXPECT_EQ(rig.Rows()[0].start, time.ms) << time.written;
    EXPECT_TRUE(rig.Blamed().empty()) << time.written;
  }
}

TEST(SubRip, ATimeInAFormOfItsOwnIsWrittenInTheUsualOne) {
  const std::string behind = " -> 00:00:09,000\na\n\n";
  for (const std::string written : {"00:00:01, 500", "00: 00:01,500", "00:00:01:500"}) {
    const SourceRig rig(u"SUBRIP", "1\n" + written + behind);
    EXPECT_EQ(rig.WithStart(0, 2250), "1\n00:00:02,250" + behind) << written;
  }
  EXPECT_EQ(SourceRig(u"SUBRIP", "1\n00:01,500" + behind).WithStart(0, 2250), "1\n00:02,250" + behind);
}

TEST(SubRip, AnArrowInATextBeginsNoCaption) {
  const SourceRig rig(u"SUBRIP", "1\n00:00:01,500 --> 00:00:02,000\nfrom 1:00 -> 2:00\n10:00 -> home\n\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"from 1:00 -> 2:00|10:00 -> home"}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(SubRip, ATimeThatGoesOnIsNotCutOff) {
  const SourceRig rig(u"SUBRIP", "1\n00:00:01,500 --> 00:00:02:10\na\n\n2\n00:00:03,000 --> 00:00:04,000\nb\n");
  EXPECT_EQ(rig.Rows(), (Rows{{3000, 4000, u"b"}}));
  EXPECT_FALSE(rig.Blamed().empty());
}

TEST(SubRip, AMarkInFrontOfANumberIsNoText) {
  const SourceRig rig(u"SUBRIP",
                      "1\n00:00:01,500 --> 00:00:02,000\na\n\n\xEF\xBB\xBF"
                      "1\n00:00:03,000 --> 00:00:04,000\nb\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"a"}, {3000, 4000, u"b"}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(SubRip, BlanksAroundTimesAndCoordinatesBehindThemAreLeft) {
  const char kFile[] = "1 \n 00:00:01,000  -->\t00:00:02,000  X1:10 X2:20 Y1:30 Y2:40\na\n\n";
  const SourceRig rig(u"SUBRIP", kFile);
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}}));
  EXPECT_EQ(rig.WithEnd(0, 2500), "1 \n 00:00:01,000  -->\t00:00:02,500  X1:10 X2:20 Y1:30 Y2:40\na\n\n");
}

TEST(SubRip, NumbersAndBlankLinesMayLack) {
  const SourceRig rig(u"SUBRIP",
                      "00:00:01,000 --> 00:00:02,000\na\n00:00:03,000 --> 00:00:04,000\nb\n"
                      "3\n00:00:05,000 --> 00:00:06,000\n7\n\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}, {3000, 4000, u"b"}, {5000, 6000, u"7"}}));
  EXPECT_TRUE(rig.Record(0).number.Empty());
  EXPECT_EQ(rig.In(rig.Record(2).number), "3");
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(SubRip, TextBehindABlankLineBelongsToTheCaption) {
  const SourceRig rig(u"SUBRIP", "1\n00:00:01,000 --> 00:00:02,000\na\n\nb\n\n2\n00:00:03,000 --> 00:00:04,000\nc\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a||b"}, {3000, 4000, u"c"}}));
  rig.ExpectFieldsAreTheirOwn();
}

TEST(SubRip, ALineOfTimesThatCantBeReadIsBlamedWithItsText) {
  const SourceRig rig(u"SUBRIP",
                      "1\n00:00:01,000 --> 00:00:02,000\na\n\n2\n00:00:03,000 --> 00:70:04,000\nb\n\n"
                      "3\n00:00:05,000 --> 00:00:06,000\nc --> d\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}, {5000, 6000, u"c --> d"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{6, 7}));
}

TEST(SubRip, AChangedTimeKeepsTheFormOfItsField) {
  const SourceRig rig(u"SUBRIP", "1\n0:00:01.50 --> 00:00:02,000\na\n\n");
  EXPECT_EQ(rig.WithStart(0, 2250), "1\n0:00:02.25 --> 00:00:02,000\na\n\n");
  // Rather more digits than another time.
  EXPECT_EQ(rig.WithStart(0, 2255), "1\n0:00:02.255 --> 00:00:02,000\na\n\n");
}

TEST(SubRip, AChangedTextKeepsTheMarksWithin) {
  const SourceRig rig(u"SUBRIP", kUsual);
  EXPECT_EQ(rig.Again(rig.WithText(0, u"<i>Good night.")), (Rows{{12400, 15200, u"<i>Good night."}, rig.Rows()[1]}));
  EXPECT_NE(rig.WithText(0, u"<b><i>a").find("\n<b><i>a</i></b>\n"), std::string::npos);
  // A tag of a part that is never closed says nothing of what stands in front of it.
  EXPECT_NE(rig.WithText(1, u"Nobody <b>stays.").find("\nNobody <b>stays.\n"), std::string::npos);
}

TEST(SubRip, ANewRecordHasNumberTimesAndABlankLine) {
  const SourceRig rig(u"SUBRIP", kUsual);
  EXPECT_EQ(rig.WithNew(1, {20000, 21005, u"a|b"}), std::string(kUsual) + "3\n00:00:20,000 --> 00:00:21,005\na\nb\n\n");
}

}  // namespace
}  // namespace cuewright::testing

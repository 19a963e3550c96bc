#include "core/caption_list.h"

#include <gtest/gtest.h>

#include <random>

#include "core/caption_time.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct ListTest : ::testing::Test {
  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};

  void Fill(int captions) {
    for (int i = 1; i <= captions; ++i) list.AddCaption(i * 1000, i * 1000 + 500, u"line " + Decimal(i), 0);
  }
};

using CaptionListRows = ListTest;
using CaptionListText = ListTest;
using CaptionListTimes = ListTest;
using SnapNearbyStart = ListTest;
using SplitCaptionLines = ListTest;
using CaptionListSelection = ListTest;

TEST_F(CaptionListRows, AddingToAnEmptyDocumentAtAnyRowFillsRowOne) {
  for (const Row row : {0, 1, 2, 7}) {
    list.Reset();
    EXPECT_EQ(list.AddCaption(5, 6, u"first", row), 1);
    EXPECT_EQ(list.Rows(), 2);
    EXPECT_EQ(list.At(1), (Caption{5, 6, u"first"}));
  }
}

TEST_F(CaptionListRows, AddingABlankCaptionLeavesTheDocumentBlankAndTheNextAddLandsInRowOneAgain) {
  list.AddCaption(0, 0, u"", 0);
  EXPECT_EQ(list.Rows(), 2);
  list.AddCaption(10, 20, u"a", 0);
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"a");
}

TEST_F(CaptionListRows, AddInTheMiddlePushesLaterRowsDownAndKeepsTheValuesAsTheyAre) {
  Fill(3);
  EXPECT_EQ(list.AddCaption(-4, 7, u"x|", 2), 2);
  EXPECT_EQ(list.Rows(), 5);
  EXPECT_EQ(list.At(2), (Caption{-4, 7, u"x|"}));
  EXPECT_EQ(list.GetCaptionText(3), u"line 2");
  EXPECT_FALSE(modified);
}

TEST_F(CaptionListRows, AddBehindTheEndIsARuntimeErrorThatLosesNothing) {
  Fill(2);
  EXPECT_THROW(list.AddCaption(1, 2, u"x", 9), RuntimeError);
  EXPECT_EQ(list.Rows(), 3);
}

TEST_F(CaptionListRows, DeletingTheLastCaptionSelectsTheNewLastOne) {
  Fill(3);
  list.SetRow(3, false);
  list.DeleteCaption(3);
  EXPECT_EQ(list.Rows(), 3);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_TRUE(modified);
}

TEST_F(CaptionListRows, DeletingTheOnlyCaptionLeavesABlankRowOne) {
  Fill(1);
  list.DeleteCaption(1);
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_EQ(list.At(1), Caption{});
  EXPECT_TRUE(modified);
  EXPECT_EQ(list.CurrentRow(), 1);
}

TEST_F(CaptionListRows, DeletingFromABlankDocumentDoesNothing) {
  list.DeleteCaption(1);
  EXPECT_EQ(list.Rows(), 2);
  EXPECT_FALSE(modified);
}

TEST_F(CaptionListRows, EveryChangeIsOneSpliceWithTheRowsThatWent) {
  Fill(3);
  std::vector<std::string> seen;
  list.Spliced.Connect([&](const Splice& s) {
    seen.push_back(std::to_string(s.first.Number()) + "-" + std::to_string(s.removed) + "+" + std::to_string(s.added) +
                   ":" + (s.before.empty() ? "" : ToUtf8(s.before[0].text)));
  });
  list.SetCaptionText(2, u"new");
  list.DeleteCaption(1);
  list.AddCaption(1, 2, u"z", 1);
  list.SetCaptionEnd(1, 2);  // no change, no splice
  EXPECT_EQ(seen, (std::vector<std::string>{"2-1+1:line 2", "1-1+0:line 1", "1-0+1:"}));
}

TEST_F(CaptionListRows, AListOfMoreRowsThanSixteenBitsIsRefusedWhole) {
  std::vector<Caption> rows(kMaxRow.Index() + 1, Caption{1, 2, u"a"});
  list.Replace(1, 1, rows);
  EXPECT_EQ(list.Rows(), 32767);
  try {
    list.AddCaption(1, 2, u"b", 0);
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorOverflow);
  }
  EXPECT_EQ(list.Rows(), 32767);
}

TEST_F(CaptionListRows, AccessorsOfARowOutOfRangeAreNeutral) {
  Fill(2);
  for (const Row row : {-1, 0, 3, 9}) {
    list.SetCaptionStart(row, 5, false);
    list.SetCaptionEnd(row, 5);
    list.SetCaptionText(row, u"x");
    list.ClearCaptionTiming(row, false);
    list.ToggleMarker(row, u"<b>");
    list.DeleteCaption(row);
    EXPECT_EQ(list.GetCaptionText(row), u"");
    EXPECT_EQ(list.GetCaptionStart(row), 0);
    EXPECT_EQ(list.GetCaptionEnd(row), 0);
    EXPECT_FALSE(list.IsCaptionTimed(row));
    EXPECT_FALSE(list.IsCaptionBold(row));
  }
  EXPECT_FALSE(modified);
  EXPECT_EQ(list.Rows(), 3);
}

TEST_F(CaptionListRows, RandomSplicesAgreeWithAPlainVector) {
  std::mt19937 random(7);
  std::vector<Caption> plain{Caption{}};
  for (int turn = 0; turn < 3000; ++turn) {
    const int size = static_cast<int>(plain.size());
    const int first = static_cast<int>(random() % static_cast<unsigned>(size + 1));
    const int count = static_cast<int>(random() % 4) % (size - first + 1);
    std::vector<Caption> added(random() % 5, Caption{turn, turn, u"t" + Decimal(turn)});
    if (size - count + static_cast<int>(added.size()) < 1) continue;
    plain.erase(plain.begin() + first, plain.begin() + first + count);
    plain.insert(plain.begin() + first, added.begin(), added.end());
    list.Replace(first + 1, count, added);
    ASSERT_EQ(list.Rows() - 1, static_cast<int>(plain.size()));
  }
  for (std::size_t i = 0; i < plain.size(); ++i) ASSERT_EQ(list.At(static_cast<int>(i) + 1), plain[i]);
}

TEST_F(CaptionListText, ATextThatEndsInTheSeparatorIsDropped) {
  Fill(1);
  list.SetCaptionText(1, u"first|");
  EXPECT_EQ(list.GetCaptionText(1), u"line 1");
  list.SetCaptionText(1, u"first|second");
  EXPECT_EQ(list.GetCaptionText(1), u"first|second");
  EXPECT_EQ(list.GetCaptionText(1, true), u"first\r\nsecond");
  EXPECT_FALSE(modified);
}

TEST_F(CaptionListText, TogglingBoldTwiceReturnsTheSameText) {
  Fill(1);
  list.ToggleMarker(1, u"<b>");
  EXPECT_EQ(list.GetCaptionText(1), u"<b>line 1");
  EXPECT_TRUE(list.IsCaptionBold(1));
  list.ToggleMarker(1, u"<b>");
  EXPECT_EQ(list.GetCaptionText(1), u"line 1");
  EXPECT_FALSE(modified);
}

TEST_F(CaptionListText, AMarkerIsAppendedAndTakenFromAnywhereInTheClassicManner) {
  Fill(1);
  options.manner.SetClassic(true);
  list.ToggleMarker(1, u"<b>");
  EXPECT_EQ(list.GetCaptionText(1), u"line 1<b>");
  list.SetCaptionText(1, u"li<b>ne 1");
  EXPECT_TRUE(list.IsCaptionBold(1));
  list.ToggleMarker(1, u"<b>");
  EXPECT_EQ(list.GetCaptionText(1), u"line 1");
}

TEST_F(CaptionListText, OnlyAMarkerOfTheWholeCaptionCountsAndGoes) {
  list.AddCaption(1, 2, u"one <i>two</i> <b>three", 0);
  EXPECT_FALSE(list.IsCaptionFormatted(1));
  list.ToggleMarker(1, u"<u>");
  EXPECT_TRUE(list.IsCaptionUnderline(1));
  EXPECT_FALSE(list.IsCaptionItalic(1));
  list.SetCaptionText(1, u"<u><i>one <b>two<i>");
  EXPECT_EQ(list.GetSeenText(1), u"one <b>two");
  list.ToggleMarker(1, u"<i>");
  EXPECT_EQ(list.GetCaptionText(1), u"<u>one <b>two");
}

TEST_F(CaptionListText, ACaptionWithTwoMarkersStaysFormattedWhenOneIsToggledOff) {
  Fill(1);
  list.ToggleMarker(1, u"<b>");
  list.ToggleMarker(1, u"<i>");
  list.ToggleMarker(1, u"<b>");
  EXPECT_FALSE(list.IsCaptionBold(1));
  EXPECT_TRUE(list.IsCaptionFormatted(1));
}

TEST_F(CaptionListText, AnUpperCaseMarkerIsFoundButCantBeToggledAway) {
  options.manner.SetClassic(true);
  list.AddCaption(1, 2, u"<B>loud", 0);
  EXPECT_FALSE(list.IsCaptionBold(1));
  list.ToggleMarker(1, u"<b>");
  EXPECT_EQ(list.GetCaptionText(1), u"<B>loud");
}

TEST_F(CaptionListTimes, ACaptionAtStartZeroIsNotTimed) {
  list.AddCaption(0, 2000, u"a", 0);
  EXPECT_FALSE(list.IsCaptionTimed(1));
  list.SetCaptionStart(1, 1, true);
  EXPECT_TRUE(list.IsCaptionTimed(1));
  EXPECT_FALSE(modified);
}

TEST_F(CaptionListTimes, ANegativeStartIsStoredAsZeroAndMarksTheDocument) {
  Fill(1);
  list.SetCaptionStart(1, -5, false);
  EXPECT_EQ(list.GetCaptionStart(1), 0);
  EXPECT_TRUE(modified);
}

TEST_F(CaptionListTimes, AnEndAlwaysMarksTheDocument) {
  Fill(1);
  list.SetCaptionEnd(1, -5);
  EXPECT_EQ(list.GetCaptionEnd(1), 0);
  EXPECT_TRUE(modified);
}

TEST_F(CaptionListTimes, ClearingIsQuietWhenAsked) {
  Fill(1);
  list.ClearCaptionTiming(1, true);
  EXPECT_EQ(list.At(1), (Caption{0, 0, u"line 1"}));
  EXPECT_FALSE(modified);
}

TEST_F(SnapNearbyStart, JoinsAStartNearOrBeforeThePreviousEnd) {
  struct Case {
    int start, expected;
  };
  for (const Case& c : {Case{5150, 5000}, Case{4900, 5000}, Case{5201, 5201}, Case{5200, 5000}}) {
    list.Reset();
    list.AddCaption(1000, 5000, u"a", 0);
    list.AddCaption(c.start, 9000, u"b", 0);
    list.SnapNearbyStart(2, true);
    EXPECT_EQ(list.GetCaptionStart(2), c.expected) << c.start;
  }
}

TEST_F(SnapNearbyStart, LeavesTheFirstRowAndARowBehindAnUntimedOne) {
  list.AddCaption(50, 100, u"a", 0);
  list.SnapNearbyStart(1, false);
  EXPECT_EQ(list.GetCaptionStart(1), 50);
  list.Reset();
  list.AddCaption(0, 5000, u"a", 0);
  list.AddCaption(4900, 9000, u"b", 0);
  list.SnapNearbyStart(2, false);
  EXPECT_EQ(list.GetCaptionStart(2), 4900);
}

TEST_F(SplitCaptionLines, SplitsAtADialogueDashOrTheMiddle) {
  struct Case {
    const char16_t* text;
    const char16_t* expected;
  };
  const Case cases[] = {
      {u"one", u""},
      {u"- Hello - Hi there", u"- Hello|- Hi there"},
      {u"aa bb cc dd", u"aa bb|cc dd"},
      {u"a|b|c d", u"a b|c d"},
      {u"  one   two ", u"one|two"},
      {u"one\r\n two", u"one|two"},
      {u"x-- y z", u"x|-- y z"},
  };
  for (const Case& c : cases) EXPECT_EQ(list.SplitCaptionLines(c.text), c.expected) << ToUtf8(c.text);
}

TEST_F(SplitCaptionLines, FailsWithoutAPlaceToSplit) {
  try {
    list.SplitCaptionLines(u"abc d");
    FAIL() << "no failure";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorInvalidCall);
  }
}

TEST_F(SplitCaptionLines, FailsByWidthFromFiveHundredTwelveCharactersOn) {
  Text text(600, u'x');
  text[300] = u' ';
  try {
    list.SplitCaptionLines(text);
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorOverflow);
  }
  Text shorter(400, u'x');
  shorter[200] = u' ';
  EXPECT_EQ(list.SplitCaptionLines(shorter), Text(200, u'x') + u"|" + Text(199, u'x'));
}

TEST_F(CaptionListSelection, SetRowClampsAndAnnounces) {
  Fill(3);
  std::vector<std::pair<Row, bool>> shown;
  list.RowShown.Connect([&](Row row, bool scroll) { shown.push_back({row, scroll}); });
  list.SetRow(0, true);
  list.SetRow(-4, false);
  list.SetRow(99, true);
  EXPECT_EQ(shown, (std::vector<std::pair<Row, bool>>{{1, false}, {3, true}}));
  EXPECT_EQ(list.CurrentRow(), 3);
}

TEST_F(CaptionListSelection, ADisabledListMovesWithoutShowing) {
  Fill(3);
  int shown = 0;
  list.RowShown.Connect([&](Row, bool) { ++shown; });
  list.SetEnabled(false);
  list.SetRow(2, false);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(shown, 0);
}

TEST_F(CaptionListSelection, AMovedSelectionRunsSetRowOnlyWhenItLeftTheCurrentRow) {
  Fill(3);
  list.SetRow(1, false);
  int shown = 0;
  list.RowShown.Connect([&](Row, bool) { ++shown; });
  list.MoveSelection(2);
  list.MoveSelection(2);
  EXPECT_EQ(shown, 1);
}

TEST(MsToTimeText, PrintsHoursToMilliseconds) {
  EXPECT_EQ(MsToTimeText(3661001), u"01:01:01,001");
  EXPECT_EQ(MsToTimeText(0), u"00:00:00,000");
  EXPECT_EQ(MsToTimeText(-1), u"00:00:00,000");
  EXPECT_EQ(MsToTimeText(255 * 3600000 + 3599999), u"255:59:59,999");
}

TEST(MsToTimeText, OverflowsAtTwoHundredFiftySixHours) {
  try {
    MsToTimeText(256 * 3600000);
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorOverflow);
  }
}

TEST(TimeTextToMs, ReadsFixedPlaces) {
  struct Case {
    const char16_t* text;
    int ms;
  };
  for (const Case& c : {Case{u"01:01:01,001", 3661001}, Case{u"00x00x01y250", 1250}, Case{u"5x:00:01,000", 1000},
                        Case{u"", 0}, Case{u"7", 7 * 3600000 + 7}, Case{u"00:00:00,99;", 0}}) {
    EXPECT_EQ(TimeTextToMs(c.text), c.ms) << ToUtf8(c.text);
  }
}

}  // namespace
}  // namespace cuewright

#include "capture/caption_cells.h"

#include <gtest/gtest.h>

#include <limits>

#include "capture/film_row.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

const TimesShown kClock{TimeForm::Clock, {}};
const TimesShown kMs{TimeForm::Milliseconds, {}};
const TimesShown kFilm{TimeForm::Frames, 23.976};

struct CellTest : ::testing::Test {
  void Fill(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }
  Text Cell(Row row, ListColumn column, const TimesShown& shown = kClock) {
    return CaptionCell(list, row, column, shown, TimesOfCells(list, row));
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

using Cells = CellTest;

TEST(TimeCell, IsAClockMillisecondsOrFrames) {
  struct Case {
    std::int32_t ms;
    Text clock, number, frames;
  };
  const Case cases[] = {
      {0, u"0:00:00.000", u"0", u"0:00:00:00"},
      {1001, u"0:00:01.001", u"1001", u"0:00:01:00"},
      {3723456, u"1:02:03.456", u"3723456", u"1:01:59:18"},
      {-1500, u"-0:00:01.500", u"-1500", u"-0:00:01:12"},
      {std::numeric_limits<std::int32_t>::max(), u"596:31:23.647", u"2147483647", u"595:55:38:07"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(TimeCell(one.ms, kClock), one.clock);
    EXPECT_EQ(TimeCell(one.ms, kMs), one.number);
    EXPECT_EQ(TimeCell(one.ms, kFilm), one.frames);
  }
  EXPECT_EQ(TimeCell(1000, {TimeForm::Frames, {}}), u"0:00:01.000") << "without a rate there are no frames";
  EXPECT_EQ(TimeCell(1000, {TimeForm::Frames, 90000.0}), u"0:00:01.000");
}

TEST_F(Cells, SayWhatIsAskedOfACaption) {
  Fill({{1000, 2500, u"fifteen letters"}, {2700, 2600, u"back|wards"}, {0, 0, u"none"}, {9000, 0, u"no end"}});
  EXPECT_EQ(Cell(1, ListColumn::Number), u"1");
  EXPECT_EQ(Cell(1, ListColumn::Start), u"0:00:01.000");
  EXPECT_EQ(Cell(1, ListColumn::End), u"0:00:02.500");
  EXPECT_EQ(Cell(1, ListColumn::Duration), u"1.500");
  EXPECT_EQ(Cell(1, ListColumn::Gap), u"0.200");
  EXPECT_EQ(Cell(1, ListColumn::Speed), u"10.0");
  EXPECT_EQ(Cell(2, ListColumn::Duration), u"-0.100");
  EXPECT_EQ(Cell(2, ListColumn::Gap), u"") << "the next one has no times";
  EXPECT_EQ(Cell(2, ListColumn::Speed), u"");
  for (const ListColumn column :
       {ListColumn::Start, ListColumn::End, ListColumn::Duration, ListColumn::Gap, ListColumn::Speed}) {
    EXPECT_EQ(Cell(3, column), u"") << static_cast<int>(column);
  }
  EXPECT_EQ(Cell(4, ListColumn::Start), u"0:00:09.000");
  EXPECT_EQ(Cell(4, ListColumn::End), u"");
  EXPECT_EQ(Cell(1, ListColumn::Duration, kMs), u"1500");
  EXPECT_EQ(Cell(1, ListColumn::Duration, kFilm), u"36");
}

TEST_F(Cells, TheTextIsOnOneLineAndWithoutMarks) {
  Fill({{0, 0, u"<i>one|two"}});
  EXPECT_EQ(Cell(1, ListColumn::Words), u"one \u21b5 two");
  const std::vector<StyledRun> runs = TextCell(list, 1);
  ASSERT_FALSE(runs.empty());
  for (const StyledRun& run : runs) EXPECT_TRUE(run.style.italic);
  options.rawMarks = true;
  EXPECT_EQ(Cell(1, ListColumn::Words), u"<i>one \u21b5 two");
}

TEST_F(Cells, TheSpeedCountsWhatIsRead) {
  Fill({{1000, 2000, u"<b>ten|letter"}, {3000, 4000, u"e\u0301e\u0301"}});
  EXPECT_DOUBLE_EQ(ReadingSpeed(list, 1, list.TimesAt(1)), 9);
  EXPECT_DOUBLE_EQ(ReadingSpeed(list, 2, list.TimesAt(2)), 2);
}

using RowOfTheFilm = CellTest;

TEST_F(RowOfTheFilm, IsTheOneThatStandsThere) {
  Fill({{1000, 2000, u"a"}, {0, 0, u"none"}, {1500, 3000, u"b"}, {4000, 3500, u"backwards"}, {5000, 6000, u"c"}});
  FilmRow film(list);
  const std::pair<int, Row> wanted[] = {{0, 0},    {999, 0},  {1000, 1}, {1999, 1}, {2000, 3}, {2999, 3},
                                        {3000, 0}, {3700, 0}, {4999, 0}, {5000, 5}, {6000, 0}, {1500, 1}};
  for (const auto& [ms, row] : wanted) EXPECT_EQ(film.RowAt(ms), row) << ms;
  EXPECT_EQ(film.RowAt(5500), 5);
  list.SetCaptionEnd(5, 5200);
  EXPECT_EQ(film.RowAt(5500), 0) << "it looks anew when times have changed";
}

}  // namespace
}  // namespace cuewright

#include "formats/timecode.h"

#include <gtest/gtest.h>

#include "core/runtime_error.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

/// The form that a template derives.
TimecodeForm FormOf(TextView timecode) {
  FormatRig rig("[A]\ntimecode=" + ToUtf8(timecode) + "\n", "P\nA\n");
  rig.loader.LoadTimecode(u"A");
  return rig.loader.Definition();
}

TimeRules Classic(double fps = 0) { return {fps, false}; }

int ErrorOf(const std::function<void()>& step) {
  CarryOn errors;
  errors(step);
  return errors.Last() ? errors.Last()->number : 0;
}

struct FormatRow {
  TextView timecode;
  Ms ms;
  double fps;
  TextView text;
};

TEST(FormatTimecode, WritesEachTemplateByItsRulesInTheClassicManner) {
  const FormatRow rows[] = {
      {u"hh:mm:ss,zzz", 3661001, 0, u"01:01:01,001"},
      {u"h:mm:ss.zz", 3661345, 0, u"1:01:01.34"},
      {u"h:mm:ss.zz", 45, 0, u"0:00:00.45"},  // a short value keeps its digits, and reads as 450 ms
      {u"h:mm:ss.zz", 5, 0, u"0:00:00.05"},
      {u"h:mm:ss.z", 1950, 0, u"0:00:01.9"},
      {u"mm:ss.zz", 3661345, 0, u"01:01.34"},  // hours are dropped
      {u"hh:mm:ss", 3600000, 0, u"01:00:00"},
      {u"hh:mm:ss", 3599800, 0, u"00:59:60"},  // no carry into the minutes
      {u"hh:mm:ss", 59300, 0, u"00:00:60"},
      {u"hh:mm:ss", 59250, 0, u"00:00:59"},
      {u"hh:mm:ss", 59251, 0, u"00:00:60"},
      {u"hh:mm:ss,zzz", -500, 0, u"00:00:00,500"},
      {u"hh:mm:ss:ff", 1000, 25, u"00:00:01:00"},
      {u"hh:mm:ss:ff", 1999, 25, u"00:00:01:24"},
      {u"hh:mm:ss:ff", 1999, 0, u"00:00:02:ff"},
      {u"hh:mm:ss,zzz", 1999, 25, u"00:00:01,z"},
      {u"hh:mm:ss", 1999, 25, u"00:00:01"},
      {u"hh:mm:ss,zzz", 255 * 3600000, 0, u"255:00:00,000"},
      {u"ss mm ss", 61000, 0, u"01 01 01"},
  };
  for (const FormatRow& row : rows) {
    EXPECT_EQ(FormatTimecode(FormOf(row.timecode), u"X", row.ms, Classic(row.fps)), row.text)
        << ToUtf8(row.timecode) << " " << row.ms;
  }
}

TEST(FormatTimecode, OverflowsFrom256HoursOn) {
  const TimecodeForm form = FormOf(u"hh:mm:ss,zzz");
  EXPECT_EQ(ErrorOf([&] { FormatTimecode(form, u"X", 256 * 3600000, Classic()); }), kErrorOverflow);
}

TEST(FormatTimecode, FoldsHoursIntoMinutesForKaraoke) {
  const TimecodeForm form = FormOf(u"mm:ss.zz");
  EXPECT_EQ(FormatTimecode(form, kKaraokeLrc, 3720000, Classic()), u"62:00.00");
  EXPECT_EQ(ErrorOf([&] { FormatTimecode(form, kKaraokeLrc, 256 * 60000, Classic()); }), kErrorOverflow);
}

TEST(MsToFramesClassic, RoundsTheProductAndCutsTheQuotient) {
  EXPECT_EQ(MsToFrames(1000, Classic(25)), 25);
  EXPECT_EQ(MsToFrames(1039, Classic(25)), 25);
  EXPECT_EQ(MsToFrames(1040, Classic(25)), 26);
  EXPECT_EQ(MsToFrames(-1039, Classic(25)), -25);
  EXPECT_EQ(MsToFrames(10000, Classic(23.976)), 239);
  EXPECT_EQ(MsToFrames(100000000, Classic(25)), 2500000);
  EXPECT_EQ(MsToFrames(2147483647, Classic(30)), 64424509);
  EXPECT_EQ(MsToFrames(86400000, Classic(29.97)), 2589407);
}

struct ParseRow {
  TextView timecode;
  TextView text;
  double fps;
  Ms ms;
};

TEST(ParseTimecode, ReadsEachTemplateByItsColumnsInTheClassicManner) {
  const ParseRow rows[] = {
      {u"hh:mm:ss,zzz", u"01:02:03,456", 0, 3723456},
      {u"hh:mm:ss,zzz", u"01-02-03-456", 0, 3723456},
      {u"h:mm:ss.zz", u"1:02:03.45", 0, 3723450},
      {u"h:mm:ss.z", u"1:02:03.4", 0, 3723400},
      {u"mm:ss.zz", u"02:03.45", 0, 123450},
      {u"hh:mm:ss", u"01:02:03", 0, 3723000},
      {u"hh:mm:ss:ff", u"01:02:03:12", 25, 3723480},
      {u"hh:mm:ss:ff", u"00:00:00:12", 23.976, 500},  // the rate is rounded first
      {u"ms", u"1234", 0, 1234},
      {u"ms", u"12.5", 0, 12},
      {u"ms", u"text", 0, 0},
      {u"ff", u"50", 25, 2000},
      {u"ff", u"24", 23.976, 1000},
      {u"ff", u"50", 0, 0},
      {u"hh:mm:ss,zzz", u"", 0, 0},
      {u"hh:mm:ss,zzz", u"aa:bb:cc,ddd", 0, 0},
      {u"hh:mm:ss,zzz", u"\uFFFD\uFFFD:00:01,000", 0, 1000},
  };
  for (const ParseRow& row : rows) {
    EXPECT_EQ(ParseTimecode(FormOf(row.timecode), row.text, Classic(row.fps)), row.ms)
        << ToUtf8(row.timecode) << " " << ToUtf8(row.text);
  }
}

TEST(ParseTimecode, GivesAWrongTimeForAFieldThatDoesNotFitTheColumnsInTheClassicManner) {
  // "1:", "2:", "3," and "456": the minutes' column begins one character late.
  EXPECT_EQ(ParseTimecode(FormOf(u"hh:mm:ss,zzz"), u"1:02:03,456", Classic()), 3600000 + 2 * 60000 + 3000 + 456);
}

TEST(ParseTimecode, OverflowsBeyond32Bits) {
  EXPECT_EQ(ErrorOf([] { ParseTimecode(FormOf(u"ms"), u"3000000000", Classic()); }), kErrorOverflow);
  EXPECT_EQ(ErrorOf([] { ParseTimecode(FormOf(u"ff"), u"3000000", Classic(25)); }), kErrorOverflow);
}

TEST(ParseClock, TakesWhatTheColumnsReadTakes) {
  const TimecodeReader reader(FormOf(u"hh:mm:ss,zzz"), {});
  for (const std::string_view text : {"01:02:03,456", "99:99:99,999", "00.00.00.000", "1a:02:03,456", "01:02:03,45 ",
                                      "01:02:03,4567", "+1:02:03,456"}) {
    Ms ms = -1;
    if (!reader.ParseClock(text, ms)) continue;
    EXPECT_EQ(ms, reader.Parse(FromUtf8(text))) << text;
  }
  Ms ms = 0;
  EXPECT_TRUE(reader.ParseClock("01:02:03,456", ms));
  EXPECT_FALSE(reader.ParseClock("01:02:03,4567", ms));
  EXPECT_FALSE(reader.ParseClock("1a:02:03,456", ms));
  EXPECT_FALSE(TimecodeReader(FormOf(u"h:mm:ss.zz"), {}).ParseClock("01:02:03.456", ms));
}

}  // namespace
}  // namespace cuewright::testing

#include <gtest/gtest.h>

#include <random>

#include "core/runtime_error.h"
#include "formats/timecode.h"
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

struct WrittenRow {
  TextView timecode;
  Ms ms;
  double fps;
  TextView text;
};

TEST(ExactTimes, AreWrittenToTheNearestStepWithCarry) {
  const WrittenRow rows[] = {
      {u"hh:mm:ss,zzz", 3661001, 0, u"01:01:01,001"}, {u"h:mm:ss.zz", 45, 0, u"0:00:00.05"},
      {u"h:mm:ss.zz", 44, 0, u"0:00:00.04"},          {u"h:mm:ss.zz", 5, 0, u"0:00:00.01"},
      {u"h:mm:ss.zz", 4, 0, u"0:00:00.00"},           {u"h:mm:ss.zz", 3599995, 0, u"1:00:00.00"},
      {u"h:mm:ss.zz", 35999996, 0, u"10:00:00.00"},   {u"h:mm:ss.z", 1949, 0, u"0:00:01.9"},
      {u"h:mm:ss.z", 1950, 0, u"0:00:02.0"},          {u"hh:mm:ss:zz", 59995, 0, u"00:01:00:00"},
      {u"mm:ss.zz", 3661345, 0, u"61:01.35"},         {u"hh:mm:ss", 59300, 0, u"00:00:59"},
      {u"hh:mm:ss", 59500, 0, u"00:01:00"},           {u"hh:mm:ss", 3599800, 0, u"01:00:00"},
      {u"hh:mm:ss,zzz", -500, 0, u"00:00:00,000"},    {u"hh:mm:ss:ff", 1999, 25, u"00:00:02:00"},
      {u"hh:mm:ss:ff", 1979, 25, u"00:00:01:24"},     {u"hh:mm:ss:ff", 59990, 29.97, u"00:01:00:00"},
      {u"hh:mm:ss:ff", 1501, 23.976, u"00:00:01:12"}, {u"hh:mm:ss:ff", 1999, 0, u"00:00:02:ff"},
      {u"hh:mm:ss,zzz", 1999, 25, u"00:00:01,999"},   {u"hh:mm:ss,zzz", 255 * 3600000, 0, u"255:00:00,000"},
  };
  for (const WrittenRow& row : rows) {
    const TimecodeForm form = FormOf(row.timecode);
    EXPECT_EQ(FormatTimecode(form, u"X", row.ms, {row.fps}), row.text) << ToUtf8(row.timecode) << " " << row.ms;
    std::array<char, 64> bytes;
    const TimecodeWriter writer(form, false, {row.fps});
    const std::size_t size = writer.PutBytes(row.ms, bytes);
    EXPECT_EQ(std::string(bytes.data(), size), ToUtf8(row.text)) << row.ms;
  }
}

TEST(ExactTimes, AreCountedInFramesOfTheExactRate) {
  EXPECT_EQ(MsToFrames(1001000, {23.976}), 24000);
  EXPECT_EQ(MsToFrames(1059, {25.0}), 26);
  EXPECT_EQ(ParseTimecode(FormOf(u"ff"), u"24000", {23.976}), 1001000);
  EXPECT_EQ(ParseTimecode(FormOf(u"ff"), u"30000", {29.97}), 1001000);
  EXPECT_EQ(ParseTimecode(FormOf(u"ff"), u"50", {}), 0);
}

TEST(ExactTimes, AreReadByTheFieldsOfTheTemplate) {
  const WrittenRow rows[] = {
      {u"hh:mm:ss,zzz", 3723456, 0, u"01:02:03,456"},  {u"hh:mm:ss,zzz", 3723456, 0, u"1:2:3,456"},
      {u"hh:mm:ss,zzz", 3723500, 0, u"01:02:03,5"},    {u"hh:mm:ss,zzz", 3723450, 0, u"01:02:03,45"},
      {u"hh:mm:ss,zzz", 3723457, 0, u"01:02:03,4567"}, {u"h:mm:ss.zz", 450, 0, u"0:00:00.45"},
      {u"h:mm:ss.zz", 900, 0, u"0:00:00.9"},           {u"mm:ss.zz", 6001000, 0, u"100:01.00"},
      {u"hh:mm:ss:ff", 1501, 23.976, u"00:00:01:12"},  {u"hh:mm:ss:ff", 1480, 25, u"00:00:01:12"},
      {u"hh:mm:ss,zzz", 0, 0, u"aa:bb:cc,ddd"},        {u"ms", 1234, 0, u"1234"},
  };
  for (const WrittenRow& row : rows) {
    EXPECT_EQ(ParseTimecode(FormOf(row.timecode), row.text, {row.fps}), row.ms) << ToUtf8(row.text);
  }
}

TEST(ExactTimes, AreReadAlikeFromBytesAndText) {
  const TimecodeReader reader(FormOf(u"hh:mm:ss,zzz"), {});
  for (const std::string_view text : {"01:02:03,456", "99:99:99,999", "00.00.00.000", "01203:04,567", "012345678901"}) {
    Ms ms = -1;
    ASSERT_TRUE(reader.ParseClock(text, ms)) << text;
    EXPECT_EQ(ms, reader.Parse(FromUtf8(text))) << text;
  }
}

TEST(ExactTimes, NeverDriftOnTheWayThroughAFile) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::int32_t> times(0, 99 * 60000);
  for (const TextView timecode : {u"hh:mm:ss,zzz", u"h:mm:ss.zz", u"hh:mm:ss:zz", u"h:mm:ss.z", u"hh:mm:ss",
                                  u"mm:ss.zz", u"mm:ss.zzz", u"ms", u"ff", u"hh:mm:ss:ff", u"hh mm ss ff"}) {
    const TimecodeForm form = FormOf(timecode);
    for (const double fps :
         {1.0, 15.0, 18.333, 23.976, 24.0, 25.0, 29.001, 29.97, 30.0, 47.952, 59.94, 119.88, 240.0}) {
      const TimeRules rules{timecode.find(u"ff") == TextView::npos ? 0 : fps};
      const auto pass = [&](Ms ms) -> Ms {
        if (timecode == u"ms") return ms;
        const Text text = timecode == u"ff" ? Decimal(MsToFrames(ms, rules)) : FormatTimecode(form, u"X", ms, rules);
        return ParseTimecode(form, text, rules);
      };
      for (int sample = 0; sample < 200; ++sample) {
        const std::int32_t given = sample < 20 ? 59990 + sample : times(random);
        const Ms once = pass(given);
        const double step = timecode == u"hh:mm:ss"      ? 1000
                            : rules.rate                 ? 1000 / fps
                            : timecode.ends_with(u"zzz") ? 1
                                                         : 100;
        ASSERT_LE(Abs(once - given).Count(), step / 2 + 1) << ToUtf8(timecode) << " " << fps << " " << given;
        Ms ms = once;
        for (int round = 0; round < 100; ++round) ms = pass(ms);
        ASSERT_EQ(ms, once) << ToUtf8(timecode) << " " << fps << " " << given;
      }
    }
  }
}

}  // namespace
}  // namespace cuewright::testing

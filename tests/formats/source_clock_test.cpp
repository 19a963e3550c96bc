#include <gtest/gtest.h>

#include "formats/source/clock_field.h"
#include "formats/source/whole_styles.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

TEST(ClockField, ReadsEveryForm) {
  struct Case {
    std::string_view bytes;
    std::int32_t ms;
    std::size_t size;
  };
  constexpr Case kCases[] = {
      {"00:00:12,400 x", 12400, 12}, {"1:02.5", 62500, 6},       {"0:00:01.45", 1450, 10},
      {"00:00:01.045", 1045, 12},    {"99:59:59", 359999000, 8}, {"100:00:00.0006", 360000001, 14},
      {"90:00.1:", 5400100, 7},      {"01:02:", 62000, 5},       {"00:01.", 1000, 5}};
  for (const auto& [bytes, ms, size] : kCases) {
    const auto clock = ReadClock(bytes);
    ASSERT_TRUE(clock) << bytes;
    EXPECT_EQ(clock->ms, ms) << bytes;
    EXPECT_EQ(clock->size, size) << bytes;
  }
  for (const std::string_view bytes : {"", "12", "12.5", ":12:00", "a", "9999999:00:00", "600:00:00"}) {
    EXPECT_FALSE(ReadClock(bytes)) << bytes;
  }
}

TEST(ClockField, WritesTheNearestStepInTheSameForm) {
  struct Case {
    std::int32_t ms;
    std::string_view form;
    std::string_view written;
  };
  constexpr Case kCases[] = {{45, "00:00:00.00", "00:00:00.05"},
                             {59996, "0:00:00.00", "0:01:00.00"},
                             {3599999, "00:00:00", "01:00:00"},
                             {1499, "00:00:00", "00:00:01"},
                             {3600000, "00:00,000", "01:00:00,000"},
                             {36000000, "0:00:00.0", "10:00:00.0"},
                             {1234, "000:00:00,000000", "000:00:01,234000"},
                             {-5, "00:00:00.000", "00:00:00.000"},
                             {12400, "nothing", "00:00:12.400"}};
  for (const auto& [ms, form, written] : kCases) EXPECT_EQ(ClockLike(ms, form), written);
  EXPECT_EQ(ClockLike(5400100, "00:00.00", NoHours::RunOnInMinutes), "90:00.10");
}

TEST(FullClock, HasHoursAndNoMoreThanAClockShows) {
  EXPECT_EQ(ReadFullClock("1:2:3.5 x")->ms, 3723500);
  EXPECT_EQ(ReadFullClock("1:2:3.5 x")->size, 7u);
  EXPECT_EQ(ReadFullClock("100:00:00,12345")->ms, 360000123);
  for (const char* none : {"00:01,000", "00:60:00,000", "00:00:60,000", "0000:00:00", "00:000:00", "00:00", "x"}) {
    EXPECT_FALSE(ReadFullClock(none)) << none;
  }
}

TEST(WholeStyles, OneTagAroundAllIsAMarker) {
  struct Case {
    TextView file;
    TextView list;
  };
  constexpr Case kCases[] = {{u"<i>a|b</i>", u"<i>a|b"},
                             {u"<B><I>a</I></B>", u"<b><i>a"},
                             {u"<i>a</i> b", u"<i>a</i> b"},
                             {u"<i>a</i> <i>b</i>", u"<i>a</i> <i>b</i>"},
                             {u"a <i>b</i>", u"a <i>b</i>"},
                             {u"<i>", u"<i>"},
                             {u"<i>a</i>|<i>b</i>", u"<i>a|b"},
                             {u"<i>a</i>|b", u"<i>a</i>|b"},
                             {u"<i>a", u"<i>a"},
                             {u"<u><i>a</i>b</u>", u"<u><i>a</i>b"}};
  for (const auto& [file, list] : kCases) {
    Text text(file);
    TagsToMarkers(text, u"|");
    EXPECT_EQ(text, list);
  }
  EXPECT_EQ(MarkersToTags(u"<i>a|b"), u"<i>a|b</i>");
  EXPECT_EQ(MarkersToTags(u"a<u><b>"), u"<b><u>a</u></b>");
  EXPECT_EQ(MarkersToTags(u"<u><i>a</i>b"), u"<u><i>a</i>b</u>");
  EXPECT_EQ(MarkersToTags(u"<i>a</i>b"), u"<i>a</i>b");
}

}  // namespace
}  // namespace cuewright::testing

#include "capture/preview_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/app_options.h"

namespace cuewright {
namespace {

/// The row by going through the list from its beginning; 0 when none fits.
Row RowByScan(const CaptionList& list, std::int32_t ms) {
  Row found = 0;
  for (Row r = 1; r <= list.Rows() - 2; ++r) {
    if (!list.IsCaptionTimed(r)) continue;
    if (ms < list.GetCaptionEnd(1)) {
      found = 1;
    } else if (ms >= list.GetCaptionEnd(r) && ms <= list.GetCaptionEnd(r + 1)) {
      return r + 1;
    }
  }
  return found;
}

struct PreviewIndexTest : ::testing::Test {
  void Fill(std::vector<Caption> rows) { list.Replace(1, list.Count(), std::move(rows)); }
  void ExpectAsScanned(std::int32_t most) {
    for (std::int32_t ms = -2; ms <= most + 2; ++ms) ASSERT_EQ(index.RowAt(ms), RowByScan(list, ms)) << "at " << ms;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  PreviewIndex index{list};
};

TEST_F(PreviewIndexTest, GivesTheFirstCaptionThatHasNotEnded) {
  Fill({{1, 3, u"a"}, {5, 8, u"b"}, {9, 12, u"c"}});
  EXPECT_EQ(index.RowAt(0), 1);
  EXPECT_EQ(index.RowAt(2), 1);
  EXPECT_EQ(index.RowAt(3), 2);
  EXPECT_EQ(index.RowAt(8), 2);  // the earlier caption comes first where two fit
  EXPECT_EQ(index.RowAt(9), 3);
  EXPECT_EQ(index.RowAt(13), 0);
}

TEST_F(PreviewIndexTest, GivesWhatTheScanGivesForAnyList) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    const int most = 1 + static_cast<int>(random() % 40);
    std::vector<Caption> rows(1 + random() % 20);
    for (Caption& row : rows) {
      // Many are untimed, equal, or in no order.
      row.start = static_cast<std::int32_t>(random() % 3);
      row.end = static_cast<std::int32_t>(random() % static_cast<unsigned>(most));
    }
    if (round % 3 == 0) std::sort(rows.begin(), rows.end(), [](auto& a, auto& b) { return a.end < b.end; });
    Fill(std::move(rows));
    ExpectAsScanned(most);
  }
}

TEST_F(PreviewIndexTest, FollowsEveryChangeOfTheList) {
  std::mt19937 random(4);
  const auto ms = [&] { return static_cast<std::int32_t>(random() % 30); };
  Fill({{1, 3, u"a"}, {5, 8, u"b"}, {9, 12, u"c"}});
  for (int change = 0; change < 400; ++change) {
    const Row row = 1 + static_cast<int>(random() % static_cast<unsigned>(list.Count()));
    switch (random() % 6) {
      case 0:
        list.AddCaption(ms(), ms(), u"new", row);
        break;
      case 1:
        list.DeleteCaption(row);
        break;
      case 2:
        list.SetCaptionStart(row, ms() % 3, true);
        break;
      case 3:
        list.SetCaptionEnd(row, ms());
        break;
      case 4:
        list.SetCaptionText(row, random() % 2 == 0 ? u"one" : u"two");
        break;
      default:
        list.Replace(row, 1, {{ms() % 2, ms(), u"other"}});
    }
    ExpectAsScanned(30);
  }
}

}  // namespace
}  // namespace cuewright

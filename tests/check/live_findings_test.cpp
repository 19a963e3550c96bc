#include "check/live_findings.h"

#include <gtest/gtest.h>

#include <random>

#include "core/app_options.h"

namespace cuewright {
namespace {

class LiveFindingsTest : public testing::Test {
 protected:
  static HouseRules Rules() {
    HouseRules rules;
    rules.minDuration = {1000, 0};
    rules.minGap = {0, 2};
    rules.charactersASecond = 20;
    return rules;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  LiveFindings findings{list};
};

TEST_F(LiveFindingsTest, FollowsEditsOfARowAndTellsWhichMayBeOthers) {
  list.Replace(1, 1, {{0, 1500, u"a"}, {2000, 3500, u"b"}, {4000, 4100, u"c"}});
  findings.SetRules(Rules(), {});
  EXPECT_TRUE(findings.Of(1).empty());
  ASSERT_EQ(findings.Of(3).size(), 1u);
  EXPECT_EQ(findings.Of(3)[0].rule, CheckRule::MinDuration);
  std::vector<std::pair<Row, Row>> told;
  findings.Changed.Connect([&](Row first, int count) { told.emplace_back(first, count); });
  list.SetCaptionEnd(2, 4050);
  EXPECT_EQ(told, (std::vector<std::pair<Row, Row>>{{1, 3}}));
  EXPECT_EQ(findings.Of(3).size(), 2u);
  EXPECT_EQ(findings.Of(3)[1].rule, CheckRule::Overlap);
}

TEST_F(LiveFindingsTest, GoesToTheNextRowAndRoundTheEnd) {
  list.Replace(1, 1, {{0, 100, u"a"}, {2000, 3500, u"b"}, {4000, 4100, u"c"}});
  findings.SetRules(Rules(), {});
  EXPECT_EQ(findings.Next(1), 3);
  EXPECT_EQ(findings.Next(3), 1);
  list.Replace(1, 3, {{0, 2000, u"a"}});
  EXPECT_EQ(findings.Next(1), 0);
}

TEST_F(LiveFindingsTest, HasNothingToSayOfRowsThatAreNone) {
  findings.SetRules(Rules(), {});
  EXPECT_TRUE(findings.Of(0).empty());
  EXPECT_TRUE(findings.Of(99).empty());
}

TEST_F(LiveFindingsTest, SaysAfterAnyEditsWhatACheckOfAllSays) {
  findings.SetRules(Rules(), {});
  std::mt19937 random(3);
  const auto pick = [&](int most) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(most)); };
  const auto caption = [&] {
    const std::int32_t start = pick(20000);
    return Caption{start, start + pick(2500), Text(static_cast<std::size_t>(1 + pick(30)), u'x')};
  };
  const HouseRules rules = Rules();
  for (int step = 0; step < 3000; ++step) {
    const Row first = 1 + pick(list.Count());
    const int count = std::min(pick(4), list.Rows() - first);
    std::vector<Caption> rows(static_cast<std::size_t>(pick(5)));
    for (Caption& row : rows) row = caption();
    if (rows.empty() && count == list.Count()) continue;
    if (step % 3 == 0) {
      list.SetCaptionStart(first, pick(20000), true);
    } else {
      list.Replace(first, count, std::move(rows));
    }
    if (step % 2 == 0) static_cast<void>(findings.Of(1 + pick(list.Count())));
    if (step % 10 == 0) {
      ASSERT_EQ(findings.All(), Checker(rules, {}).CheckAll(list)) << step;
    }
  }
}

}  // namespace
}  // namespace cuewright

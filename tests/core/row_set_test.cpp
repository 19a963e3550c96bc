#include "core/row_set.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace cuewright {
namespace {

using Rows = std::vector<Row>;

RowSet Of(const Rows& rows) {
  RowSet set;
  for (const Row row : rows) set.Add(row, row);
  return set;
}

TEST(RowSet, JoinsStretchesThatTouch) {
  RowSet set = Of({7, 3, 5});
  EXPECT_EQ(set.Stretches().size(), 3u);
  set.Add(6, 6);
  set.Add(4, 4);
  EXPECT_EQ(set.Stretches().size(), 1u);
  EXPECT_EQ(set, RowSet(7, 3));
  EXPECT_EQ(set.Count(), 5);
  EXPECT_EQ(set.First(), 3);
  EXPECT_EQ(set.Last(), 7);
  EXPECT_TRUE(set.Has(5));
  EXPECT_FALSE(set.Has(8));
}

TEST(RowSet, RemovesFromTheMiddle) {
  RowSet set(1, 9);
  set.Remove(6, 4);
  EXPECT_EQ(set.Rows(), (Rows{1, 2, 3, 7, 8, 9}));
  set.CutBehind(7);
  EXPECT_EQ(set.Rows(), (Rows{1, 2, 3, 7}));
  EXPECT_FALSE(set.Has(5));
}

TEST(RowSet, GoesWithItsCaptions) {
  struct Case {
    Rows before;
    Row first;
    int removed, added;
    Rows after;
  };
  const Case cases[] = {
      {{2, 5}, 3, 0, 1, {2, 6}},              // one comes between
      {{2, 5}, 2, 0, 2, {4, 7}},              // two come in front of the first
      {{2, 5}, 5, 1, 0, {2}},                 // the last one goes
      {{2, 3, 4, 5, 6}, 3, 2, 0, {2, 3, 4}},  // two of a stretch go
      {{2, 5}, 1, 6, 6, {2, 5}},              // all are changed in their places
      {{2, 5, 8}, 4, 3, 1, {2, 6}},           // three become one
      {{4, 6, 8}, 4, 3, 1, {4, 6}},           // and the first of them is selected
  };
  for (const Case& one : cases) {
    RowSet set = Of(one.before);
    set.Follow(one.first, one.removed, one.added);
    EXPECT_EQ(set.Rows(), one.after) << one.first << " " << one.removed << " " << one.added;
  }
}

// Whatever is done to it, it is the set that a plain one would be.
TEST(RowSet, IsAsAPlainSet) {
  std::mt19937 random(5);
  const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  RowSet set;
  std::set<Row> plain;
  for (int step = 0; step < 20000; ++step) {
    const Row one = 1 + pick(60);
    const Row other = 1 + pick(60);
    if (pick(3) == 0) {
      set.Remove(one, other);
      for (Row row = std::min(one, other); row <= std::max(one, other); ++row) plain.erase(row);
    } else if (pick(2) == 0) {
      set.Add(one, std::min(other, one + 4));
      for (Row row = std::min({one, other, one + 4}); row <= std::max(one, std::min(other, one + 4)); ++row) {
        plain.insert(row);
      }
    } else {
      const int removed = pick(4);
      const int added = pick(4);
      set.Follow(one, removed, added);
      std::set<Row> moved;
      for (const Row row : plain) {
        if (row < one + std::min(removed, added)) moved.insert(row);
        if (row >= one + removed) moved.insert(row + (added - removed));
      }
      plain = std::move(moved);
      set.CutBehind(60);
      std::erase_if(plain, [](Row row) { return row > 60; });
    }
    ASSERT_EQ(set.Rows(), Rows(plain.begin(), plain.end())) << step;
    ASSERT_EQ(set.Count(), std::ssize(plain));
    ASSERT_EQ(set.Has(one), plain.contains(one));
  }
}

}  // namespace
}  // namespace cuewright

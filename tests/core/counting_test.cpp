#include "core/counting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace cuewright {
namespace {

TEST(Counting, TellsThePlaceOfAValueAndOfAnIterator) {
  const std::vector<int> numbers = {5, 7, 7, 9};
  EXPECT_EQ(CountOf(numbers), 4);
  EXPECT_EQ(PlaceOf(numbers, 7), 1);
  EXPECT_EQ(PlaceOf(numbers, 8), -1);
  EXPECT_EQ(PlaceAt(numbers, std::ranges::find(numbers, 9)), 3);
  EXPECT_EQ(PlaceAt(numbers, numbers.end()), CountOf(numbers));
}

TEST(Counting, TakesAnEnumeratorForThePlaceOfItsValue) {
  enum class Side { Left, Right };
  constexpr std::array kNames = {'l', 'r'};
  EXPECT_EQ(ItemAt(kNames, Side::Right), 'r');
}

}  // namespace
}  // namespace cuewright

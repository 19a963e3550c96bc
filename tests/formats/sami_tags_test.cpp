#include "formats/sami_tags.h"

#include <gtest/gtest.h>

#include <random>

#include "text/utf8.h"

namespace cuewright::testing {
namespace {

TEST(StripTags, KeepsLineBreaksAndStyles) {
  TagWork work;
  EXPECT_EQ(StripTags(u"<font color=red>one</font><br><i>two", work), u"one<br><i>two");
  EXPECT_EQ(StripTags(u"a < b", work), u"a < b");
}

TEST(StripTags, GivesForFlatTagsWhatTheRuleGives) {
  constexpr TextView kPieces[] = {u"<br>", u"<b>",  u"<i>", u"<u>", u"<",         u">",   u"<p>", u"</i>",
                                  u"word", u"#br#", u"#",   u" ",   u"<a <b> c>", u"<br", u"font"};
  std::mt19937 random(3);
  int flat = 0;
  for (int round = 0; round < 5000; ++round) {
    Text line;
    for (std::size_t count = random() % 8; count > 0; --count) line += kPieces[random() % std::size(kPieces)];
    TagWork work;
    Text stripped;
    if (!StripFlatTags(line, stripped)) continue;
    ++flat;
    ASSERT_EQ(stripped, StripNestedTags(line, work)) << ToUtf8(line);
  }
  EXPECT_GT(flat, 1000);
}

}  // namespace
}  // namespace cuewright::testing

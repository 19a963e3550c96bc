#include <gtest/gtest.h>

#include <random>

#include "core/caption_list.h"
#include "tests/support/printers.h"
#include "text/text.h"

namespace cuewright {
namespace {

TEST(FindPlain, FindsWhatThePlainSearchFinds) {
  std::mt19937 random(3);
  const std::vector<Text> pieces = {u"|", u"a", u"\u7C7C", u"\u007C", u"\u3C00", u"<", u"||", u"\u017C"};
  for (int i = 0; i < 3000; ++i) {
    Text text;
    for (auto n = random() % 12; n > 0; --n) text += pieces[random() % pieces.size()];
    for (const Text& needle : {Text(u"|"), Text(u"<"), Text(u"||"), Text(u"\u7C7C"), Text()}) {
      for (std::size_t from = 0; from <= text.size() + 1; ++from) {
        EXPECT_EQ(FindPlain(text, needle, from), text.find(needle, from)) << ToUtf8(text);
      }
    }
  }
}

TEST(LooseNeedles, FindWhatTheLooseSearchFinds) {
  std::mt19937 random(4);
  const std::vector<Text> pieces = {u"w", u"W", u"http", u"HTTP",         u"@", u"\u212A", u"k", u"ſ",
                                    u"s", u"é", u"É",    u"\xD801\xDC00", u" "};
  for (int i = 0; i < 3000; ++i) {
    const auto words = [&](unsigned long most) {
      Text text;
      for (auto n = random() % most; n > 0; --n) text += pieces[random() % pieces.size()];
      return text;
    };
    const Text text = words(10);
    const std::vector<Text> needles = {words(3) + u"k", words(4) + u"w"};
    const bool expected = FindLoose(text, needles[0]) != Text::npos || FindLoose(text, needles[1]) != Text::npos;
    EXPECT_EQ(LooseNeedles(needles).AnyIn(text), expected)
        << ToUtf8(text) << " / " << ToUtf8(needles[0]) << " / " << ToUtf8(needles[1]);
  }
  EXPECT_FALSE(LooseNeedles().AnyIn(u"anything"));
  EXPECT_FALSE(LooseNeedles(std::vector<Text>{u"w"}).AnyIn(u""));
}

TEST(Markers, AreFoundInLowerCaseWhereverTheyStand) {
  const auto found = CaptionList::MarkersIn(u"a<b>c<<i><U>");
  EXPECT_TRUE(found.bold);
  EXPECT_TRUE(found.italic);
  EXPECT_FALSE(found.underline);
  EXPECT_EQ(found.Count(), 2);
  EXPECT_EQ(CaptionList::MarkersIn(u"<b><b>").Count(), 1);
  EXPECT_EQ(CaptionList::MarkersIn(u"<b").Count(), 0);
}

}  // namespace
}  // namespace cuewright

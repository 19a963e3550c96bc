#include "tools/replace_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <vector>

#include "core/seen_text.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using Fault = TextReplacer::Fault;

/// The text after replacing; the text itself when nothing was found.
Text After(TextView text, const ReplaceOrder& order) {
  TextReplacer replacer(order, u"|");
  EXPECT_EQ(replacer.Problem(), Fault::None);
  return replacer.Replaced(text).value_or(Text(text));
}

TEST(TagLengthTest, KnowsTagsFromText) {
  for (const TextView tag : {u"<i>", u"</i>", u"</>", u"<font color=\"#ff0000\">", u"<c.yellow>", u"<00:00:01.500>",
                             u"{\\an8}", u"{\\i1\\b1}", u"{y:i}", u"{C:$0000FF}"}) {
    EXPECT_EQ(TagLength(Text(tag) + u" text > }"), tag.size()) << ToUtf8(tag);
  }
  for (const TextView text : {u"<3 you> all", u"< b>", u"<", u"<i", u"a<i>", u"{x}", u"{laughs}", u"{\\an8", u"<i <b>",
                              u"{\\a{b}", u"<12>"}) {
    EXPECT_EQ(TagLength(text), 0u) << ToUtf8(text);
  }
}

TEST(TextReplacing, TakesEveryHitInBothCasesUnlessAskedOtherwise) {
  EXPECT_EQ(After(u"Cat, cat, CAT and concat", {u"cat", u"dog"}), u"dog, dog, dog and condog");
  EXPECT_EQ(After(u"Cat, cat, CAT", {u"cat", u"dog", false, true}), u"Cat, dog, CAT");
  EXPECT_EQ(After(u"ÉTÉ été", {u"été", u"x"}), u"x x");
  EXPECT_EQ(After(u"straße", {u"STRASSE", u"x"}), u"x");
}

TEST(TextReplacing, TakesPlainTextAsItStands) {
  EXPECT_EQ(After(u"a.c abc (x) $1", {u"a.c", u"$1\\n"}), u"$1\\n abc (x) $1");
  EXPECT_EQ(After(u"(x)", {u"(x)", u""}), u"");
  EXPECT_EQ(After(u"a\\Eb", {u"\\E", u"-"}), u"a-b");
}

TEST(TextReplacing, CountsASeparatorAsALineBreak) {
  EXPECT_EQ(After(u"this house|until", {u"house|until", u"place|till"}), u"this place|till");
  EXPECT_EQ(After(u"one|two", {u"\\n", u" ", true}), u"one two");
  EXPECT_EQ(After(u"one two", {u" ", u"|", true}), u"one|two");
  EXPECT_EQ(After(u"one|two", {u"^", u"- ", true}), u"- one|- two");
  EXPECT_EQ(After(u"one|two", {u"$", u"!", true}), u"one!|two!");
  EXPECT_EQ(After(u"one|two", {u"o.*o", u"x", true}), u"one|two");
}

TEST(TextReplacing, TakesWholeWordsAloneWhereAsked) {
  const ReplaceOrder plain{u"cat", u"dog", false, false, true};
  EXPECT_EQ(After(u"Cat, concat cats cat|cat", plain), u"dog, concat cats dog|dog");
  EXPECT_EQ(After(u"caté cat_ cat-2 (cat)", plain), u"caté cat_ dog-2 (dog)");
  EXPECT_EQ(After(u"<i>cat</i>s cat", plain), u"<i>cat</i>s dog");
  EXPECT_EQ(After(u"a.b aab", {u"a.b", u"x", false, false, true}), u"x aab");
  EXPECT_EQ(After(u"\\E (x) \\Ey", {u"\\E", u"-", false, false, true}), u"- (x) \\Ey");
  EXPECT_EQ(After(u"cats dog cat", {u"(cat|dog)", u"[$1]", true, false, true}), u"cats [dog] [cat]");
}

TEST(TextReplacing, SaysWhetherATextHoldsIt) {
  TextReplacer replacer({u"s. h", u"", true}, u"|");
  EXPECT_FALSE(replacer.FindsIn(u"this|house"));
  EXPECT_TRUE(replacer.FindsIn(u"thise <b>h</b>ouse"));
  TextReplacer broken({u"e\nh", u"", true}, u"|");
  EXPECT_TRUE(broken.FindsIn(u"leave|house"));
  EXPECT_TRUE(broken.FindsIn(u"<i>leave</i>|house"));
}

TEST(TextReplacing, PutsGroupsIntoTheReplacement) {
  EXPECT_EQ(After(u"12 of 34", {u"(\\d+) of (\\d+)", u"$2/$1", true}), u"34/12");
  EXPECT_EQ(After(u"ab", {u"(?<first>a)", u"[${first}]", true}), u"[a]b");
  EXPECT_EQ(After(u"price", {u"price", u"\\$5", true}), u"$5");
}

TEST(TextReplacing, SeesThroughTagsAndLeavesThemInPlace) {
  EXPECT_EQ(After(u"<i>Nobody leaves", {u"i", u"x"}), u"<i>Nobody leaves");
  EXPECT_EQ(After(u"Hel<b>lo</b> you", {u"hello", u"Hello"}), u"Hel<b>lo</b> you");
  EXPECT_EQ(After(u"Hel<b>lo</b> you", {u"hello you", u"Hello me"}), u"Hel<b>lo</b> me");
  EXPECT_EQ(After(u"No <i>one</i> leaves", {u"no one leaves", u"No man leaves"}), u"No <i>man</i> leaves");
  EXPECT_EQ(After(u"<i>one</i> two", {u"one two", u"three"}), u"<i>thr</i>ee");
  EXPECT_EQ(After(u"a<i>bcd</i>e", {u"abcde", u""}), u"<i></i>");
  EXPECT_EQ(After(u"{\\an8}an8 {y:i}y", {u"an8", u"x"}), u"{\\an8}x {y:i}y");
  EXPECT_EQ(After(u"{\\an8}One|two", {u"^", u"- ", true}), u"{\\an8}- One|- two");
  EXPECT_EQ(After(u"<i>One</i>", {u"$", u"!", true}), u"<i>One!</i>");
  EXPECT_EQ(After(u"a<i>b", {u"ab", u"\U0001F600"}), u"\U0001F600<i>");
  EXPECT_EQ(After(u"1 < 2 and 3 > 2", {u"<", u"less than"}), u"1 less than 2 and 3 > 2");
}

TEST(TextReplacing, SaysWhatIsWrong) {
  const auto fault = [](const ReplaceOrder& order) { return TextReplacer(order, u"|").Problem(); };
  EXPECT_EQ(fault({u"", u"x"}), Fault::NothingToFind);
  EXPECT_EQ(fault({u"(", u"x", true}), Fault::BadPattern);
  EXPECT_EQ(fault({u"(", u"x", false}), Fault::None);
  EXPECT_EQ(fault({u"a", u"$1", true}), Fault::BadReplacement);
  EXPECT_EQ(fault({u"a", u"${none}", true}), Fault::BadReplacement);
  EXPECT_EQ(fault({u"(a) # note", u"$1", true}), Fault::None);
}

struct ReplaceTest : ::testing::Test {
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }
  int Replace(const ReplaceOrder& order, const RowRange& rows = {}) {
    TextReplacer replacer(order, options.lineSeparator);
    const int changed = ReplaceInCaptions(list, rows, replacer);
    fault = replacer.Problem();
    return changed;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  Fault fault = Fault::None;
};

TEST_F(ReplaceTest, ChangesTheRangeAsOneStepAndKeepsTimesAndOrigins) {
  Put({{1, 2, u"a", 1}, {3, 4, u"b", 2}, {5, 6, u"a a", 3}, {7, 8, u"a", 4}});
  int splices = 0;
  list.Spliced.Connect([&](const Splice&) { ++splices; });
  EXPECT_EQ(Replace({u"a", u"x"}, {1, 3}), 2);
  EXPECT_EQ(splices, 1);
  EXPECT_TRUE(modified);
  EXPECT_EQ(list.At(1), (Caption{1, 2, u"x"}));
  EXPECT_EQ(list.At(2), (Caption{3, 4, u"b"}));
  EXPECT_EQ(list.At(3), (Caption{5, 6, u"x x"}));
  EXPECT_EQ(list.At(3).origin, 3u);
  EXPECT_EQ(list.At(4), (Caption{7, 8, u"a"}));
}

TEST_F(ReplaceTest, ThatPutsTheSameInPlaceChangesNothing) {
  Put({{1, 2, u"a"}});
  EXPECT_EQ(Replace({u"a", u"a"}), 0);
  EXPECT_EQ(Replace({u"b", u"c"}), 0);
  EXPECT_FALSE(modified);
}

TEST_F(ReplaceTest, GivesUpAPatternThatNeverEndsAndChangesNothing) {
  Put({{1, 2, u"b"}, {1, 2, Text(64, u'a') + u"!"}});
  EXPECT_EQ(Replace({u"b|(a+)+$", u"x", true}), 0);
  EXPECT_EQ(fault, Fault::TooSlow);
  EXPECT_EQ(list.At(1).text, u"b");
}

TEST_F(ReplaceTest, GoesThroughAFullList) {
  std::vector<Caption> captions;
  for (int i = 0; i < 32000; ++i)
    captions.push_back({i, i, u"<i>Nobody leaves this house|until the storm has passed."});
  Put(std::move(captions));
  EXPECT_EQ(Replace({u"(storm)", u"the $1", true}), 32000);
  EXPECT_EQ(list.At(32000).text, u"<i>Nobody leaves this house|until the the storm has passed.");
}

TEST(ReplaceByPattern, ThatBeginsWithAnyWordFindsWhatItFindsWithoutItsShortCut) {
  // An empty group in front takes the short cut away.
  const std::vector<Text> patterns = {u"(\\w+)b",        u"\\w+b",         u"(\\w+)(b+)",     u"(\\w+) (\\w)",
                                      u"\\w+[ab]\\b",    u"(\\w+)$",       u"(\\w+)(?=a)",    u"\\w+(?<=ab)",
                                      u"(\\w+) *(?!b).", u"\\w+(?:a b)?c", u"(\\w+)\\1",      u"(\\w+)|b",
                                      u"\\w+?b",         u"(\\w+){2}b",    u"(\\w+)\\B(\\w)", u"\\w+\\W\\u0061"};
  std::mt19937 random(5);
  const TextView letters = u"aabbc_ \u00e4-\u0301|";
  int found = 0;
  for (int turn = 0; turn < 600; ++turn) {
    Text text;
    for (auto left = random() % 14; left > 0; --left) text += letters[random() % letters.size()];
    for (const Text& pattern : patterns) {
      const Text with = pattern.find(u'(') == 0 ? u"[$1]" : u"[$0]";
      TextReplacer shortCut({pattern, with, true}, u"|");
      TextReplacer plain({u"(?:)" + pattern, with, true}, u"|");
      const std::optional<Text> replaced = shortCut.Replaced(text);
      EXPECT_EQ(replaced, plain.Replaced(text)) << ToUtf8(pattern) << " in " << ToUtf8(text);
      EXPECT_EQ(shortCut.FindsIn(text), plain.FindsIn(text));
      found += int{replaced.has_value()};
    }
  }
  EXPECT_GT(found, 2000);
}

/// Texts of which nearly all hold what is sought.
std::vector<Caption> ManyCaptions(int count) {
  std::vector<Caption> rows;
  for (int i = 0; i < count; ++i) {
    rows.push_back(
        {i * 1000, i * 1000 + 900, i % 10 == 3 ? Text(u"<i>nothing</i>") : u"<i>the</i> house " + Decimal(i)});
  }
  return rows;
}

TEST(ReplaceInManyCaptions, ProposesTheSameAsCaptionByCaptionInOrder) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  list.Replace(1, 1, ManyCaptions(9001));
  TextReplacer replacer({u"(\\w+) house", u"$1 cellar", true}, u"|");
  const std::vector<Row> rows = AllRows(list);
  const std::vector<Proposal> proposals = ProposeReplacements(list, rows, replacer);
  std::vector<Proposal> expected;
  for (const Row row : rows) {
    if (auto text = replacer.Replaced(list.At(row).text)) expected.push_back({row, list.At(row).WithText(*text)});
  }
  EXPECT_EQ(expected.size(), 8101u);
  EXPECT_TRUE(proposals == expected);
}

TEST(ReplaceInManyCaptions, AProblemInAnyOfThemLeavesAllAsTheyAre) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  list.Replace(1, 1, ManyCaptions(9001));
  list.SetCaptionText(9001, Text(60, u'a'));
  TextReplacer replacer({u"(a+)+b|house", u"x", true}, u"|");
  EXPECT_TRUE(ProposeReplacements(list, AllRows(list), replacer).empty());
  EXPECT_EQ(replacer.Problem(), TextReplacer::Fault::TooSlow);
}

}  // namespace
}  // namespace cuewright

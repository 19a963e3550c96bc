#include "tools/find_replace.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct FindTest : ::testing::Test {
  void Put(std::vector<Text> texts) {
    std::vector<Caption> captions;
    for (Text& text : texts) captions.push_back({1000, 2000, std::move(text)});
    list.Replace(1, list.Count(), std::move(captions));
    list.SetRow(1, false);
  }
  int Find(TextView text, bool entire = false, bool matchCase = false) {
    return FindInCaptions(list, {text, entire, matchCase}, false, {}, false);
  }
  int Replace(TextView text, TextView with, bool entire = false, bool matchCase = true) {
    return FindInCaptions(list, {text, entire, matchCase}, true, with, false);
  }
  int ReplaceEverywhere(TextView text, TextView with, bool entire = false, bool matchCase = true) {
    return FindInCaptions(list, {text, entire, matchCase}, true, with, true);
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

using Finding = FindTest;

TEST_F(Finding, SelectsTheNextRowThatHoldsTheText) {
  Put({u"one", u"two", u"a one here", u"one"});
  EXPECT_EQ(Find(u"one"), 2);  // the selected row's own match is counted and doesn't hold the search
  EXPECT_EQ(list.Selected(), 3);
  EXPECT_EQ(list.CurrentRow(), 3);
  EXPECT_EQ(Find(u"one"), 2);
  EXPECT_EQ(list.Selected(), 4);
  EXPECT_EQ(Find(u"two"), 0);  // rows above aren't searched, and it doesn't wrap around
  EXPECT_EQ(list.Selected(), 4);
}

TEST_F(Finding, AMatchInTheLastRowIsReportedAgainAndAgain) {
  Put({u"x", u"needle"});
  list.SetRow(2, false);
  EXPECT_EQ(Find(u"needle"), 1);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(Find(u"needle"), 1);
  EXPECT_EQ(list.Selected(), 2);
}

TEST_F(Finding, ASingleWordIsBoundedByBlanksOrTheEnds) {
  Put({u"x", u"The cat sat"});
  EXPECT_EQ(Find(u"cat", true), 1);
  Put({u"x", u"The cat. It sat", u"concatenate", u"cat, too"});
  EXPECT_EQ(Find(u"cat", true), 0);
  Put({u"x", u"sat|cat|here", u"cat"});
  EXPECT_EQ(Find(u"cat", true), 1);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(Find(u"cat", true), 2);
  EXPECT_EQ(list.Selected(), 3);
}

TEST_F(Finding, IgnoresTheCaseOfEveryLetterUnlessToldNotTo) {
  Put({u"x", u"ÉCOLE Straße ΟΔΟΣ"});
  EXPECT_EQ(Find(u"école"), 1);
  list.SetRow(1, false);
  EXPECT_EQ(Find(u"οδος"), 1);
  list.SetRow(1, false);
  EXPECT_EQ(Find(u"école", false, true), 0);
  EXPECT_EQ(Find(u"ÉCOLE", false, true), 1);
}

TEST_F(Finding, ReadsALineBreakAsABlank) {
  Put({u"x", u"over|there"});
  EXPECT_EQ(Find(u"over there"), 1);
  list.SetRow(1, false);
  EXPECT_EQ(Find(u"|"), 0);
}

TEST_F(Finding, PadsACaptionWithBlanksAtItsEnds) {
  Put({u"x", u"end"});
  EXPECT_EQ(Find(u" end "), 1);
}

/// Replacing as the first design has it.
struct Replacing : FindTest {
  Replacing() { options.manner.SetClassic(true); }
};

using ReplacingAlone = FindTest;

TEST_F(ReplacingAlone, KeepsCaseAndLineBreaksOfWhatItDoesNotReplace) {
  const struct {
    TextView text, search, with;
    bool entire, matchCase;
    TextView result;
  } rows[] = {
      {u"A CAT|Over There", u"cat", u"Dog", false, false, u"A Dog|Over There"},
      {u"A cat|Over Cat", u"cat", u"dog", false, true, u"A dog|Over Cat"},
      {u"a cat sat", u"cat", u"dog", true, true, u"a dog sat"},
      {u"Cat cat|CAT", u"cat", u"dog", true, false, u"dog dog|dog"},
      {u"concatenate Cat", u"cat", u"dog", true, false, u"concatenate dog"},
      {u"Come over|There now", u"over there", u"here", false, false, u"Come here now"},
      {u"Ξ ΟΔΟΣ|Ο", u"οδος", u"x", false, false, u"Ξ x|Ο"},
      {u"İİ Cat|B", u"cat", u"dog", false, false, u"İİ dog|B"},
      {u"One|end", u"end", u"", false, true, u"One"},
      {u"End|of it", u" end", u"x", false, false, u"End|of it"},
      {u"aaa", u"aa", u"b", false, true, u"ba"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.text));
    Put({Text(row.text)});
    EXPECT_EQ(Replace(row.search, row.with, row.entire, row.matchCase), 1);
    EXPECT_EQ(list.GetCaptionText(1), row.result);
  }
}

TEST_F(ReplacingAlone, AnnouncesTheRowSoThatTheWindowShowsIt) {
  Put({u"a", u"cat", u"cat"});
  std::vector<Row> shown;
  list.RowShown.Connect([&](Row row, bool) {
    shown.push_back(row);
    EXPECT_EQ(list.GetCaptionText(row), shown.size() > 1 ? u"dog" : u"cat");
  });
  EXPECT_EQ(ReplaceEverywhere(u"cat", u"dog"), 2);
  EXPECT_EQ(shown, (std::vector<Row>{3, 3}));
}

TEST_F(Replacing, HoldsAtTheFirstRowAlsoAtTheSelectedOne) {
  Put({u"a cat and a cat", u"cat"});
  EXPECT_EQ(Replace(u"cat", u"dog"), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"a dog and a dog");
  EXPECT_EQ(list.GetCaptionText(2), u"cat");
  EXPECT_EQ(list.Selected(), 1);
  EXPECT_EQ(Replace(u"cat", u"dog"), 1);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_FALSE(modified);
}

TEST_F(Replacing, TurnsLineBreaksIntoBlanks) {
  Put({u"a cat|over|there"});
  EXPECT_EQ(Replace(u"cat", u"dog"), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"a dog over there");
}

TEST_F(Replacing, WithoutMatchingCaseStoresTheWholeCaptionInLowerCase) {
  Put({u"The CAT of Ádám"});
  EXPECT_EQ(Replace(u"cat", u"DOG", false, false), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"the DOG of ádám");
}

TEST_F(Replacing, OfASingleWordLeavesABlankAtEachEnd) {
  Put({u"a cat sat"});
  // The word's own blanks belong to what is replaced.
  EXPECT_EQ(Replace(u"cat", u"dog", true), 1);
  EXPECT_EQ(list.GetCaptionText(1), u" adogsat ");
}

TEST_F(Replacing, WithAReplacementThatHoldsTheNeedleStaysOnTheRow) {
  Put({u"cat", u"cat"});
  EXPECT_EQ(Replace(u"cat", u"cats"), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"cats");
  EXPECT_EQ(Replace(u"cat", u"cats"), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"catss");
  EXPECT_EQ(list.Selected(), 1);
  EXPECT_EQ(list.GetCaptionText(2), u"cat");
}

TEST_F(Replacing, DropsATextThatWouldEndInTheSeparator) {
  Put({u"a cat"});
  EXPECT_EQ(Replace(u"cat", u"|"), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"a cat");
}

TEST_F(Replacing, EverywhereLeavesTheRowsAboveUntouchedAndCountsRows) {
  Put({u"cat", u"cat cat", u"none", u"cat"});
  list.SetRow(2, false);
  EXPECT_EQ(ReplaceEverywhere(u"cat", u"dog"), 2);
  EXPECT_EQ(list.GetCaptionText(1), u"cat");
  EXPECT_EQ(list.GetCaptionText(2), u"dog dog");
  EXPECT_EQ(list.GetCaptionText(4), u"dog");
  EXPECT_EQ(list.Selected(), 4);
  EXPECT_FALSE(modified);
  EXPECT_EQ(ReplaceEverywhere(u"cat", u"dog"), 0);
}

TEST_F(Replacing, AMatchInThePaddingAloneStoresTheFlatText) {
  Put({u"End|of it"});
  EXPECT_EQ(Replace(u" end", u"x", false, false), 1);
  EXPECT_EQ(list.GetCaptionText(1), u"end of it");
}

TEST_F(Replacing, ChangesNeighbouringRowsAtOnce) {
  Put({u"cat", u"cat", u"none", u"cat"});
  int splices = 0;
  list.Spliced.Connect([&](const Splice&) { ++splices; });
  EXPECT_EQ(ReplaceEverywhere(u"cat", u"dog"), 3);
  EXPECT_EQ(splices, 2);
}

}  // namespace
}  // namespace cuewright

#include "check/fixes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

#include "core/app_options.h"
#include "tests/support/printers.h"
#include "tests/support/tag_marks.h"

namespace cuewright {
namespace {

class FixesTest : public ::testing::Test {
 protected:
  FixesTest() {
    rules.rate = 25.0;
    list.SetMarks(marks);
  }

  void Fill(std::vector<Caption> rows) { list.Replace(1, list.Count(), std::move(rows)); }

  std::vector<Finding> Found() { return Checker(rules, {}).CheckAll(list); }

  /// What mends the first finding: "row start end text".
  std::string Fix() {
    const std::vector<Finding> findings = Found();
    if (findings.empty()) return "nothing found";
    const auto fix = Fixer(rules, {}).Propose(list, findings.front());
    if (!fix) return "none";
    return std::to_string(fix->row.Number()) + " " + std::to_string(fix->after->start.Count()) + " " +
           std::to_string(fix->after->end.Count()) + " " + ToUtf8(fix->after->text);
  }

  HouseRules rules;
  testing::TagMarks marks;
  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

TEST_F(FixesTest, LengthensIntoTheRoomBehind) {
  rules.minDuration = {1000, 0};
  Fill({{1000, 1500, u"a"}});
  EXPECT_EQ(Fix(), "1 1000 2000 a");
  Fill({{1000, 1500, u"a"}, {5000, 6000, u"b"}});
  EXPECT_EQ(Fix(), "1 1000 2000 a");
}

TEST_F(FixesTest, TakesTheRoomInFrontWhereThereIsNoneBehind) {
  rules.minDuration = {1000, 0};
  rules.minGap = {0, 2};
  Fill({{0, 500, u"x"}, {1000, 1500, u"a"}, {1680, 3000, u"b"}});
  // Row 1 has room up to row 2.
  EXPECT_EQ(Fix(), "1 0 920 x");
  Fill({{1, 1200, u"x"}, {2000, 2500, u"a"}, {2680, 4000, u"b"}});
  EXPECT_EQ(Fix(), "2 1600 2600 a");
}

TEST_F(FixesTest, GivesTheTimeThatReadingTakes) {
  rules.charactersWithin = {12, 20};
  rules.charactersASecond = 15;
  Fill({{1000, 1500, Text(16, u'x')}});
  EXPECT_EQ(Fix(), "1 1000 2500 " + std::string(16, 'x'));
}

TEST_F(FixesTest, ProposesNothingThatHarmsAnother) {
  rules.maxDuration = {2000, 0};
  rules.charactersASecond = 10;
  Fill({{1000, 4000, Text(30, u'x')}});
  EXPECT_EQ(Fix(), "none");
  Fill({{1000, 4000, Text(20, u'x')}});
  EXPECT_EQ(Fix(), "1 1000 3000 " + std::string(20, 'x'));
}

TEST_F(FixesTest, PartsNeighbours) {
  rules.minGap = {0, 2};
  Fill({{1000, 2000, u"a"}, {2000, 3000, u"b"}});
  EXPECT_EQ(Fix(), "1 1000 1920 a");
  Fill({{1000, 2500, u"a"}, {2000, 3000, u"b"}});
  EXPECT_EQ(Fix(), "1 1000 1920 a");
  // The one before has no time to give.
  rules.minDuration = {1000, 0};
  Fill({{1000, 2000, u"a"}, {2000, 3500, u"b"}});
  EXPECT_EQ(Fix(), "2 2080 3500 b");
}

TEST_F(FixesTest, SlowsFastReadingDown) {
  rules.charactersASecond = 10;
  Fill({{1000, 2000, Text(20, u'x')}});
  EXPECT_EQ(Fix(), "1 1000 3000 " + std::string(20, 'x'));
}

TEST_F(FixesTest, BreaksLinesAnewAndSetsDashes) {
  rules.charactersALine = 20;
  rules.lines = 2;
  Fill({{1000, 3000, u"<i>this is</i> a line that's far too long"}});
  EXPECT_EQ(Fix(), "1 1000 3000 <i>this is</i> a line|that's far too long");
  rules.dash = u"-";
  Fill({{1000, 3000, u"- <i>Yes.</i>|\u2013 No."}});
  EXPECT_EQ(Fix(), "1 1000 3000 -<i>Yes.</i>|-No.");
}

TEST_F(FixesTest, KnowsNoWordsForATextTooLong) {
  rules.characters = 5;
  Fill({{1000, 3000, u"too many words"}});
  EXPECT_EQ(Fix(), "none");
}

TEST_F(FixesTest, MendsAllThatCanBeMendedAndMakesNothingWorse) {
  rules.minDuration = {0, 20};
  rules.maxDuration = {7000, 0};
  rules.minGap = {0, 2};
  rules.charactersASecond = 17;
  rules.charactersALine = 20;
  rules.lines = 2;
  rules.dash = u"-";
  rules.breaks.lineEnds = {u"the", u"of"};
  std::mt19937 random(7);
  const auto pick = [&](int most) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(most)); };
  const std::vector<Text> texts = {u"Yes.", u"- Yes.|\u2013 No.", u"the house of|the storm",
                                   u"a much longer text of words", u"<b>one</b> word and another of the many|words"};
  for (int round = 0; round < 25; ++round) {
    std::vector<Caption> rows;
    std::int32_t at = 1000;
    for (int i = 0; i < 25; ++i) {
      const std::int32_t start = std::max(at + pick(800) - 200, 0);
      const std::int32_t end = start + pick(3000);
      rows.push_back({start, end, texts[static_cast<std::size_t>(pick(5))]});
      at = end;
    }
    Fill(rows);
    const std::vector<Finding> before = Found();
    Fixer fixer(rules, {});
    const std::vector<Proposal> proposals = fixer.ProposeAll(list);
    CarryOut(list, EditKind::Fix, proposals);
    const std::vector<Finding> after = Found();
    EXPECT_LE(after.size(), before.size());
    for (const Finding& left : after) {
      const bool was = std::ranges::any_of(before, [&](const Finding& finding) {
        return finding.row == left.row && finding.rule == left.rule &&
               (left.IsOfWords() ||
                std::abs(finding.value - finding.limit) + 1e-6 >= std::abs(left.value - left.limit));
      });
      EXPECT_TRUE(was) << left.row << " " << RuleName(left.rule) << " in round " << round;
      // What one proposal mends is mended in the pass over all.
      EXPECT_FALSE(fixer.Propose(list, left) && left.rule != CheckRule::MinDuration &&
                   left.rule != CheckRule::ReadingSpeed && left.rule != CheckRule::Gap &&
                   left.rule != CheckRule::Overlap)
          << left.row << " " << RuleName(left.rule);
    }
  }
}

/// The words of a caption, each letter a capital where it stands in italics, without dashes and gaps.
std::string LettersOf(const Caption& caption) {
  std::string letters;
  for (const StyledRun& run : testing::TagMarks().Read(caption.text, u"|").runs) {
    for (const char16_t c : run.text) {
      if (c < u'a' || c > u'z') continue;
      letters += static_cast<char>(run.style.italic ? c - u'a' + u'A' : c);
    }
  }
  return letters;
}

TEST_F(FixesTest, NoMarkLeavesItsLettersWhenSeveralThingsOfACaptionAreMended) {
  rules.charactersALine = 16;
  rules.lines = 2;
  rules.dash = u"-";
  rules.breaks.lineEnds = {u"a", u"b"};
  std::mt19937 random(11);
  const auto one = [&](int of) { return static_cast<int>(random() % static_cast<unsigned>(of)); };
  int both = 0;  // captions that got another dash and other lines
  for (int turn = 0; turn < 400; ++turn) {
    Text text;
    bool italic = false;
    for (int word = 0, words = 3 + one(5); word < words; ++word) {
      if (word > 0) text += one(3) == 0 ? u"|" : u" ";
      if ((word == 0 || text.ends_with(u'|')) && one(2) == 0) text += one(2) == 0 ? u"\u2013 " : u"\u2014";
      for (int letter = 0, letters = 1 + one(6); letter < letters; ++letter) {
        if (one(5) == 0) text += std::exchange(italic, !italic) ? u"</i>" : u"<i>";
        text += static_cast<char16_t>(u'a' + one(4));
      }
    }
    if (italic) text += u"</i>";
    Fill({{1000, 4000, text}});
    const std::string letters = LettersOf(list.At(1));
    const Text seen = list.GetSeenText(1);
    CarryOut(list, EditKind::Fix, Fixer(rules, {}).ProposeAll(list));
    EXPECT_EQ(LettersOf(list.At(1)), letters) << ToUtf8(text) << " -> " << ToUtf8(list.At(1).text);
    const Text after = list.GetSeenText(1);
    both += int{seen.find_first_of(u"\u2013\u2014") != after.find_first_of(u"\u2013\u2014") &&
                seen.find(u'|') != after.find(u'|')};
  }
  EXPECT_GT(both, 20);
}

}  // namespace
}  // namespace cuewright

#include "check/house_rules.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/posix_files.h"

namespace cuewright {
namespace {

const Text kResources = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/");

HouseRules Read(TextView text) {
  std::string problem;
  const std::optional<HouseRules> rules = ReadHouseRules(text, problem);
  EXPECT_TRUE(rules) << problem;
  return rules.value_or(HouseRules{});
}

std::string ProblemOf(TextView text) {
  std::string problem;
  EXPECT_FALSE(ReadHouseRules(text, problem));
  return problem;
}

TEST(HouseRules, AreReadFromAFile) {
  const HouseRules rules = Read(
      u"; a remark\n[General]\nName=A house\r\nSource=Its guide\nDate=2025-12\nLanguage=en\nRate=23.976\n"
      u"MinDuration=20 frames\nMaxDuration = 7000\nCharactersASecond=12.5\nChainBelow=12 frames\nDash=\"- "
      u"\"\nWideLetters=1\n");
  EXPECT_EQ(rules.name, u"A house");
  EXPECT_EQ(rules.rate, FrameRate(23.976));
  EXPECT_EQ(rules.minDuration.frames, 20);
  EXPECT_EQ(rules.maxDuration.ms, 7000);
  EXPECT_EQ(rules.charactersASecond, 12.5);
  EXPECT_EQ(rules.chainBelow.frames, 12);
  EXPECT_EQ(rules.dash, u"- ");
  EXPECT_TRUE(rules.wideLetters);
  EXPECT_EQ(rules.lines, 0);
}

TEST(HouseRules, MayStateWhatIsReadWithinTheFirstSeconds) {
  const HouseRules rules = Read(u"Name=A\nCharactersWithin=12 20 36\nCharactersASecond=15\n");
  EXPECT_EQ(rules.CharactersIn(500), 6);
  EXPECT_EQ(rules.CharactersIn(1000), 12);
  EXPECT_EQ(rules.CharactersIn(1500), 16);
  EXPECT_EQ(rules.CharactersIn(2750), 32);
  EXPECT_EQ(rules.CharactersIn(3000), 45);
  EXPECT_EQ(rules.CharactersIn(4000), 60);
  for (const double ms : {250.0, 1000.0, 1500.0, 2750.0, 4000.0}) EXPECT_EQ(rules.MsFor(rules.CharactersIn(ms)), ms);
  EXPECT_EQ(Read(u"Name=A\nCharactersASecond=100\n").CharactersIn(290), 29);
  EXPECT_EQ(Read(u"Name=A\n").CharactersIn(1000), 0);
  EXPECT_EQ(ProblemOf(u"Name=A\nCharactersWithin=12 12\n"), "line 2: '12 12' can't be the value of CharactersWithin");
  EXPECT_EQ(ProblemOf(u"Name=A\nCharactersWithin=12 20\n"),
            "CharactersWithin needs CharactersASecond for what is longer");
}

TEST(HouseRules, TellWhichLineIsWrong) {
  EXPECT_EQ(ProblemOf(u"Name=A\nLines=two\n"), "line 2: 'two' can't be the value of Lines");
  EXPECT_EQ(ProblemOf(u"Name=A\n\nWidth=3\n"), "line 3: there is no key 'Width'");
  EXPECT_EQ(ProblemOf(u"Name=A\nLines\n"), "line 2: KEY=VALUE was expected");
  EXPECT_EQ(ProblemOf(u"Name=A\nMinGap=2 Frames\n"), "line 2: '2 Frames' can't be the value of MinGap");
  EXPECT_EQ(ProblemOf(u"Name=A\nRate=0\n"), "line 2: '0' can't be the value of Rate");
  EXPECT_EQ(ProblemOf(u"Lines=2.5\n"), "line 1: '2.5' can't be the value of Lines");
  EXPECT_EQ(ProblemOf(u"Lines=2\n"), "there is no Name");
}

TEST(HouseRules, FramesLastAsLongAtEveryRate) {
  const HouseRules rules = Read(u"Name=A\nRate=24\n");
  const HouseTime two{0, 2};
  const HouseTime twelve{0, 12};
  EXPECT_EQ(rules.FramesOf(two, 24.0), 2);
  EXPECT_EQ(rules.FramesOf(two, 23.976), 2);
  EXPECT_EQ(rules.FramesOf(two, 25.0), 2);
  EXPECT_EQ(rules.FramesOf(two, 29.97), 2);
  EXPECT_EQ(rules.FramesOf(two, 30.0), 2);
  EXPECT_EQ(rules.FramesOf(two, 50.0), 4);
  EXPECT_EQ(rules.FramesOf(twelve, 25.0), 12);
  EXPECT_EQ(rules.FramesOf(twelve, 60.0), 30);
  EXPECT_EQ(rules.MsOf(two, 24.0), 83);
  EXPECT_EQ(rules.MsOf(HouseTime{1000, 0}, 24.0), 1000);
}

TEST(LineEnds, AreWordsInSmallLetters) {
  const BreakRules rules = ReadBreakRules(u"; The remark\nThe a\n\nof  À New_York\n");
  EXPECT_EQ(rules.lineEnds, (std::unordered_set<Text>{u"the", u"a", u"of", u"à"}));
  EXPECT_EQ(rules.pairs, std::unordered_set<Text>{u"new york"});
}

TEST(HouseRulesShelf, ReadsAllThatComeWithTheProgram) {
  const PosixFiles files;
  const HouseRulesShelf shelf(files, kResources);
  std::set<Text> languages;
  for (const Text& id : shelf.Ids()) {
    std::string problem;
    const std::optional<HouseRules> rules = shelf.Read(id, problem);
    ASSERT_TRUE(rules) << problem;
    EXPECT_FALSE(rules->source.empty()) << ToUtf8(id);
    EXPECT_TRUE(rules->date.starts_with(u"20")) << ToUtf8(id);
    EXPECT_TRUE(rules->charactersALine == 0 || rules->charactersALine >= 26) << ToUtf8(id);
    languages.insert(rules->language);
  }
  for (const Text language : {u"", u"ar", u"de", u"en", u"es", u"fr", u"ja"}) {
    EXPECT_TRUE(languages.contains(language)) << ToUtf8(language);
  }
}

TEST(HouseRulesShelf, TakesNamesInAnyCaseAndTheLinesEndsOfTheLanguage) {
  const PosixFiles files;
  std::string problem;
  const auto rules = HouseRulesShelf(files, kResources).Read(u"Streaming-EN", problem);
  ASSERT_TRUE(rules) << problem;
  EXPECT_EQ(rules->id, u"streaming-en");
  EXPECT_EQ(rules->charactersASecond, 20);
  EXPECT_TRUE(rules->breaks.lineEnds.contains(u"the"));
}

TEST(HouseRulesShelf, TellsOfANameThatIsNone) {
  const PosixFiles files;
  std::string problem;
  EXPECT_FALSE(HouseRulesShelf(files, kResources).Read(u"../formats", problem));
  EXPECT_EQ(problem, "there are no house rules '../formats'");
}

}  // namespace
}  // namespace cuewright

#include "tools/cleaning.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "core/app_options.h"
#include "tests/support/tag_marks.h"

namespace cuewright {
namespace {

std::string ContentOf(const std::string& name) {
  std::ifstream file(CUEWRIGHT_SOURCE_DIR "/resources/cleaning/" + name + ".txt");
  return {std::istreambuf_iterator<char>(file), {}};
}

struct CleaningTest : ::testing::Test {
  /// The data of a language as they come with the program.
  void Speak(const std::string& language) {
    data = {};
    for (const std::string& name : {std::string("common"), language}) {
      std::string problem;
      ASSERT_TRUE(AddCleaningData(FromUtf8(ContentOf(name)), data, problem)) << name << " " << problem;
    }
  }

  /// What one kind makes of the captions with these texts: "text" or "-" where it goes, "=" where nothing changes.
  std::string Clean(CleaningKind kind, std::vector<Text> texts) {
    std::vector<Caption> rows;
    for (Text& text : texts) rows.push_back({1, 2, std::move(text)});
    list.SetMarks(marks);
    list.Replace(1, list.Count(), std::move(rows));
    CleaningChoice choice{};
    choice[static_cast<std::size_t>(kind)] = true;
    std::string told;
    const std::vector<Proposal> proposals = Cleaner(data, choice).Propose(list, AllRows(list));
    for (Row row = 1; row < list.Rows(); ++row) {
      if (row > 1) told += " / ";
      const auto at = std::ranges::find(proposals, row, &Proposal::row);
      told += at == proposals.end() ? "=" : at->after ? ToUtf8(at->after->text) : "-";
    }
    return told;
  }

  CleaningData data;
  testing::TagMarks marks;
  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

TEST_F(CleaningTest, TakesDoubledBlanksOut) {
  Speak("en");
  EXPECT_EQ(
      Clean(CleaningKind::Blanks, {u"two  blanks", u" at the |ends ", u"Well , no", u"fine ...", u"What ?", u"ok"}),
      "two blanks / at the|ends / Well, no / = / What? / =");
  EXPECT_EQ(Clean(CleaningKind::Blanks, {u"<i>two  </i>blanks"}), "<i>two </i>blanks");
}

TEST_F(CleaningTest, SetsTheBlanksOfFrenchPunctuation) {
  Speak("fr");
  EXPECT_EQ(Clean(CleaningKind::Blanks, {u"Quoi ?", u"Quoi\u202f?", u"Non!"}), "Quoi\u202f? / = / Non\u202f!");
}

TEST_F(CleaningTest, WritesDashesAndQuotesOfTheLanguage) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Dashes, {u"I thought--", u"this - that", u"- Yes.", u"well-known"}),
            "I thought\u2014 / this \u2013 that / = / =");
  EXPECT_EQ(
      Clean(CleaningKind::Quotes, {u"He said \"no\".", u"\u201efine\u201d", u"an \"open one", u"\u201cgood\u201d"}),
      "He said \u201cno\u201d. / \u201cfine\u201d / = / =");
  Speak("de");
  EXPECT_EQ(Clean(CleaningKind::Quotes, {u"Er sagte \"nein\"."}), "Er sagte \u201enein\u201c.");
  Speak("fr");
  EXPECT_EQ(Clean(CleaningKind::Quotes, {u"Il dit \"non\".", u"\u00ab oui \u00bb", u"\u00ab\u202foui\u202f\u00bb"}),
            "Il dit \u00ab\u202fnon\u202f\u00bb. / \u00ab\u202foui\u202f\u00bb / =");
}

TEST_F(CleaningTest, TakesDescriptionsOut) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Descriptions,
                  {u"[door slams]", u"(sighs) Well...", u"INSPECTOR: Nobody leaves.", u"- [laughs]|- No.",
                   u"\u266a\u266a", u"<i>[thunder]</i>", u"At 10:30 we left.", u"MAN 2: Hey!|WOMAN: Yes?"}),
            "- / Well... / Nobody leaves. / No. / - / - / = / Hey!|Yes?");
}

TEST_F(CleaningTest, TakesTagsOut) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Tags, {u"<i>one</i> two|{\\an8}three", u"1 < 2", u"plain"}), "one two|three / = / =");
}

TEST_F(CleaningTest, SetsCapitals) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Capitals, {u"nobody leaves. not one", u"and then", u"so i said... then i'm off",
                                           u"wait. <i>what</i>?", u"it was monday"}),
            "Nobody leaves. Not one / = / so I said... then I'm off / wait. <i>What</i>? / It was Monday");
}

TEST_F(CleaningTest, ReadsLettersRight) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Letters, {u"l'm here", u"heIlo", u"lt's fine", u"go0d", u"l think so", u"All is well",
                                          u"in 1O days", u"you'II <i>teII</i> me"}),
            "I'm here / hello / It's fine / good / I think so / = / in 10 days / you'll <i>tell</i> me");
  Speak("de");
  EXPECT_EQ(Clean(CleaningKind::Letters, {u"lch wiII", u"Ich will"}), "Ich will / =");
  Speak("es");
  EXPECT_EQ(Clean(CleaningKind::Letters, {u"Ios dos"}), "los dos");
}

TEST_F(CleaningTest, DropsEmptyCaptions) {
  Speak("en");
  EXPECT_EQ(Clean(CleaningKind::Empty, {u"a", u"", u" | ", u"<i></i>"}), "= / - / - / -");
}

TEST_F(CleaningTest, LeavesTextsInOrderAlone) {
  for (const char* language : {"en", "es", "de", "fr", "ar", "ja"}) {
    Speak(language);
    for (const CleaningKind kind : {CleaningKind::Blanks, CleaningKind::Dashes, CleaningKind::Quotes,
                                    CleaningKind::Letters, CleaningKind::Empty}) {
      EXPECT_EQ(Clean(kind, {u"Good evening, Inspector.", u"It's 10:30. III. HELLO 007"}), "= / =") << language;
    }
  }
}

TEST_F(CleaningTest, TellsTheLineThatCantBeUnderstood) {
  std::string problem;
  EXPECT_FALSE(AddCleaningData(u"; remark\n\nblanks\t(\tx\n", data, problem));
  EXPECT_EQ(problem, "line 3: the pattern can't be understood");
  EXPECT_FALSE(AddCleaningData(u"blanks\n", data, problem));
  EXPECT_EQ(problem, "line 1: a pattern, a replacement and characters were expected");
  EXPECT_FALSE(AddCleaningData(u"other\tx\n", data, problem));
  EXPECT_EQ(problem, "line 1: there is no 'other'");
  EXPECT_FALSE(AddCleaningData(u"word\tx\n", data, problem));
  EXPECT_FALSE(AddCleaningData(u"quotes\tx\n", data, problem));
}

}  // namespace
}  // namespace cuewright

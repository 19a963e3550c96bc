#include "forms/proposals_dialog.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct ProposalsInTheWindow : ProgramFixture {
  void Open(const std::string& texts) {
    program->documentFiles.OpenSubtitleFile(folder.Write("p.srt", texts));
    Dialog().Opened.Connect([this] {
      if (during) during();
      Dialog().Close();
    });
  }
  ProposalsDialog& Dialog() { return program->proposals.dialog; }
  std::string Cell(std::size_t row, std::size_t column) {
    return ToUtf8(Dialog().lstProposals.Rows().at(row).cells.at(column));
  }

  std::function<void()> during;
  const std::string two =
      "1\n00:00:01,000 --> 00:00:04,000\nNobody leaves this house until the\nstorm has passed.\n\n"
      "2\n00:00:05,000 --> 00:00:08,000\n<i>If the storm doesn't pass, we</i>\nall stay here tonight.\n\n"
      "3\n00:00:09,000 --> 00:00:10,000\nYes.\n\n";
};

TEST_F(ProposalsInTheWindow, BreaksLinesAnewAndTakesThemBackInOneStep) {
  Open(two);
  during = [this] {
    EXPECT_EQ(Dialog().Title(), u"Break lines anew");
    EXPECT_FALSE(Dialog().chkKind[0].Visible());
    ASSERT_EQ(Dialog().lstProposals.Rows().size(), 2u);
    EXPECT_EQ(Cell(0, 1), "Nobody leaves this house until the\nstorm has passed.");
    EXPECT_EQ(Cell(0, 2), "Nobody leaves this house\nuntil the storm has passed.");
    Dialog().cmdApply.Click();
  };
  Window().mnuBreakLines.Click();
  EXPECT_EQ(List().At(1).text, u"Nobody leaves this house|until the storm has passed.");
  EXPECT_EQ(List().At(2).text, u"<i>If the storm doesn't pass,|we</i> all stay here tonight.");
  EXPECT_EQ(Window().txtSub.GetText(), u"Nobody leaves this house\r\nuntil the storm has passed.");
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  Window().mnuUndo.Click();
  EXPECT_EQ(List().At(1).text, u"Nobody leaves this house until the|storm has passed.");
}

TEST_F(ProposalsInTheWindow, ASaveKeepsTheBytesOfAllOtherCaptions) {
  const std::string head = "7\r\n00:00:01,000  -->  00:00:04,000\r\n";
  const std::string rest = "\r\n\r\n\r\n9\r\n00:00:05,000 --> 00:00:08,000 X1:5\r\n{\\an8}<I>Yes.</I>\r\n";
  Open(head + "Nobody leaves this house until the\r\nstorm has passed." + rest);
  during = [this] { Dialog().cmdApply.Click(); };
  Window().mnuBreakLines.Click();
  Window().mnuSave.Click();
  EXPECT_EQ(files.Read(folder / "p.srt", 1 << 20),
            head + "Nobody leaves this house\r\nuntil the storm has passed." + rest);
}

TEST_F(ProposalsInTheWindow, ProposesForTheSelectedCaptionAlone) {
  Open(two);
  List().SetRow(2, false);
  during = [this] {
    Dialog().cmbScope.Choose(1);
    ASSERT_EQ(Dialog().lstProposals.Rows().size(), 1u);
    EXPECT_EQ(Cell(0, 0), "2");
    Dialog().cmdApply.Click();
  };
  Window().mnuBreakLines.Click();
  EXPECT_EQ(List().At(1).text, u"Nobody leaves this house until the|storm has passed.");
  EXPECT_EQ(List().At(2).text, u"<i>If the storm doesn't pass,|we</i> all stay here tonight.");
}

TEST_F(ProposalsInTheWindow, BreaksByTheLanguageOfTheTexts) {
  Open("1\n00:00:01,000 --> 00:00:04,000\nNobody leaves this house until the storm has passed, I said.\n\n");
  program->options.language = u"ENGLISH";
  during = [this] {
    EXPECT_EQ(Dialog().cmbLanguage.Items()[static_cast<std::size_t>(Dialog().cmbLanguage.Index())], u"English");
    EXPECT_EQ(Cell(0, 2), "Nobody leaves this house\nuntil the storm has passed, I said.");
    Dialog().cmbLanguage.Choose(0);
    EXPECT_EQ(Cell(0, 2), "Nobody leaves this house until\nthe storm has passed, I said.");
  };
  Window().mnuBreakLines.Click();
}

TEST_F(ProposalsInTheWindow, ChangesNothingOnCancel) {
  Open(two);
  during = [this] { Dialog().cmdCancel.Click(); };
  Window().mnuBreakLines.Click();
  EXPECT_EQ(program->history.UndoSteps(), 0u);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(ProposalsInTheWindow, TicksAllOrNone) {
  Open(two);
  during = [this] {
    Dialog().cmdNone.Click();
    EXPECT_FALSE(Dialog().cmdApply.Enabled());
    EXPECT_EQ(Dialog().lblTotal.GetText(), u"0 of 2 changes");
    Dialog().lstProposals.Tick(1);
    EXPECT_TRUE(Dialog().cmdApply.Enabled());
    Dialog().cmdAll.Click();
    EXPECT_EQ(Dialog().lblTotal.GetText(), u"2 of 2 changes");
  };
  Window().mnuBreakLines.Click();
}

TEST_F(ProposalsInTheWindow, CleansWhatIsChosenInTheLanguageThatIsChosen) {
  Open(
      "1\n00:00:01,000 --> 00:00:02,000\n[door slams]\n\n"
      "2\n00:00:03,000 --> 00:00:04,000\nl'm  here, <i>aII</i> \"fine\"\n\n"
      "3\n00:00:05,000 --> 00:00:06,000\nYes.\n\n");
  during = [this] {
    EXPECT_EQ(Dialog().Title(), u"Clean texts");
    EXPECT_EQ(Dialog().chkKind[3].GetText(), u"Descriptions for the hard of hearing");
    EXPECT_FALSE(Dialog().chkKind[3].Value()) << "what takes something away is asked for";
    const auto& languages = Dialog().cmbLanguage.Items();
    EXPECT_EQ(languages.front(), u"Any language");
    const auto english = std::ranges::find(languages, Text(u"English"));
    ASSERT_NE(english, languages.end());
    Dialog().cmbLanguage.Choose(static_cast<int>(english - languages.begin()));
    ASSERT_EQ(Dialog().lstProposals.Rows().size(), 1u);
    EXPECT_EQ(Cell(0, 2), "I'm here, all \u201cfine\u201d");
    Dialog().chkKind[3].Click();
    ASSERT_EQ(Dialog().lstProposals.Rows().size(), 2u);
    EXPECT_EQ(Cell(0, 2), "(the caption goes)");
    Dialog().cmdApply.Click();
  };
  Window().mnuClean.Click();
  ASSERT_EQ(List().Rows(), 3);
  EXPECT_EQ(List().At(1).text, u"I'm here, <i>all</i> \u201cfine\u201d");
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  EXPECT_EQ(program->history.UndoKind(), EditKind::Cleaning);
  // What was chosen last is chosen again.
  bool descriptions = false;
  during = [&] { descriptions = Dialog().chkKind[3].Value(); };
  Window().mnuClean.Click();
  EXPECT_TRUE(descriptions);
}

struct ReplaceByPattern : ProposalsInTheWindow {
  ReplaceByPattern() {
    Open(
        "1\n00:00:01,000 --> 00:00:02,000\nfive cats\n\n2\n00:00:03,000 --> 00:00:04,000\n<i>six</i> dogs\n\n"
        "3\n00:00:05,000 --> 00:00:06,000\nseven cats, catlike\n\n");
    Window().mnuReplace.Click();
    Replace().chkRegex.SetValue(true);
  }
  ReplaceWindow& Replace() { return program->tools.replaceWindow; }
  void Type(TextView find, TextView with) {
    Replace().txtFind.SetText(find);
    Replace().txtFind.NoteEdited();
    Replace().txtReplace.SetText(with);
  }
};

TEST_F(ReplaceByPattern, FindsAndReplacesWithGroups) {
  Type(u"(\\w+) (cats|dogs)", u"$2: $1");
  Replace().cmdFind.Click();
  EXPECT_EQ(List().Selected(), 2);
  Replace().cmdReplace.Click();
  EXPECT_EQ(List().At(2).text, u"<i>dog</i>s: six");
  List().SetRow(1, false);
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(Replace().lblInfo.GetText(), u"Search finished with 2 replacement(s) made.");
  EXPECT_EQ(List().At(1).text, u"cats: five");
  EXPECT_EQ(List().At(3).text, u"cats: seven, catlike");
}

TEST_F(ReplaceByPattern, ListsTheHitsOfWholeWordsAndReplacesWhatIsTicked) {
  Replace().chkRegex.SetValue(false);
  Replace().chkEntire.SetValue(true);
  Type(u"cats", u"birds");
  during = [this] {
    ASSERT_EQ(Dialog().lstProposals.Rows().size(), 2u);
    EXPECT_EQ(Cell(1, 1), "seven cats, catlike");
    EXPECT_EQ(Cell(1, 2), "seven birds, catlike");
    Dialog().lstProposals.Tick(0);
    Dialog().cmdApply.Click();
  };
  Replace().cmdList.Click();
  EXPECT_EQ(List().At(1).text, u"five cats");
  EXPECT_EQ(List().At(3).text, u"seven birds, catlike");
  EXPECT_EQ(program->history.UndoKind(), EditKind::ReplaceAll);
  EXPECT_EQ(program->history.UndoSteps(), 1u);
}

TEST_F(ReplaceByPattern, StaysWithinTheSelectionWhereAsked) {
  List().SetRow(3, false);
  Replace().chkSelected.SetValue(true);
  Type(u"c(.)t", u"h$1t");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(List().At(1).text, u"five cats");
  EXPECT_EQ(List().At(3).text, u"seven hats, hatlike");
}

TEST_F(ReplaceByPattern, TellsWhatIsWrongWithAPattern) {
  Type(u"(cats", u"");
  for (Button* button : {&Replace().cmdFind, &Replace().cmdReplace, &Replace().cmdReplaceAll, &Replace().cmdList}) {
    Replace().lblInfo.SetText({});
    button->Click();
    EXPECT_EQ(Replace().lblInfo.GetText(), u"The regular expression can't be understood.") << button->Name();
  }
  Type(u"cats", u"$4");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(Replace().lblInfo.GetText(), u"The replacement names a group that the expression lacks.");
  EXPECT_EQ(program->history.UndoSteps(), 0u);
}

TEST_F(ReplaceByPattern, StopsAPatternThatHasNoEnd) {
  List().Replace(1, 1, {{1, 2, Text(40, u'a') + u"b"}});
  Type(u"(a+)+$", u"x");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(Replace().lblInfo.GetText(), u"The expression takes too long and was stopped.");
  EXPECT_EQ(List().At(1).text, Text(40, u'a') + u"b");
}

}  // namespace
}  // namespace cuewright

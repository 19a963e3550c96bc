#include "forms/check_window.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct CheckInTheWindow : ProgramFixture {
  CheckInTheWindow() {
    Text path = folder.Write("faulty.srt",
                             "1\n00:00:01,000 --> 00:00:01,400\nGood evening.\n\n"
                             "2\n00:00:04,500 --> 00:00:08,000\nNobody leaves this house until the storm has passed,\n"
                             "I said.\n\n"
                             "3\n00:00:08,010 --> 00:00:10,000\nYes.\n\n");
    program->documentFiles.OpenSubtitleFile(path);
  }
  CheckWindow& Check() { return program->checkWindow; }

  /// The list as text: "row: rule, value, limit" a line.
  std::vector<std::string> Listed() {
    std::vector<std::string> lines;
    for (const SheetRow& row : Check().lstFindings.Rows()) {
      lines.push_back(ToUtf8(row.cells[0] + u": " + row.cells[1] + u", " + row.cells[2] + u", " + row.cells[3]));
    }
    return lines;
  }

  using Lines = std::vector<std::string>;
  const Lines all = {"1: Shown too briefly, 400 ms, 1000 ms", "1: Too many characters a second, 32.5, 20",
                     "2: Line too long, 52, 42", "3: Too near to the caption before, 10 ms, 83 ms"};
};

TEST_F(CheckInTheWindow, ListsWhatThePlainRulesFind) {
  Window().mnuCheck.Click();
  EXPECT_TRUE(Check().Loaded());
  EXPECT_EQ(Check().Title(), u"Check subtitles");
  EXPECT_EQ(Listed(), all);
  EXPECT_EQ(Check().lblTotal.GetText(), u"4 findings");
  EXPECT_EQ(Check().cmbProfile.Items()[static_cast<std::size_t>(Check().cmbProfile.Index())], u"Plain");
}

TEST_F(CheckInTheWindow, GoesToACaptionByEnterAndByTheButton) {
  Window().mnuCheck.Click();
  Check().lstFindings.Choose(2);
  EXPECT_EQ(List().Selected(), 1) << "looking moves nothing";
  Check().lstFindings.Activate();
  EXPECT_EQ(List().Selected(), 2);
  Check().lstFindings.Choose(3);
  Check().cmdGoTo.Click();
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(CheckInTheWindow, CountsTheShotsOfTheFilmOnceTheyAreKnown) {
  program->documentFiles.OpenSubtitleFile(folder.Write("a.srt",
                                                       "1\n00:00:10,000 --> 00:00:12,000\nGood evening.\n\n"
                                                       "2\n00:00:20,000 --> 00:00:21,900\nNobody leaves.\n\n"));
  program->folders.AppFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/");
  ASSERT_TRUE(program->check.Choose(u"streaming-en"));
  Window().mnuCheck.Click();
  EXPECT_EQ(Listed(), Lines());
  program->check.SetShots({9800, 22000});
  EXPECT_EQ(Listed(), Lines{"1: Starts near a shot, not on it, 5 frames, 0 frames"});
  EXPECT_EQ(program->check.findings.Of(1).size(), 1u) << "the sign in the list and the next finding know them, too";
  Check().lstFindings.Choose(0);
  Check().cmdFix.Click();
  EXPECT_EQ(List().At(1).start, 9792) << "the frame at which the shot begins, at the rate of the house";
  // Other rules leave them known.
  ASSERT_TRUE(program->check.Choose(u"plain"));
  ASSERT_TRUE(program->check.Choose(u"streaming-en"));
  EXPECT_EQ(program->check.Shots().size(), 2u);
  List().SetCaptionStart(1, 10000, false);
  EXPECT_EQ(Listed().size(), 1u);
  program->check.SetShots({});
  EXPECT_EQ(Listed(), Lines());
}

TEST_F(CheckInTheWindow, ShowsAFixAndMakesItAsOneStep) {
  Window().mnuCheck.Click();
  Check().lstFindings.Choose(3);
  EXPECT_EQ(Check().lblFix.GetText(), u"Proposed change of caption 2:");
  EXPECT_EQ(Check().lblNow.GetText(), u"00:00:04,500 \u2013 00:00:08,000");
  EXPECT_EQ(Check().lblThen.GetText(), u"00:00:04,500 \u2013 00:00:07,927");
  Check().cmdFix.Click();
  EXPECT_EQ(List().At(2).end, 7927);
  EXPECT_EQ(Listed(), Lines(all.begin(), all.end() - 1));
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_EQ(Window().mnuUndo.GetText(), u"Undo: Fix of the check");
  Window().mnuUndo.Click();
  EXPECT_EQ(Listed(), all);
}

TEST_F(CheckInTheWindow, OffersAllFixesAndLeavesOutWhatIsUnticked) {
  ProposalsDialog& dialog = program->proposals.dialog;
  Window().mnuCheck.Click();
  std::size_t offered = 0;
  dialog.Opened.Connect([&] {
    offered = dialog.lstProposals.Rows().size();
    EXPECT_EQ(dialog.lblTotal.GetText(), u"2 of 2 changes");
    dialog.lstProposals.Tick(0);
    EXPECT_EQ(dialog.lblTotal.GetText(), u"1 of 2 changes");
    dialog.cmdApply.Click();
  });
  Check().cmdFixAll.Click();
  EXPECT_EQ(offered, 2u);
  EXPECT_EQ(List().At(1).end, 1400);
  EXPECT_EQ(List().At(2).text, u"Nobody leaves this house until|the storm has passed, I said.");
  EXPECT_EQ(program->history.UndoSteps(), 1u);
}

TEST_F(CheckInTheWindow, KeepsTheChosenRules) {
  Window().mnuCheck.Click();
  const auto& items = Check().cmbProfile.Items();
  const auto talks = std::ranges::find(items, Text(u"Conference talks"));
  ASSERT_NE(talks, items.end());
  Check().cmbProfile.Choose(static_cast<int>(talks - items.begin()));
  ASSERT_EQ(Listed().size(), 4u);
  EXPECT_EQ(Listed()[3], "2: Lines of too different lengths, 13.5 %, 50 %");
  EXPECT_EQ(Check().lblSource.GetText(), u"Source: TED Translators guidelines (2025)");
  Restart({});
  EXPECT_EQ(program->options.checkProfile, u"talks");
  EXPECT_EQ(program->check.findings.Rules().id, u"talks");
}

TEST_F(CheckInTheWindow, TakesThePlainRulesWhereTheStoredOnesAreGone) {
  program->store.SaveSetting(kMainSection, u"CheckProfile", u"nobody");
  Restart({});
  EXPECT_EQ(program->check.findings.Rules().id, u"plain");
}

TEST_F(CheckInTheWindow, FollowsEditsAndOtherDocuments) {
  Window().mnuCheck.Click();
  {
    const EditScope scope(List(), EditKind::SetTimes);
    List().SetCaptionEnd(1, 2500);
  }
  EXPECT_EQ(Listed(), Lines(all.begin() + 2, all.end()));
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Check().Show();
  EXPECT_EQ(Listed().size(), 5u);
}

TEST_F(CheckInTheWindow, TheNextFindingIsGoneToAndTold) {
  Window().mnuNextFinding.Click();
  EXPECT_EQ(List().Selected(), 2);
  EXPECT_EQ(Window().lblNotice.GetText(), u"Caption 2: Line too long: 52 (limit 42)");
  Window().mnuNextFinding.Click();
  Window().mnuNextFinding.Click();
  EXPECT_EQ(List().Selected(), 1);
}

TEST_F(CheckInTheWindow, TheClassicMannerHasNoneOfIt) {
  program->options.manner.SetClassic(true);
  program->LoadMainWindow(1280, 800);
  for (const MenuItem* item : {&Window().mnuCheck, &Window().mnuNextFinding, &Window().mnuBreakLines,
                               &Window().mnuClean, &Window().mnuLine4a}) {
    EXPECT_FALSE(item->Visible()) << item->Name();
  }
  Window().mnuReplace.Click();
  EXPECT_FALSE(program->tools.replaceWindow.chkRegex.Visible());
  EXPECT_FALSE(program->tools.replaceWindow.cmdList.Visible());
}

}  // namespace
}  // namespace cuewright

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct RulesInTheWindow : ProgramFixture {
  RulesInTheWindow() { program->options.manner.SetClassic(true); }
  /// Two captions of which the second begins 500 ms before the first has ended.
  Text Colliding() {
    return folder.Write("colliding.srt",
                        "1\r\n00:00:01,000 --> 00:00:03,000\r\nfirst one|here\r\n\r\n"
                        "2\r\n00:00:02,500 --> 00:00:04,500\r\nsecond one\r\n\r\n");
  }
  ReportWindow& Report() { return program->reportWindow; }
};

TEST_F(RulesInTheWindow, RunOnLoadAndOpenTheReportThoughQuiet) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  EXPECT_EQ(List().GetCaptionStart(2), 3000);
  EXPECT_TRUE(Report().Loaded());
  EXPECT_TRUE(program->openForms.IsFormLoaded("frmReport"));
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(RulesInTheWindow, ACleanFileIsLoadedWithoutAWordAndTheMenuSaysSo) {
  program->documentFiles.OpenSubtitleFile(SubRip("clean.srt", 3));
  EXPECT_FALSE(Report().Loaded());
  EXPECT_TRUE(boxes.shown.empty());
  Window().mnuRules.Click();
  EXPECT_EQ(LastBox(), "Checksum complete. All lines comply with the currently specified correction rules.");
  EXPECT_EQ(boxes.shown.back().title, u"Apply current rules");
  EXPECT_FALSE(Report().Loaded());
}

TEST_F(RulesInTheWindow, WaitForTheMenuWhenTheyApplyDuringCaptioningOnly) {
  program->options.applyWhen = 1;
  program->documentFiles.OpenSubtitleFile(Colliding());
  EXPECT_EQ(List().GetCaptionStart(2), 2500);
  EXPECT_EQ(program->ruleReport.RuleEntryCount(), 0);
  Window().mnuRules.Click();
  EXPECT_EQ(List().GetCaptionStart(2), 3000);
  EXPECT_TRUE(Report().Loaded());
}

TEST_F(RulesInTheWindow, LeaveThePreviewModeForPressAndHold) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Play(folder.Write("film.mkv", "x"));
  Window().optPreview.Click();
  Window().mnuRules.Click();
  EXPECT_TRUE(Window().optPress.Value());
  Window().optManual.Click();
  Window().mnuRules.Click();
  EXPECT_TRUE(Window().optManual.Value());
}

TEST_F(RulesInTheWindow, PauseAFilmThatPlaysAndResumeIt) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 30));
  Play(folder.Write("film.mkv", "x"));
  std::vector<int> during;
  events.onYield = [&] { during.push_back(player.state); };
  Window().mnuRules.Click();
  EXPECT_EQ(during, std::vector<int>{kPlayerPaused});
  EXPECT_EQ(player.state, kPlayerPlaying);
  player.Become(kPlayerPaused);
  Window().mnuRules.Click();
  EXPECT_EQ(player.state, kPlayerPaused);
}

TEST_F(RulesInTheWindow, TellTheirProgressEveryTwentyFiveRowsAndThenTheFileAgain) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 60));
  std::vector<std::string> shown;
  const Connection watch =
      Window().lblTextFile.Changed.ConnectScoped([&] { shown.push_back(ToUtf8(Window().lblTextFile.GetText())); });
  Window().mnuRules.Click();
  EXPECT_EQ(shown, (std::vector<std::string>{"Checking integrity from caption 25, please wait.",
                                             "Checking integrity from caption 50, please wait.",
                                             ToUtf8(program->strings[Message::CurrentSubtitleFile]) + "a.srt"}));
  EXPECT_FALSE(desktop.busy);
}

TEST_F(RulesInTheWindow, ShowTheCorrectedRowInThePane) {
  program->options.applyWhen = 1;
  program->documentFiles.OpenSubtitleFile(folder.Write("three.srt",
                                                       "1\r\n00:00:01,000 --> 00:00:03,000\r\naa bb\r\ncc\r\ndd\r\n\r\n"
                                                       "2\r\n00:00:05,000 --> 00:00:06,000\r\nsecond\r\n\r\n"));
  EXPECT_EQ(Window().txtSub.GetText(), u"aa bb\r\ncc\r\ndd");
  Window().mnuRules.Click();
  EXPECT_EQ(Window().txtSub.GetText(), u"aa bb\r\ncc dd");
}

TEST_F(RulesInTheWindow, AreForDocumentsOnly) {
  EXPECT_FALSE(Window().mnuRules.Enabled());
  EXPECT_TRUE(Window().mnuReport.Enabled());
  program->documentFiles.New();
  EXPECT_TRUE(Window().mnuRules.Enabled());
}

struct RulesThatLook : RulesInTheWindow {
  RulesThatLook() { program->options.manner.SetClassic(false); }
  std::string Strip() { return Window().lblNotice.Visible() ? ToUtf8(Window().lblNotice.GetText()) : ""; }
  /// A collision, a text of three lines and a line to delete.
  Text ThreeFindings() {
    return folder.Write("three.srt",
                        "1\r\n00:00:01,000 --> 00:00:03,000\r\nfirst one here\r\n\r\n"
                        "2\r\n00:00:02,500 --> 00:00:04,500\r\naa bb\r\ncc\r\ndd\r\n\r\n"
                        "3\r\n00:00:06,000 --> 00:00:08,000\r\nwww.example.com\r\n\r\n"
                        "4\r\n00:00:09,000 --> 00:00:11,000\r\nthe last one\r\n\r\n");
  }
  std::vector<Caption> All() {
    std::vector<Caption> all;
    for (Row row = 1; row < List().Rows(); ++row) all.push_back(List().At(row));
    return all;
  }
};

TEST_F(RulesThatLook, ChangeNothingOnLoadAndTellHowMuchTheyFound) {
  program->documentFiles.OpenSubtitleFile(ThreeFindings());
  EXPECT_EQ(List().Rows(), 5);
  EXPECT_EQ(List().GetCaptionStart(2), 2500);
  EXPECT_EQ(List().GetCaptionText(2), u"aa bb|cc|dd");
  EXPECT_FALSE(program->document.DocModified);
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  EXPECT_FALSE(Report().Loaded());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(Strip(), "Read as SubRip, UTF-8 · 3 findings");
  EXPECT_TRUE(Window().cmdShowFindings.Visible());
  EXPECT_EQ(Window().cmdShowFindings.GetText(), u"Show");
  EXPECT_TRUE(Window().cmdApplyFindings.Visible());
  EXPECT_FALSE(Window().cmdUndoRules.Visible());
}

TEST_F(RulesThatLook, TellOneFindingAsOneAndNothingOfACleanFile) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  EXPECT_EQ(Strip(), "Read as SubRip, UTF-8 · 1 finding");
  program->documentFiles.OpenSubtitleFile(SubRip("clean.srt", 3));
  EXPECT_EQ(Strip(), "Read as SubRip, UTF-8");
  EXPECT_FALSE(Window().cmdShowFindings.Visible());
  program->options.applyWhen = 1;
  program->documentFiles.OpenSubtitleFile(Colliding());
  EXPECT_EQ(Strip(), "Read as SubRip, UTF-8");
}

TEST_F(RulesThatLook, ShowWhatWouldChange) {
  program->documentFiles.OpenSubtitleFile(ThreeFindings());
  Window().cmdShowFindings.Click();
  ASSERT_TRUE(Report().Loaded());
  Report().OnActivated();
  EXPECT_TRUE(
      Report().lblTop.GetText().starts_with(u"By the current correction rules, the following would be changed"));
  EXPECT_EQ(ToUtf8(Report().txtReport.GetText()),
            "Total lines that would be split: 1\r\nTotal caption collisions: 1\r\n"
            "Total caption durations outside range: 0\r\nTotal lines that would be removed: 1\r\n\r\n"
            "CAPTION EXCEEDS 2 LINES [2] would be split\r\n"
            "LINE COLLISION [2] appear time would be increased 500 ms\r\n"
            "CREDIT/LINK FOUND [3] line would be deleted\r\n");
  EXPECT_EQ(List().Rows(), 5);
}

TEST_F(RulesThatLook, ApplyAsOneStepAndOfferItBack) {
  program->documentFiles.OpenSubtitleFile(ThreeFindings());
  const std::vector<Caption> before = All();
  Window().cmdApplyFindings.Click();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(List().GetCaptionStart(2), 3000);
  EXPECT_EQ(Strip(), "The rules changed 2 captions");
  EXPECT_FALSE(Window().cmdApplyFindings.Visible());
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  Report().OnActivated();
  EXPECT_NE(ToUtf8(Report().txtReport.GetText()).find("[2] auto-corrected"), std::string::npos);
  Window().cmdUndoRules.Click();
  EXPECT_EQ(All(), before);
  EXPECT_EQ(Strip(), "");
}

TEST_F(RulesThatLook, ChangeTheFileWhereTheUserLetsThem) {
  program->options.changeOnLoad = true;
  program->documentFiles.OpenSubtitleFile(ThreeFindings());
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(Strip(), "The rules changed 2 captions");
  EXPECT_TRUE(Window().cmdUndoRules.Visible());
  // The strip takes back the rules' own step, and nothing that came behind it.
  Window().mnuRemove.Click();
  EXPECT_FALSE(Window().cmdUndoRules.Visible());
  program->documentFiles.OpenSubtitleFile(SubRip("clean.srt", 3));
  EXPECT_EQ(Strip(), "Read as SubRip, UTF-8");
}

TEST_F(RulesThatLook, AreSilentAboutAnAppliedPassInTheClassicManner) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(ThreeFindings());
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(Strip(), "Read as SubRip, windows-1252");
}

using TheReport = RulesInTheWindow;

TEST_F(TheReport, KeepsTheWordsOfItsLanguage) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  Report().OnActivated();
  const Text before = Report().txtReport.GetText();
  program->ChangeLanguage(1);
  EXPECT_EQ(Report().txtReport.GetText(), before);
  EXPECT_EQ(Report().lblTotal.GetText(), Fill(program->strings[Message::TotalErrors], u"1"));
}

TEST_F(TheReport, IsEmptiedByEveryChangeOfTheDocument) {
  const auto load = [&] {
    program->documentFiles.OpenSubtitleFile(Colliding());
    EXPECT_EQ(program->ruleReport.RuleEntryCount(), 1);
  };
  load();
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.New();
  EXPECT_EQ(program->ruleReport.RuleEntryCount(), 0);
  load();
  program->session.CloseDocuments();
  EXPECT_EQ(program->ruleReport.RuleEntryCount(), 0);
  load();
  program->document.VideoPath = u"/film.mkv";
  dialogs.paths.push_back(SubRip("more.srt", 2));
  program->documentFiles.Append();
  EXPECT_EQ(program->ruleReport.RuleEntryCount(), 0);
}

TEST_F(TheReport, WithoutAFileSaysSo) {
  Window().mnuReport.Click();
  Report().OnActivated();
  EXPECT_EQ(Report().Title(), u"Subtitle File Report");
  EXPECT_EQ(Report().lblTop.GetText(), u"No subtitle file loaded.");
}

TEST_F(TheReport, OfNothingGivesFourZerosAndATotalOfZero) {
  program->documentFiles.OpenSubtitleFile(SubRip("clean.srt", 3));
  Window().mnuReport.Click();
  Report().OnActivated();
  EXPECT_EQ(ToUtf8(Report().lblTop.GetText()),
            "No errors identified in the opened subtitle file, or the file has not been scanned.");
  EXPECT_EQ(ToUtf8(Report().txtReport.GetText()),
            "Total lines automatically splitted: 0\r\nTotal caption collisions: 0\r\n"
            "Total caption durations outside range: 0\r\nTotal lines removed: 0\r\n\r\n");
  EXPECT_EQ(Report().lblTotal.GetText(), u"Total errors and warnings: 0");
}

TEST_F(TheReport, IsALineAnEntryAndTheDetailsOnDemand) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  EXPECT_EQ(
      ToUtf8(Report().lblTop.GetText()),
      "Accordingly to the current correction rules, the following errors were found in the opened subtitle file.");
  EXPECT_TRUE(Report().txtReport.GetText().empty());
  Report().OnActivated();
  const std::string totals =
      "Total lines automatically splitted: 0\r\nTotal caption collisions: 1\r\n"
      "Total caption durations outside range: 0\r\nTotal lines removed: 0\r\n\r\n";
  EXPECT_EQ(ToUtf8(Report().txtReport.GetText()), totals + "LINE COLLISION [2] appear time increased 500 ms\r\n");
  EXPECT_EQ(Report().lblTotal.GetText(), u"Total errors and warnings: 1");
  Report().optDetailed.Click();
  EXPECT_EQ(ToUtf8(Report().txtReport.GetText()),
            totals +
                "Error number 2 found in caption: [2]\r\n ·Text: \"second one\"\r\n ·Error: Caption collides with "
                "previous one\r\n ·Action taken: Caption appear time increased 500 milliseconds\r\n---\r\n");
  EXPECT_TRUE(Report().optDetailed.Value());
  EXPECT_FALSE(Report().optStandard.Value());
  Report().optStandard.Click();
  EXPECT_EQ(ToUtf8(Report().txtReport.GetText()), totals + "LINE COLLISION [2] appear time increased 500 ms\r\n");
}

TEST_F(TheReport, ShowsTheSeparatorInsideAnEntryAsItIsStored) {
  program->documentFiles.OpenSubtitleFile(folder.Write(
      "three.srt",
      "1\r\n00:00:01,000 --> 00:00:03,000\r\naa\r\nbb\r\ncc\r\n\r\n2\r\n00:00:05,000 --> 00:00:06,000\r\nx\r\n\r\n"));
  Report().OnActivated();
  Report().optDetailed.Click();
  EXPECT_NE(ToUtf8(Report().txtReport.GetText()).find("·Text: \"aa|bb|cc\"\r\n"), std::string::npos);
}

TEST_F(TheReport, ShowsTheTotalsWhileItIsBuiltBehindABusyPointer) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  int painted = 0;
  const Connection watch = Report().RepaintRequested.ConnectScoped([&] {
    ++painted;
    EXPECT_EQ(Report().lblTotal.GetText(), u"Please wait...");
    EXPECT_TRUE(Report().txtReport.GetText().ends_with(u"Total lines removed: 0\r\n\r\n"));
    EXPECT_TRUE(desktop.busy);
  });
  Report().ShowDetailedReport();
  EXPECT_EQ(painted, 1);
  EXPECT_FALSE(desktop.busy);
}

TEST_F(TheReport, IsClearedByAPassThatFoundNothing) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  Report().OnActivated();
  Window().mnuRules.Click();
  EXPECT_FALSE(Report().Loaded());
  Window().mnuReport.Click();
  Report().OnActivated();
  EXPECT_TRUE(Report().txtReport.GetText().ends_with(u"Total lines removed: 0\r\n\r\n"));
}

TEST_F(TheReport, OpenedByTheMenuStartsAsTheStandardOne) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  Report().OnActivated();
  Report().optDetailed.Click();
  Window().mnuReport.Click();
  EXPECT_TRUE(Report().optStandard.Value());
  EXPECT_TRUE(Report().txtReport.GetText().empty());
  Report().OnActivated();
  EXPECT_TRUE(Report().txtReport.GetText().ends_with(u"500 ms\r\n"));
}

TEST_F(TheReport, ClosesByItsButtonAndByTheLinkToTheSettings) {
  program->documentFiles.OpenSubtitleFile(Colliding());
  Report().cmdOK.Click();
  EXPECT_FALSE(Report().Loaded());
  EXPECT_FALSE(program->openForms.IsFormLoaded("frmReport"));
  Window().mnuReport.Click();
  bool openedAfterClosing = false;
  Report().SettingsAsked.Connect([&] { openedAfterClosing = !Report().Loaded(); });
  Report().lblDefine.Click();
  EXPECT_TRUE(openedAfterClosing);
}

}  // namespace
}  // namespace cuewright

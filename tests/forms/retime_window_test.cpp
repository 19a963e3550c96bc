#include "forms/retime_window.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct RetimeInTheWindow : ProgramFixture {
  RetimeInTheWindow() {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
    List().SetRow(2, false);
  }
  RetimeWindow& Retime() { return program->retime; }
  void Type(TextBox& box, TextView text) {
    box.SetText(text);
    box.NoteEdited();
  }
  void Shift(TextView text) {
    Window().mnuRetime.Click();
    Type(Retime().txtShift, text);
  }
  std::vector<std::int32_t> Shown() {
    std::vector<std::int32_t> starts;
    for (Row row = 1; row < List().Rows(); ++row) starts.push_back(program->grid.ShownTimes(row).start.Count());
    return starts;
  }
  std::vector<std::int32_t> Starts() {
    std::vector<std::int32_t> starts;
    for (Row row = 1; row < List().Rows(); ++row) starts.push_back(List().GetCaptionStart(row).Count());
    return starts;
  }
  std::string Result() { return ToUtf8(Retime().lblResult.GetText()); }

  const std::vector<std::int32_t> own = {1100, 2100, 3100, 4100, 5100};
};

TEST_F(RetimeInTheWindow, OpensWithNothingToDo) {
  Window().mnuRetime.Click();
  EXPECT_TRUE(Retime().Loaded());
  EXPECT_EQ(Retime().Title(), u"Retime");
  EXPECT_TRUE(Retime().optShift.Value());
  EXPECT_TRUE(Retime().fraShift.Visible());
  EXPECT_FALSE(Retime().points.fraPoints.Visible());
  EXPECT_TRUE(Retime().optAll.Value());
  EXPECT_EQ(Retime().optFromHere.GetText(), u"From caption 2 on");
  EXPECT_FALSE(Retime().cmdOK.Enabled());
  EXPECT_EQ(Result(), "Type a time such as 1.5 or 0:01:02.500.");
  EXPECT_EQ(Shown(), own);
}

TEST_F(RetimeInTheWindow, ShowsWhatWouldComeAndChangesNothingUntilItIsTaken) {
  Shift(u"1.5");
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{2600, 3600, 4600, 5600, 6600}));
  EXPECT_EQ(program->grid.ShownTimes(1).end, 3400);
  EXPECT_TRUE(program->grid.ShowsOtherTimes(1));
  EXPECT_EQ(Starts(), own);
  EXPECT_EQ(Result(), "5 captions get other times; the list shows them.");
  EXPECT_TRUE(Retime().cmdOK.Enabled());
  Retime().cmdCancel.Click();
  EXPECT_FALSE(Retime().Loaded());
  EXPECT_EQ(Shown(), own);
  EXPECT_FALSE(program->grid.ShowsOtherTimes(1));
  EXPECT_EQ(program->history.UndoSteps(), 0u);
  EXPECT_FALSE(program->document.DocModified);
  EXPECT_FALSE(Window().tmrJournal.Enabled()) << "nothing is to be written";
}

TEST_F(RetimeInTheWindow, IsOneStepToTakeBack) {
  Shift(u"1.5");
  int splices = 0;
  const Connection watch = List().Spliced.ConnectScoped([&](const Splice&) { ++splices; });
  Retime().cmdOK.Click();
  EXPECT_FALSE(Retime().Loaded());
  EXPECT_EQ(Starts(), (std::vector<std::int32_t>{2600, 3600, 4600, 5600, 6600}));
  EXPECT_EQ(Shown(), Starts());
  EXPECT_EQ(splices, 1);
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  EXPECT_EQ(Window().mnuUndo.GetText(), u"Undo: Retime");
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:03,600");
  EXPECT_TRUE(program->document.DocModified);
  Window().mnuUndo.Click();
  EXPECT_EQ(Starts(), own);
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:02,100");
}

TEST_F(RetimeInTheWindow, TellsWhatWouldLieBeforeTheFilm) {
  Shift(u"2");
  Retime().cboDirection.Choose(1);
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{0, 100, 1100, 2100, 3100}));
  EXPECT_EQ(Result(),
            "5 captions get other times; the list shows them. 1 would begin before the film; what lies before 0 is at "
            "0.");
}

TEST_F(RetimeInTheWindow, CountsFramesOfTheFilm) {
  Window().mnuRetime.Click();
  EXPECT_EQ(Retime().cboUnit.Items().size(), 1u) << "no rate is known";
  Retime().Close();
  player.framesPerSecond = 23.976;
  Window().mnuRetime.Click();
  ASSERT_EQ(Retime().cboUnit.Items().size(), 2u);
  EXPECT_EQ(Retime().cboUnit.Items()[1], u"frames, 23.976 a second");
  Retime().cboUnit.Choose(1);
  EXPECT_EQ(Result(), "Type a number of frames.");
  Type(Retime().txtShift, u"24");
  EXPECT_EQ(Shown()[0], 1100 + 1001);
  Type(Retime().txtShift, u"999999999");
  EXPECT_FALSE(Retime().cmdOK.Enabled()) << "more than a time can be";
}

TEST_F(RetimeInTheWindow, MultipliesByARatio) {
  Window().mnuRetime.Click();
  Retime().optRatio.Click();
  EXPECT_TRUE(Retime().fraRatio.Visible());
  EXPECT_FALSE(Retime().fraShift.Visible());
  EXPECT_EQ(Result(), "Type a ratio such as 25/24 or 1.001.");
  Type(Retime().txtRatio, u"25/24");
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1146, 2188, 3229, 4271, 5313}));
  Type(Retime().txtRatio, u"1/1");
  EXPECT_EQ(Result(), "No caption gets other times.");
  EXPECT_FALSE(Retime().cmdOK.Enabled());
}

TEST_F(RetimeInTheWindow, OffersTheRateOfTheFilmAndTakesExactFractions) {
  player.framesPerSecond = 23.976;
  Window().mnuRetime.Click();
  Retime().optRates.Click();
  EXPECT_EQ(Retime().cboFrom.GetText(), u"25");
  EXPECT_EQ(Retime().cboTo.GetText(), u"23.976");
  EXPECT_EQ(Retime().lblFilmRate.GetText(), u"The film that is open has 23.976 pictures a second.");
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1147, 2190, 3232, 4275, 5318}));
  Retime().cboFrom.SetText(u"23,976");
  EXPECT_EQ(Result(), "No caption gets other times.");
  Retime().cboFrom.SetText(u"fast");
  EXPECT_EQ(Result(), "Type two rates from 1 to 240.");
  Retime().Close();
  player.framesPerSecond = 17.25;
  Window().mnuRetime.Click();
  EXPECT_EQ(Retime().cboTo.GetText(), u"17.25");
  EXPECT_EQ(Retime().cboTo.Items().back(), u"17.25");
}

TEST_F(RetimeInTheWindow, GoesThroughCaptionsWhoseTimesAreKnown) {
  Play(folder.Write("film.mkv", "x"));
  Window().mnuRetime.Click();
  Retime().optPoints.Click();
  EXPECT_EQ(Result(), "Select a caption and set its right time: one moves all, two or more also stretch.");
  EXPECT_EQ(Retime().points.lblPoint.GetText(), u"Caption 2 belongs at");
  EXPECT_EQ(Retime().points.txtPoint.GetText(), u"00:00:02,100");
  EXPECT_FALSE(Retime().points.cmdRemovePoint.Enabled());
  player.position = 4.1;
  Retime().points.cmdFilmPoint.Click();
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{3100, 4100, 5100, 6100, 7100}));
  EXPECT_EQ(Retime().points.lstPoints.Items(), std::vector<Text>{u"2:  00:00:02,100  \u2192  00:00:04,100"});
  List().SetRow(4, false);
  Type(Retime().points.txtPoint, u"10.1");
  KeyEvent enter{kKeyEnter};
  Retime().points.txtPoint.PressKey(enter);
  EXPECT_TRUE(enter.handled) << "or the window would take it for OK";
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1100, 4100, 7100, 10100, 13100}));
  Retime().points.lstPoints.Choose(0);
  EXPECT_EQ(List().Selected(), 2) << "a point shows its caption";
  Retime().points.cmdRemovePoint.Click();
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{7100, 8100, 9100, 10100, 11100}));
  EXPECT_FALSE(Retime().points.cmdRemovePoint.Enabled());
}

TEST_F(RetimeInTheWindow, RefusesPointsThatFitNoLine) {
  Window().mnuRetime.Click();
  Retime().optPoints.Click();
  Retime().points.cmdSetPoint.Click();
  List().SetRow(3, false);
  Type(Retime().points.txtPoint, u"2");
  Retime().points.cmdSetPoint.Click();
  EXPECT_EQ(Result(), "The captions would come in another order or at the same time.");
  EXPECT_FALSE(Retime().cmdOK.Enabled());
  EXPECT_EQ(Shown(), own);
  std::vector<CaptionTimes> same = {{2100, 2900}};
  List().Retime(3, same);
  Retime().optPoints.Click();
  EXPECT_EQ(Result(), "Two of these captions begin at the same time.");
}

TEST_F(RetimeInTheWindow, TakesWhatFollowsFromHereAlone) {
  List().SetRow(4, false);
  Shift(u"1");
  Retime().optFromHere.Click();
  EXPECT_EQ(Retime().optFromHere.GetText(), u"From caption 4 on");
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1100, 2100, 3100, 5100, 6100}));
  List().SetRow(1, false);
  EXPECT_EQ(Shown()[0], 1100) << "here stays where it was chosen";
  Retime().cmdOK.Click();
  EXPECT_EQ(Starts(), (std::vector<std::int32_t>{1100, 2100, 3100, 5100, 6100}));
}

TEST_F(RetimeInTheWindow, TakesTheSelectedCaptionAlone) {
  Shift(u"0.1");
  EXPECT_EQ(Retime().optSelected.GetText(), u"The selected one");
  List().SetRow(3, false);
  Retime().optSelected.Click();
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1100, 2100, 3200, 4100, 5100}));
  EXPECT_EQ(Result(), "1 caption gets other times; the list shows them.");
  List().DeleteCaption(1);
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{2100, 3200, 4100, 5100}));
  List().DeleteCaption(2);
  EXPECT_EQ(Result(), "No caption gets other times.");
  EXPECT_FALSE(Retime().cmdOK.Enabled());
}

TEST_F(RetimeInTheWindow, BeginsWithTheSelectedCaptionsWhenThereAreSeveral) {
  RowSet rows(2, 3);
  rows.Add(5, 5);
  List().SelectRows(rows, 3, false);
  Shift(u"0.1");
  EXPECT_TRUE(Retime().optSelected.Value());
  EXPECT_EQ(Retime().optSelected.GetText(), u"The 3 selected ones");
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1100, 2200, 3200, 4100, 5200}));
  Retime().cmdOK.Click();
  EXPECT_EQ(Starts(), (std::vector<std::int32_t>{1100, 2200, 3200, 4100, 5200}));
  EXPECT_EQ(program->history.UndoSteps(), 1u);
}

TEST_F(RetimeInTheWindow, FollowsWhatIsDoneInTheListMeanwhile) {
  List().SetRow(4, false);
  Shift(u"1");
  Retime().optFromHere.Click();
  Retime().optPoints.Click();
  Type(Retime().points.txtPoint, u"5.1");
  Retime().points.cmdSetPoint.Click();
  List().DeleteCaption(1);
  EXPECT_EQ(Retime().points.lstPoints.Items(), std::vector<Text>{u"3:  00:00:04,100  \u2192  00:00:05,100"});
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{2100, 3100, 5100, 6100}));
  EXPECT_EQ(Result(), "2 captions get other times; the list shows them.");
  Window().mnuUndo.Click();
  EXPECT_EQ(Shown(), (std::vector<std::int32_t>{1100, 2100, 3100, 5100, 6100}));
  List().DeleteCaption(4);
  EXPECT_TRUE(Retime().points.lstPoints.Items().empty());
}

TEST_F(RetimeInTheWindow, ClosesWithTheDocument) {
  Shift(u"1");
  program->session.CloseDocuments();
  EXPECT_FALSE(Retime().Loaded());
  Window().mnuRetime.Click();
  EXPECT_FALSE(Retime().Loaded());
}

TEST_F(RetimeInTheWindow, SpeaksTheTimesThatItShows) {
  program->grid.SetFindings(nullptr);
  Shift(u"1");
  EXPECT_EQ(ToUtf8(program->grid.SpokenCaption(1)), "1, 2.1 to 2.9 seconds, line 1");
}

}  // namespace
}  // namespace cuewright

#include "forms/editing_tools.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct DelayInTheWindow : ProgramFixture {
  DelayInTheWindow() {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
    List().SetRow(2, false);
    program->tools.delayDialog.Opened.Connect([this] {
      if (during) during();
      Dialog().Close();
    });
  }
  DelayDialog& Dialog() { return program->tools.delayDialog; }
  /// Opens the dialog from the menu and does something in it.
  void WithDialog(std::function<void()> action) {
    during = std::move(action);
    Window().mnuDelay.Click();
  }

  std::function<void()> during;
};

TEST_F(DelayInTheWindow, OpensWithNothingToApply) {
  WithDialog([&] {
    EXPECT_EQ(Dialog().Title(), u"Set delay");
    EXPECT_EQ(Dialog().lblTitle.GetText(), u"Here you can change the delay time of the entire subtitle file.");
    EXPECT_EQ(Dialog().lblMin.GetText(), u"0 minutes");
    EXPECT_EQ(Dialog().lblSec.GetText(), u"0 seconds");
    EXPECT_EQ(Dialog().lblMs.GetText(), u"0 milliseconds");
    EXPECT_EQ(Dialog().lblResult.GetText(), u"No changes will be applied.");
    EXPECT_EQ(Dialog().lblDetail.GetText(), u"Resulting appear time for selected caption:\r\n00:00:02,100");
    EXPECT_EQ(Dialog().cmdApply.GetText(), u"Apply");
    EXPECT_EQ(Dialog().cmdCancel.GetText(), u"&Cancel");
    EXPECT_FALSE(Dialog().cmdApply.Enabled());
  });
  EXPECT_EQ(List().GetCaptionStart(2), 2100);
}

TEST_F(DelayInTheWindow, AddsItsThreeBarsWhateverTheirSigns) {
  WithDialog([&] {
    Dialog().sldMin.Move(1);
    EXPECT_EQ(Dialog().lblMin.GetText(), u"1 minute");
    Dialog().sldSec.Move(-59);
    EXPECT_EQ(Dialog().lblSec.GetText(), u"-59 seconds");
    EXPECT_EQ(Dialog().Delay(), 1000);
    EXPECT_EQ(Dialog().lblResult.GetText(), u"Subtitles will appear 1000 milliseconds later.");
    EXPECT_TRUE(Dialog().cmdApply.Enabled());
    Dialog().sldSec.Move(-60);
    EXPECT_EQ(Dialog().sldSec.Value(), -59);
    Dialog().sldMin.Move(0);
    Dialog().sldSec.Move(-1);
    EXPECT_EQ(Dialog().lblSec.GetText(), u"-1 second");
    Dialog().sldMs.Move(-99);
    EXPECT_EQ(Dialog().lblMs.GetText(), u"-990 milliseconds");
    EXPECT_EQ(Dialog().Delay(), -1990);
    EXPECT_EQ(Dialog().lblResult.GetText(), u"Subtitles will appear 1990 milliseconds earlier.");
    EXPECT_EQ(Dialog().lblDetail.GetText(), u"Resulting appear time for selected caption:\r\n00:00:00,110");
    Dialog().sldMin.Move(-60);
    EXPECT_EQ(Dialog().lblDetail.GetText(), u"Resulting appear time for selected caption:\r\n00:00:00,000");
    Dialog().sldMin.Move(0);
    Dialog().sldSec.Move(0);
    Dialog().sldMs.Move(0);
    EXPECT_EQ(Dialog().lblResult.GetText(), u"No changes will be applied.");
    EXPECT_FALSE(Dialog().cmdApply.Enabled());
  });
}

TEST_F(DelayInTheWindow, ShiftsEveryCaptionAndShowsTheNewTimes) {
  WithDialog([&] {
    Dialog().sldSec.Move(10);
    std::string painted;
    const Connection watch = Dialog().RepaintRequested.ConnectScoped(
        [&] { painted = ToUtf8(Dialog().lblResult.GetText()) + (Dialog().cmdCancel.Enabled() ? " on" : " off"); });
    Dialog().cmdApply.Click();
    EXPECT_EQ(painted, "Please wait.... off");
    EXPECT_FALSE(Dialog().IsOpen());
  });
  EXPECT_EQ(List().GetCaptionStart(1), 11100);
  EXPECT_EQ(List().GetCaptionEnd(5), 15900);
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:12,100");
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(DelayInTheWindow, WarnsOfCaptionsThatWouldLoseTheirTimingAndStaysOpenOnNo) {
  WithDialog([&] {
    Dialog().sldSec.Move(-3);
    boxes.answers = {BoxAnswer::No};
    Dialog().cmdApply.Click();
    EXPECT_TRUE(Dialog().IsOpen());
    EXPECT_EQ(List().GetCaptionStart(1), 1100);
    EXPECT_FALSE(program->document.DocModified);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(LastBox(),
              "You have chosen to reduce the subtitles delay in 3000 milliseconds, but this would cause 2 captions to "
              "have a negative timing, which is not allowed. If you proceed with this, those captions will have its "
              "timing reset to zero.\n\nDo you want to proceed anyway and reset the timing of 2 captions to zero?");
    EXPECT_EQ(boxes.shown[0].title, u"Warning");
    EXPECT_EQ(boxes.shown[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Warning);
    EXPECT_TRUE(boxes.shown[0].noIsDefault);
    boxes.answers = {BoxAnswer::Yes};
    Dialog().cmdApply.Click();
  });
  EXPECT_EQ(List().At(2), (Caption{0, 0, u"line 2"}));
  EXPECT_EQ(List().At(3), (Caption{100, 900, u"line 3"}));
}

TEST_F(DelayInTheWindow, IsOnlyClosedByCancelAndByItsFrame) {
  WithDialog([&] {
    Dialog().sldSec.Move(3);
    Dialog().cmdCancel.Click();
    EXPECT_FALSE(Dialog().IsOpen());
  });
  WithDialog([&] { EXPECT_EQ(Dialog().sldSec.Value(), 0); });
  EXPECT_EQ(List().GetCaptionStart(1), 1100);
}

TEST_F(DelayInTheWindow, AZeroDelayAppliedClosesTheDialogWithoutAChange) {
  WithDialog([&] {
    EXPECT_FALSE(Dialog().cmdApply.Enabled());
    Dialog().cmdApply.SetEnabled(true);
    Dialog().cmdApply.Click();
    EXPECT_FALSE(Dialog().IsOpen());
  });
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(DelayInTheWindow, PausesAFilmThatPlaysWhileItIsOpen) {
  Play(folder.Write("film.mkv", "x"));
  WithDialog([&] { EXPECT_EQ(player.state, kPlayerPaused); });
  EXPECT_EQ(player.state, kPlayerPlaying);
  player.Become(kPlayerPaused);
  WithDialog([] {});
  EXPECT_EQ(player.state, kPlayerPaused);
}

TEST_F(DelayInTheWindow, TellsThoseWhoDrawTimesThatItHasClosed) {
  int told = 0;
  program->tools.DelayDone.Connect([&] { ++told; });
  WithDialog([&] { EXPECT_EQ(told, 0); });
  EXPECT_EQ(told, 1);
}

TEST_F(DelayInTheWindow, ShowsTheRowAnewOnlyWhenItIsTimed) {
  List().ClearCaptionTiming(2, true);
  Window().txtTime[0].SetText(u"untouched");
  WithDialog([&] {
    Dialog().sldSec.Move(1);
    Dialog().cmdApply.Click();
  });
  EXPECT_EQ(Window().txtTime[0].GetText(), u"untouched");
}

using TimingReset = ProgramFixture;

TEST_F(TimingReset, AsksAndThenWipesEveryRow) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  boxes.answers = {BoxAnswer::No};
  Window().mnuReset.Click();
  EXPECT_EQ(LastBox(), "Do you really want to reset the timecodes of the entire subtitle file?");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Question);
  EXPECT_EQ(boxes.shown.back().title, u"");
  EXPECT_EQ(List().GetCaptionStart(1), 1100);
  boxes.answers = {BoxAnswer::Yes};
  Window().mnuReset.Click();
  for (Row row = 1; row <= 3; ++row) EXPECT_EQ(List().TimesAt(row), CaptionTimes{});
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:00,000");
  EXPECT_TRUE(program->document.DocModified);
}

using Untimed = ProgramFixture;

TEST_F(Untimed, AreCountedAndFoundBelowTheSelection) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  List().ClearCaptionTiming(1, true);
  List().ClearCaptionTiming(4, true);
  Window().mnuCountUntimed.Click();
  EXPECT_EQ(LastBox(), "There is a total of 2 caption(s) without timing.");
  EXPECT_EQ(boxes.shown.back().title, u"Count non-timed captions");
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(List().Selected(), 4);
  // It doesn't wrap around.
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(List().Selected(), 4);
  EXPECT_EQ(LastBox(), "No captions without timing found beyond the selection point.");
  EXPECT_EQ(boxes.shown.back().title, u"Select next non-timed caption");
  List().SetRow(5, false);
  boxes.shown.clear();
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(Untimed, TheLastRowIsFoundToo) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  List().ClearCaptionTiming(5, true);
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(List().Selected(), 5);
  EXPECT_TRUE(boxes.shown.empty());
}

using GoingToALine = ProgramFixture;

TEST_F(GoingToALine, TakesNumbersAboveZeroAndNothingElse) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  const auto goTo = [&](TextView answer) {
    List().SetRow(2, false);
    boxes.lines = {Text(answer)};
    Window().mnuGoTo.Click();
    return List().Selected();
  };
  EXPECT_EQ(goTo(u"4"), 4);
  EXPECT_EQ(boxes.asked.back().prompt, u"Line number:");
  EXPECT_EQ(boxes.asked.back().title, u"Go to line number");
  EXPECT_EQ(goTo(u"999"), 5);
  EXPECT_EQ(goTo(u"3.6"), 4);
  EXPECT_EQ(goTo(u"2.5"), 2);
  EXPECT_EQ(goTo(u"3.5"), 4);
  EXPECT_EQ(goTo(u"0.4"), 2);
  for (const TextView nothing : {u"", u"0", u"-1", u"four", u"4x", u"1.2.3"}) EXPECT_EQ(goTo(nothing), 2);
}

struct Searching : ProgramFixture {
  Searching() { program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 12)); }
  FindWindow& Find() { return program->tools.findWindow; }
  ReplaceWindow& Replace() { return program->tools.replaceWindow; }
  static void Type(TextBox& box, TextView text) {
    box.SetText(text);
    box.NoteEdited();
  }
};

TEST_F(Searching, OpensOneWindowAndClosesTheOther) {
  Window().mnuFind.Click();
  EXPECT_TRUE(Find().Loaded());
  EXPECT_EQ(Find().Title(), u"Find");
  Window().mnuReplace.Click();
  EXPECT_FALSE(Find().Loaded());
  EXPECT_TRUE(Replace().Loaded());
  EXPECT_EQ(Replace().Title(), u"Replace");
  Window().mnuFind.Click();
  EXPECT_FALSE(Replace().Loaded());
  Find().cmdClose.Click();
  EXPECT_FALSE(Find().Loaded());
}

TEST_F(Searching, IsEndedByAPassOfTheRulesAndByTheDocumentsEnd) {
  Window().mnuFind.Click();
  Window().mnuRules.Click();
  EXPECT_FALSE(Find().Loaded());
  Window().mnuReplace.Click();
  Window().mnuReport.Click();
  EXPECT_FALSE(Replace().Loaded());
  Window().mnuFind.Click();
  program->session.CloseDocuments();
  EXPECT_FALSE(Find().Loaded());
  EXPECT_FALSE(Window().mnuFind.Enabled());
  EXPECT_FALSE(Window().mnuReplace.Enabled());
}

TEST_F(Searching, CantBeStartedWithAnEmptyText) {
  Window().mnuReplace.Click();
  EXPECT_FALSE(Replace().cmdFind.Enabled());
  EXPECT_FALSE(Replace().cmdReplace.Enabled());
  EXPECT_FALSE(Replace().cmdReplaceAll.Enabled());
  Type(Replace().txtFind, u"line");
  EXPECT_TRUE(Replace().cmdFind.Enabled());
  EXPECT_TRUE(Replace().cmdReplace.Enabled());
  EXPECT_TRUE(Replace().cmdReplaceAll.Enabled());
  Type(Replace().txtFind, {});
  EXPECT_FALSE(Replace().cmdFind.Enabled());
  EXPECT_FALSE(Replace().cmdReplaceAll.Enabled());
}

TEST_F(Searching, TellsWhereTheTextWasFoundOrThatItWasNot) {
  Window().mnuFind.Click();
  EXPECT_FALSE(Find().imgInfo.Visible());
  Type(Find().txtFind, u"LINE 1");
  Find().cmdFind.Click();
  EXPECT_EQ(Find().lblInfo.GetText(), u"String found on line 10");
  EXPECT_TRUE(Find().imgInfo.Visible());
  Find().chkCase.Click();
  Find().cmdFind.Click();
  EXPECT_EQ(Find().lblInfo.GetText(), u"String not found beyond selection point.");
  EXPECT_EQ(List().Selected(), 10);
}

TEST_F(Searching, OfASingleWord) {
  Window().mnuFind.Click();
  Find().chkEntire.Click();
  Type(Find().txtFind, u"1");
  List().SetRow(2, false);
  Find().cmdFind.Click();
  EXPECT_EQ(Find().lblInfo.GetText(), u"String not found beyond selection point.");
}

TEST_F(Searching, AsksForTheFocusOfItsFieldWhenItBecomesActive) {
  Window().mnuFind.Click();
  const Control* asked = nullptr;
  const Connection watch = Find().FocusRequested.ConnectScoped([&](Control& control) { asked = &control; });
  Find().OnActivated();
  EXPECT_EQ(asked, &Find().txtFind);
}

TEST_F(Searching, ReplacesRowByRowAndEverywhere) {
  Window().mnuReplace.Click();
  Type(Replace().txtFind, u"line 1");
  Type(Replace().txtReplace, u"row");
  Replace().chkCase.Click();
  Replace().cmdReplace.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"row");
  EXPECT_EQ(Replace().lblInfo.GetText(), u"String found on line 1");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(List().GetCaptionText(12), u"row2");
  EXPECT_EQ(Replace().lblInfo.GetText(), u"Search finished with 3 replacement(s) made.");
  Replace().cmdReplace.Click();
  EXPECT_EQ(Replace().lblInfo.GetText(), u"String not found beyond selection point.");
}

TEST_F(Searching, TheWindowShowsAReplacementAtOnce) {
  Window().mnuReplace.Click();
  Type(Replace().txtFind, u"LINE");
  Type(Replace().txtReplace, u"Row");
  Replace().cmdReplace.Click();
  EXPECT_EQ(Window().txtSub.GetText(), u"Row 1");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(Window().txtSub.GetText(), u"Row 12");
}

TEST_F(Searching, AReplacementNeitherMarksTheDocumentNorRefreshesThePane) {
  program->options.manner.SetClassic(true);
  Window().mnuReplace.Click();
  Type(Replace().txtFind, u"line");
  Type(Replace().txtReplace, u"row");
  Replace().cmdReplaceAll.Click();
  EXPECT_EQ(List().GetCaptionText(12), u"row 12");
  EXPECT_EQ(Window().txtSub.GetText(), u"line 12");
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(Searching, StartsAnewEachTimeItsWindowOpens) {
  Window().mnuFind.Click();
  Type(Find().txtFind, u"line 2");
  Find().chkCase.Click();
  Find().cmdFind.Click();
  Find().Close();
  Window().mnuFind.Click();
  EXPECT_TRUE(Find().txtFind.GetText().empty());
  EXPECT_TRUE(Find().lblInfo.GetText().empty());
  EXPECT_FALSE(Find().imgInfo.Visible());
  EXPECT_FALSE(Find().chkCase.Value());
  EXPECT_FALSE(Find().cmdFind.Enabled());
}

}  // namespace
}  // namespace cuewright
